#include <TerrixExchange/sections/MthetaMomentDataModificationSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void MthetaMomentDataModificationSection::Serialize(Archive& archive) {
    SerializeSection(archive);
}

template void MthetaMomentDataModificationSection::Serialize(Importer&);
template void MthetaMomentDataModificationSection::Serialize(Exporter&);
template void MthetaMomentDataModificationSection::Serialize(JsonArchive&);

}  // namespace TerrixExchange
