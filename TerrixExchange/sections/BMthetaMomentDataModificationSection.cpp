#include <TerrixExchange/sections/BMthetaMomentDataModificationSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void BMthetaMomentDataModificationSection::Serialize(Archive& archive) {
    SerializeSection(archive);
}

template void BMthetaMomentDataModificationSection::Serialize(Importer&);
template void BMthetaMomentDataModificationSection::Serialize(Exporter&);
template void BMthetaMomentDataModificationSection::Serialize(JsonArchive&);

}  // namespace TerrixExchange
