#include <TerrixExchange/sections/BSYBaseShearDataModificationSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void BSYBaseShearDataModificationSection::Serialize(Archive& archive) {
    SerializeSection(archive);
}

template void BSYBaseShearDataModificationSection::Serialize(Importer&);
template void BSYBaseShearDataModificationSection::Serialize(Exporter&);
template void BSYBaseShearDataModificationSection::Serialize(JsonArchive&);

}  // namespace TerrixExchange
