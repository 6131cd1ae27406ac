#include <TerrixExchange/sections/MainLayersSubdivisionAndPyTzQzCodesSection.h>

#include <algorithm>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

using namespace Units::Runtime;

namespace {

using Record = MainLayersSubdivisionAndPyTzQzCodesSectionRecord;

// The subdivisions of the main layers whose `code` is 0 (manual), or of all
// main layers when no code is given; summed in 64 bits so that no file
// overflows the sum.
std::int64_t SumSubdivisions(const std::vector<Record>& records, std::int32_t Record::*code = nullptr) {
    std::int64_t sum = 0;
    for (const Record& record : records)
        if (code == nullptr || record.*code == 0) sum += record.SUBDIVISION;
    return sum;
}

}  // namespace

Layer Record::GetLayer(int firstLayer, Quantity<LengthPhenomenon> top) const {
    // A negative subdivision is sign-extended to the unsigned count.
    return Layer{MAIN_LAYER, firstLayer, static_cast<std::uint64_t>(static_cast<std::int64_t>(SUBDIVISION)), top,
                 ZBOTM};
}

template <class Archive>
void Record::Serialize(Archive& archive) {
    // The second header line of SUBDIVISION tells its values, not its name.
    archive.Row(Column("MAIN LAYER", MAIN_LAYER), Column("ZBOTM", ZBOTM), Column("SUBDIVISION", SUBDIVISION),
                Column("P-Y CODE", PYCODE), Column("T-Z CODE", TZCODE), Column("Q-Z CODE", QZCODE),
                Column("OPEN HOLE", OPEN_HOLE), Column("MISC.SOIL.LAYER.VALUES", ToEndOfLine(MISC_VALUES)));
}

#define INSTANTIATE(Archive) template void Record::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

std::vector<Layer> MainLayersSubdivisionAndPyTzQzCodesSection::GetLayers(Quantity<LengthPhenomenon> top) const {
    std::vector<Layer> layers;
    layers.reserve(records.size());
    std::int64_t firstLayer = 1;
    for (const Record& record : records) {
        layers.push_back(record.GetLayer(static_cast<std::int32_t>(firstLayer), top));
        firstLayer += record.SUBDIVISION;
        top = layers.back().zBottom;
    }
    return layers;
}

std::size_t MainLayersSubdivisionAndPyTzQzCodesSection::CountSubLayers() const {
    return static_cast<std::size_t>(SumSubdivisions(records));
}

MainLayersSubdivisionAndPyTzQzCodesSection::const_iterator MainLayersSubdivisionAndPyTzQzCodesSection::FindLayer(
    const Layer& layer) const {
    return std::find_if(records.begin(), records.end(),
                        [&layer](const Record& record) { return record.MAIN_LAYER == layer.mainLayer; });
}

int MainLayersSubdivisionAndPyTzQzCodesSection::GetManualPYRecordCount() const {
    return static_cast<int>(SumSubdivisions(records, &Record::PYCODE));
}

int MainLayersSubdivisionAndPyTzQzCodesSection::GetManualTZRecordCount() const {
    return static_cast<int>(SumSubdivisions(records, &Record::TZCODE));
}

int MainLayersSubdivisionAndPyTzQzCodesSection::GetManualQZRecordCount() const {
    return static_cast<int>(SumSubdivisions(records, &Record::QZCODE));
}

template <class Archive>
void MainLayersSubdivisionAndPyTzQzCodesSection::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION");
    archive.RequiredParameter(NUMPIL, "NUMPIL", "PILE NUMBER TO BE USED FOR AUTOMATIC MAIN LAYERS SUB-DIVISIONS");
    archive.CommentLine("*");
    archive.CommentLine("* P-Y codes : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR 404=ISO-04 214=API-2014");
    archive.CommentLine("* T-Z codes : 000=Manual 100+N=Auto 200=Kraft-1981 293=API-93 214=API-2014");
    archive.CommentLine("* Q-Z codes : 000=Manual 100+N=Auto 200=Bi-linear 293=API-93 214=API-2014");
    archive.CommentLine("* SUBDIVISIONS : 0=AUTO (DETERMINED FROM PILE NODES)    1=NONE");
    archive.CommentLine("*");
    archive.TableHeader("MAIN  ZBOTM  SUBDIVISION    P-Y   T-Z   Q-Z   OPEN  MISC.SOIL.LAYER.VALUES");
    archive.TableHeader("LAYER       0=AUTO 1=NONE  CODE  CODE  CODE   HOLE   1    2    3    4    5");
    archive.RecordVector(records, count);
}

#define INSTANTIATE(Archive) template void MainLayersSubdivisionAndPyTzQzCodesSection::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
