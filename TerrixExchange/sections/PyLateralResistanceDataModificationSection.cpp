#include <TerrixExchange/sections/PyLateralResistanceDataModificationSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void PyLateralResistanceDataModificationSection::Serialize(Archive& archive, std::size_t, std::size_t) {
    SerializeSection(archive);
}

#define INSTANTIATE(Archive) template void PyLateralResistanceDataModificationSection::Serialize(Archive&, std::size_t, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
