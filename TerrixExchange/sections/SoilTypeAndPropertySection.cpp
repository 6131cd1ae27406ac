#include <TerrixExchange/sections/SoilTypeAndPropertySection.h>

#include <algorithm>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

using namespace Units::Runtime;

template <class Archive>
void SoilTypeAndPropertySectionRecord::Serialize(Archive& archive) {
    // Eight columns of ten fill the 80 columns of a line.
    archive.Row(Column("TYP", TYP), Column("GAMTOT", GAMTOT), Column("PHI", PHI),
                Column("SU.Z=0", AsQuantity<ForcePerUnitAreaPhenomenon>(SU_Z0)),
                AtLevelInLengthUnit("SU.Z=100", AsQuantity<ForcePerUnitAreaPhenomenon>(SU_Z100)), Column("EPSC", EPSC),
                Column("OCR", OCR), Column("API-J", API_J));
    archive.Row(Column("GAP", GAP), Column("RPRAT", RPRAT), Column("TZZRES", TZZRES));
}

#define INSTANTIATE(Archive) template void SoilTypeAndPropertySectionRecord::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

template <class Archive>
void SoilTypeAndPropertySection::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("SOIL TYPE AND PROPERTY SECTION");
    archive.TableHeader(
        "TYP       GAMTOT    PHI       SU.Z=0    SU.Z=100  EPSC      OCR       API-J     GAP       RPRAT     TZZRES");
    archive.RecordVector(records, count);
}

#define INSTANTIATE(Archive) template void SoilTypeAndPropertySection::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

SoilTypeAndPropertySection::const_iterator SoilTypeAndPropertySection::FindLayer(const Layer& layer) const {
    return std::find_if(records.begin(), records.end(),
                        [&](const SoilTypeAndPropertySectionRecord& record) { return record.TYP == layer.mainLayer; });
}

}  // namespace TerrixExchange
