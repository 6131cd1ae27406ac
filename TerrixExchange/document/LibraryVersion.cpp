#include <TerrixExchange/document/LibraryVersion.h>

namespace TerrixExchange {

const char* GetLibraryVersion() { return TERRIX_LIBRARY_VERSION; }

}  // namespace TerrixExchange
