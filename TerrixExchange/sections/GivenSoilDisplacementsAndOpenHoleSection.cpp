#include <TerrixExchange/sections/GivenSoilDisplacementsAndOpenHoleSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

using namespace Units::Runtime;

template <class Archive>
void GivenSoilDisplacementsAndOpenHoleSectionRecord::Serialize(Archive& archive) {
    archive.Row(Column("ZLEV", AsQuantity<LengthPhenomenon>(ZLEV)),
                Column("DSP-X", AsQuantity<LengthPhenomenon>(DSP_X)),
                Column("DSP-Y", AsQuantity<LengthPhenomenon>(DSP_Y)),
                Column("DSP-Z", AsQuantity<LengthPhenomenon>(DSP_Z)),
                Column("HOLE-DIAM", AsQuantity<LengthPhenomenon>(HOLE_DIAM)));
}

template void GivenSoilDisplacementsAndOpenHoleSectionRecord::Serialize(Importer&);
template void GivenSoilDisplacementsAndOpenHoleSectionRecord::Serialize(Exporter&);
template void GivenSoilDisplacementsAndOpenHoleSectionRecord::Serialize(JsonArchive&);

template <class Archive>
void GivenSoilDisplacementsAndOpenHoleSection::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION");
    archive.TableHeader("ZLEV  DSP-X  DSP-Y  DSP-Z  HOLE-DIAM");
    archive.RecordVector(records, count);
}

template void GivenSoilDisplacementsAndOpenHoleSection::Serialize(Importer&, std::size_t);
template void GivenSoilDisplacementsAndOpenHoleSection::Serialize(Exporter&, std::size_t);
template void GivenSoilDisplacementsAndOpenHoleSection::Serialize(JsonArchive&, std::size_t);





}  // namespace TerrixExchange
