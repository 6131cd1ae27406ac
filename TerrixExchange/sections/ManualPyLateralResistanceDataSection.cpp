#include <TerrixExchange/sections/ManualPyLateralResistanceDataSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void ManualPyLateralResistanceDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

template void ManualPyLateralResistanceDataSection::Serialize(Importer&, std::size_t);
template void ManualPyLateralResistanceDataSection::Serialize(Exporter&, std::size_t);
template void ManualPyLateralResistanceDataSection::Serialize(JsonArchive&, std::size_t);

}  // namespace TerrixExchange
