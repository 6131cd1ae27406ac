#include <TerrixExchange/sections/PyLateralResistanceDataModificationSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void PyLateralResistanceDataModificationSection::Serialize(Archive& archive, std::size_t, std::size_t) {
    SerializeSection(archive);
}

template void PyLateralResistanceDataModificationSection::Serialize(Importer&, std::size_t, std::size_t);
template void PyLateralResistanceDataModificationSection::Serialize(Exporter&, std::size_t, std::size_t);
template void PyLateralResistanceDataModificationSection::Serialize(JsonArchive&, std::size_t, std::size_t);

}  // namespace TerrixExchange
