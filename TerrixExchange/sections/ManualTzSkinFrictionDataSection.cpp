#include <TerrixExchange/sections/ManualTzSkinFrictionDataSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void ManualTzSkinFrictionDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

template void ManualTzSkinFrictionDataSection::Serialize(Importer&, std::size_t);
template void ManualTzSkinFrictionDataSection::Serialize(Exporter&, std::size_t);
template void ManualTzSkinFrictionDataSection::Serialize(JsonArchive&, std::size_t);

}  // namespace TerrixExchange
