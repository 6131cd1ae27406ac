#include <TerrixExchange/sections/ManualQzPileTipResistanceDataSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void ManualQzPileTipResistanceDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

template void ManualQzPileTipResistanceDataSection::Serialize(Importer&, std::size_t);
template void ManualQzPileTipResistanceDataSection::Serialize(Exporter&, std::size_t);
template void ManualQzPileTipResistanceDataSection::Serialize(JsonArchive&, std::size_t);

}  // namespace TerrixExchange
