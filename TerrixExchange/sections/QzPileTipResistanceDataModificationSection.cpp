#include <TerrixExchange/sections/QzPileTipResistanceDataModificationSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void QzPileTipResistanceDataModificationSection::Serialize(Archive& archive, std::size_t, std::size_t) {
    SerializeSection(archive);
}

#define INSTANTIATE(Archive) template void QzPileTipResistanceDataModificationSection::Serialize(Archive&, std::size_t, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
