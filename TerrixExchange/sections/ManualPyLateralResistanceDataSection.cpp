#include <TerrixExchange/sections/ManualPyLateralResistanceDataSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void ManualPyLateralResistanceDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

#define INSTANTIATE(Archive) template void ManualPyLateralResistanceDataSection::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
