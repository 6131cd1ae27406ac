#include <TerrixExchange/sections/BSYBaseShearDataModificationSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void BSYBaseShearDataModificationSection::Serialize(Archive& archive) {
    SerializeSection(archive);
}

#define INSTANTIATE(Archive) template void BSYBaseShearDataModificationSection::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
