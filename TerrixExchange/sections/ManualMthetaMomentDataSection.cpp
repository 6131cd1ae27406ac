#include <TerrixExchange/sections/ManualMthetaMomentDataSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void ManualMthetaMomentDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

template void ManualMthetaMomentDataSection::Serialize(Importer&, std::size_t);
template void ManualMthetaMomentDataSection::Serialize(Exporter&, std::size_t);
template void ManualMthetaMomentDataSection::Serialize(JsonArchive&, std::size_t);

}  // namespace TerrixExchange
