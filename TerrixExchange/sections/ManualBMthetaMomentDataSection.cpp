#include <TerrixExchange/sections/ManualBMthetaMomentDataSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void ManualBMthetaMomentDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

template void ManualBMthetaMomentDataSection::Serialize(Importer&, std::size_t);
template void ManualBMthetaMomentDataSection::Serialize(Exporter&, std::size_t);
template void ManualBMthetaMomentDataSection::Serialize(JsonArchive&, std::size_t);

}  // namespace TerrixExchange
