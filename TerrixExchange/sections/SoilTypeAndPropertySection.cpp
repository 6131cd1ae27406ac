#include <TerrixExchange/sections/SoilTypeAndPropertySection.h>

#include <algorithm>

#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

using namespace Units::Runtime;

template <class Archive>
void SoilTypeAndPropertySectionRecord::Serialize(Archive& archive) {
    // Eight columns of ten fill the 80 columns of a line.
    archive.Row(TYP, GAMTOT, PHI, AsQuantity<ForcePerUnitAreaPhenomenon>(SU_Z0),
                AsQuantity<ForcePerUnitAreaPhenomenon>(SU_Z100), EPSC, OCR, API_J);
    archive.Row(GAP, RPRAT, TZZRES);
}

template void SoilTypeAndPropertySectionRecord::Serialize(Importer&);
template void SoilTypeAndPropertySectionRecord::Serialize(Exporter&);

template <class Archive>
void SoilTypeAndPropertySection::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("SOIL TYPE AND PROPERTY SECTION");
    archive.TableHeader(
        "TYP       GAMTOT    PHI       SU.Z=0    SU.Z=100  EPSC      OCR       API-J     GAP       RPRAT     TZZRES");
    archive.RecordVector(records, count);
}

template void SoilTypeAndPropertySection::Serialize(Importer&, std::size_t);
template void SoilTypeAndPropertySection::Serialize(Exporter&, std::size_t);

SoilTypeAndPropertySection::const_iterator SoilTypeAndPropertySection::FindLayer(const Layer& layer) const {
    return std::find_if(records.begin(), records.end(),
                        [&](const SoilTypeAndPropertySectionRecord& record) { return record.TYP == layer.mainLayer; });
}

bool operator==(const SoilTypeAndPropertySectionRecord& left, const SoilTypeAndPropertySectionRecord& right) {
    return left.TYP == right.TYP && left.GAMTOT == right.GAMTOT && left.PHI == right.PHI &&
           left.SU_Z0 == right.SU_Z0 && left.SU_Z100 == right.SU_Z100 && left.EPSC == right.EPSC &&
           left.OCR == right.OCR && left.API_J == right.API_J && left.GAP == right.GAP &&
           left.RPRAT == right.RPRAT && left.TZZRES == right.TZZRES;
}

bool operator!=(const SoilTypeAndPropertySectionRecord& left, const SoilTypeAndPropertySectionRecord& right) {
    return !(left == right);
}

bool operator==(const SoilTypeAndPropertySection& left, const SoilTypeAndPropertySection& right) {
    return left.records == right.records;
}

bool operator!=(const SoilTypeAndPropertySection& left, const SoilTypeAndPropertySection& right) {
    return !(left == right);
}

}  // namespace TerrixExchange
