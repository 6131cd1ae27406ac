#include <TerrixExchange/sections/SoilLayerDivisionsAndCodesForPyTzQzSection.h>

#include <algorithm>

#include <boost/function.hpp>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

using namespace Units::Runtime;

namespace {

using Record = SoilLayerDivisionsAndCodesForPyTzQzSectionRecord;

// The numbered layers of the divisions whose `code` is 0 (manual), or of all
// divisions when no code is given.
std::size_t CountLayers(const std::vector<Record>& records, std::int32_t Record::*code = nullptr) {
    std::size_t count = 0;
    for (const Record& record : records)
        if (code == nullptr || record.*code == 0) count += record.GetSublayerCount();
    return count;
}

}  // namespace

Layer Record::GetLayer(Quantity<LengthPhenomenon> top) const {
    return Layer{TYP, LAYER1, GetSublayerCount(), top, ZBOTM};
}

std::size_t Record::GetSublayerCount() const {
    // In 64 bits, so that no pair of 32-bit layer numbers overflows.
    return static_cast<std::size_t>(static_cast<std::int64_t>(LAYER2) - LAYER1 + 1);
}

bool Record::HasManualCodes() const { return PYCODE == 0 || TZCODE == 0 || QZCODE == 0; }

template <class Archive>
void Record::Serialize(Archive& archive) {
    archive.Row(Column("LAYER1", LAYER1), Column("LAYER2", LAYER2), Column("TYP", TYP), Column("ZBOTM", ZBOTM),
                Column("PYCODE", PYCODE), Column("TZCODE", TZCODE), Column("QZCODE", QZCODE));
}

#define INSTANTIATE(Archive) template void Record::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

std::vector<Layer> SoilLayerDivisionsAndCodesForPyTzQzSection::GetLayers(Quantity<LengthPhenomenon> top) const {
    std::vector<Layer> layers;
    layers.reserve(records.size());
    for (const Record& record : records) {
        layers.push_back(record.GetLayer(top));
        top = layers.back().zBottom;
    }
    return layers;
}

SoilLayerDivisionsAndCodesForPyTzQzSection::const_iterator SoilLayerDivisionsAndCodesForPyTzQzSection::FindLayer(
    const Layer& layer) const {
    return std::find_if(records.begin(), records.end(), [&layer](const Record& record) {
        return record.LAYER1 <= layer.firstLayer && layer.firstLayer <= record.LAYER2;
    });
}

std::size_t SoilLayerDivisionsAndCodesForPyTzQzSection::GetLayerCount() const { return CountLayers(records); }

std::size_t SoilLayerDivisionsAndCodesForPyTzQzSection::GetManualPYRecordCount() const {
    return CountLayers(records, &Record::PYCODE);
}

std::size_t SoilLayerDivisionsAndCodesForPyTzQzSection::GetManualTZRecordCount() const {
    return CountLayers(records, &Record::TZCODE);
}

std::size_t SoilLayerDivisionsAndCodesForPyTzQzSection::GetManualQZRecordCount() const {
    return CountLayers(records, &Record::QZCODE);
}

template <class Archive>
void SoilLayerDivisionsAndCodesForPyTzQzSection::Serialize(Archive& archive, std::size_t layerCount) {
    const auto guard = archive.BeginSection("SOIL LAYER DIV ...");
    archive.TableHeader("P-Y CODES : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR-80 214=API-2014");
    archive.TableHeader("T-Z CODES : 000=Manual 100+N=Auto 200=Kraft et al. 293=API-93 214=API-2014");
    archive.TableHeader("Q-Z CODES : 000=Manual 100+N=Auto 200=bi-linear 293=API-93 214=API-2014");
    archive.TableHeader("LAYER1    LAYER2    TYP       ZBOTM     PYCODE    TZCODE    QZCODE");
    // Divisions are read until they cover the profile's soil layers; a last
    // division may cover more. The records held are all written.
    const boost::function<bool(const std::vector<Record>&)> coversTooFew =
        [layerCount](const std::vector<Record>& read) { return CountLayers(read) < layerCount; };
    archive.RecordVector(records, coversTooFew);
}

#define INSTANTIATE(Archive) template void SoilLayerDivisionsAndCodesForPyTzQzSection::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
