#include <TerrixExchange/sections/ManualBSYBaseShearDataSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void ManualBSYBaseShearDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

template void ManualBSYBaseShearDataSection::Serialize(Importer&, std::size_t);
template void ManualBSYBaseShearDataSection::Serialize(Exporter&, std::size_t);
template void ManualBSYBaseShearDataSection::Serialize(JsonArchive&, std::size_t);

}  // namespace TerrixExchange
