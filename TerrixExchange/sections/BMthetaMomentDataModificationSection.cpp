#include <TerrixExchange/sections/BMthetaMomentDataModificationSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void BMthetaMomentDataModificationSection::Serialize(Archive& archive) {
    SerializeSection(archive);
}

#define INSTANTIATE(Archive) template void BMthetaMomentDataModificationSection::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
