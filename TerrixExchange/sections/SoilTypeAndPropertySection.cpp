#include <TerrixExchange/sections/SoilTypeAndPropertySection.h>

#include <algorithm>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

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

template void SoilTypeAndPropertySectionRecord::Serialize(Importer&);
template void SoilTypeAndPropertySectionRecord::Serialize(Exporter&);
template void SoilTypeAndPropertySectionRecord::Serialize(JsonArchive&);

template <class Archive>
void SoilTypeAndPropertySection::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("SOIL TYPE AND PROPERTY SECTION");
    archive.TableHeader(
        "TYP       GAMTOT    PHI       SU.Z=0    SU.Z=100  EPSC      OCR       API-J     GAP       RPRAT     TZZRES");
    archive.RecordVector(records, count);
}

template void SoilTypeAndPropertySection::Serialize(Importer&, std::size_t);
template void SoilTypeAndPropertySection::Serialize(Exporter&, std::size_t);
template void SoilTypeAndPropertySection::Serialize(JsonArchive&, std::size_t);

SoilTypeAndPropertySection::const_iterator SoilTypeAndPropertySection::FindLayer(const Layer& layer) const {
    return std::find_if(records.begin(), records.end(),
                        [&](const SoilTypeAndPropertySectionRecord& record) { return record.TYP == layer.mainLayer; });
}





}  // namespace TerrixExchange
