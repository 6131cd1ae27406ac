#include <TerrixExchange/sections/MthetaMomentDataModificationSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void MthetaMomentDataModificationSection::Serialize(Archive& archive) {
    SerializeSection(archive);
}

#define INSTANTIATE(Archive) template void MthetaMomentDataModificationSection::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
