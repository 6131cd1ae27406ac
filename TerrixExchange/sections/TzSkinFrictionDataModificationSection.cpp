#include <TerrixExchange/sections/TzSkinFrictionDataModificationSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void TzSkinFrictionDataModificationSection::Serialize(Archive& archive, std::size_t, std::size_t) {
    SerializeSection(archive);
}

template void TzSkinFrictionDataModificationSection::Serialize(Importer&, std::size_t, std::size_t);
template void TzSkinFrictionDataModificationSection::Serialize(Exporter&, std::size_t, std::size_t);
template void TzSkinFrictionDataModificationSection::Serialize(JsonArchive&, std::size_t, std::size_t);

}  // namespace TerrixExchange
