#include <TerrixExchange/sections/SoilMainLayersAndPropertiesSection.h>

#include <algorithm>
#include <string>

#include <TerrixExchange/archive/ImportError.h>
#include <TerrixExchange/archive/Archives.h>
#include <TerrixExchange/document/Version.h>

namespace TerrixExchange {

namespace {

const int layoutWithoutAK = static_cast<int>(Revision::WithoutAK);
const int layoutWithAK = static_cast<int>(Revision::WithAK);
const LayoutName layouts[] = {{layoutWithAK, "with AK"}, {layoutWithoutAK, "without AK"}};

}  // namespace

template <class Archive>
void SoilMainLayersAndPropertiesSectionRecord::Serialize(Archive& archive, bool withAK) {
    // Eight columns of ten fill the 80 columns of a line.
    // Unit weight, CPT values and strengths are kept as written.
    archive.Row(Column("MAIN LAYER", MAIN), Column("ZBOTM", ZBOTM), PlainNumber("GAMTOT", GAMTOT),
                PlainNumber("CPTTOP", CPTTOP), PlainNumber("CPTBOT", CPTBOT), Column("PHI", PHI), Column("DR", DR),
                PlainNumber("SUTOP", SUTOP));
    if (withAK)
        archive.Row(PlainNumber("SUBOT", SUBOT), Column("IP", IP), Column("EPSC", EPSC), Column("API-J", API_J),
                    PlainNumber("AK", AK));
    else
        archive.Row(PlainNumber("SUBOT", SUBOT), Column("IP", IP), Column("EPSC", EPSC), Column("API-J", API_J));
}

#define INSTANTIATE(Archive) template void SoilMainLayersAndPropertiesSectionRecord::Serialize(Archive&, bool);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

template <class Archive>
void SoilMainLayersAndPropertiesSection::SerializeTable(Archive& archive, std::size_t count) {
    const bool hasAK = layoutRevision != layoutWithoutAK;
    const std::string header = "MAIN  ZBOTM GAMTOT CPTTOP CPTBOT  PHI   DR  SUTOP  SUBOT   IP   EPSC  API-J";
    archive.TableHeader(hasAK ? header + "  AK" : header);
    archive.TableHeader("LAYER");
    archive.RecordVector(records, count, hasAK);
}

template <class Archive>
void SoilMainLayersAndPropertiesSection::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("SOIL MAIN LAYERS AND PROPERTIES SECTION");
    // An unsettled layout is written with AK; the text tells which layout it
    // holds only by its lines, the JSON of a profile by name.
    if (layoutRevision != layoutWithoutAK) layoutRevision = layoutWithAK;
    archive.LayoutChoice("layout", layoutRevision, layouts);
    if (layoutRevision == layoutWithAK) {
        // Files come in both layouts: the table is read with AK when the text
        // has that column, and read again without it when not. Writing never
        // fails, so an export keeps the layout with AK.
        const auto start = archive.GetPosition();
        try {
            SerializeTable(archive, count);
            return;
        } catch (const ImportError&) {
            archive.SetPosition(start);
            layoutRevision = layoutWithoutAK;
        }
    }
    // When the table does not read without AK either, this is the error
    // that the caller sees.
    SerializeTable(archive, count);
}

#define INSTANTIATE(Archive) template void SoilMainLayersAndPropertiesSection::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

SoilMainLayersAndPropertiesSection::const_iterator SoilMainLayersAndPropertiesSection::FindLayer(
    const Layer& layer) const {
    return std::find_if(records.begin(), records.end(), [&](const SoilMainLayersAndPropertiesSectionRecord& record) {
        return record.MAIN == layer.mainLayer;
    });
}

}  // namespace TerrixExchange
