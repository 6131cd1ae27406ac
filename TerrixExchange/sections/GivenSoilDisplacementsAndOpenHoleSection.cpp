#include <TerrixExchange/sections/GivenSoilDisplacementsAndOpenHoleSection.h>

#include <TerrixExchange/archive/Archives.h>

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

#define INSTANTIATE(Archive) template void GivenSoilDisplacementsAndOpenHoleSectionRecord::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

template <class Archive>
void GivenSoilDisplacementsAndOpenHoleSection::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION");
    archive.TableHeader("ZLEV  DSP-X  DSP-Y  DSP-Z  HOLE-DIAM");
    archive.RecordVector(records, count);
}

#define INSTANTIATE(Archive) template void GivenSoilDisplacementsAndOpenHoleSection::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
