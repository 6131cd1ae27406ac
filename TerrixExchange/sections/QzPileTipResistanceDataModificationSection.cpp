#include <TerrixExchange/sections/QzPileTipResistanceDataModificationSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void QzPileTipResistanceDataModificationSection::Serialize(Archive& archive, std::size_t, std::size_t) {
    SerializeSection(archive);
}

template void QzPileTipResistanceDataModificationSection::Serialize(Importer&, std::size_t, std::size_t);
template void QzPileTipResistanceDataModificationSection::Serialize(Exporter&, std::size_t, std::size_t);
template void QzPileTipResistanceDataModificationSection::Serialize(JsonArchive&, std::size_t, std::size_t);

}  // namespace TerrixExchange
