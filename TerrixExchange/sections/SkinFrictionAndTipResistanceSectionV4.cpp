#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV4.h>

#include <utility>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

using namespace Units::Runtime;

namespace {

using Record = SkinFrictionAndTipResistanceSectionV4Record;

Quantity<LengthPhenomenon> MiddleOf(const Layer& layer) { return (layer.zTop + layer.zBottom) / 2.0; }

}  // namespace

bool Record::IsAboveMiddleOfLayer(const Layer& layer) const { return ZLEV < MiddleOf(layer); }

bool Record::IsBelowMiddleOfLayer(const Layer& layer) const { return ZLEV > MiddleOf(layer); }

bool Record::IsPartOfLayer(const Layer& layer) const { return layer.zTop <= ZLEV && ZLEV <= layer.zBottom; }

template <class Archive>
void Record::Serialize(Archive& archive) {
    // G0-SOIL is an optional column: seven numbers on the line leave it out.
    // Skin friction, shear modulus and tip resistance are kept as written.
    archive.Row(Column("ZLEV", ZLEV), PlainNumber("SKIN-CMP", SKIN_CMP), PlainNumber("SKIN-TNS", SKIN_TNS),
                PlainNumber("G0-SOIL", G0_SOIL), Column("DSPTZ/DIAM", DSPTZ_DIAM), PlainNumber("SIG-TIP", SIG_TIP),
                Column("POIS", POIS), Column("DSPQZ/DIAM", DSPQZ_DIAM));
}

#define INSTANTIATE(Archive) template void Record::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

std::pair<SkinFrictionAndTipResistanceSectionV4::const_iterator, SkinFrictionAndTipResistanceSectionV4::const_iterator>
SkinFrictionAndTipResistanceSectionV4::EqualRange(const Layer& layer) const {
    const const_iterator end = records.end();
    const_iterator first = end;   // the last record above the middle
    const_iterator second = end;  // the first record below it
    for (const_iterator record = records.begin(); record != end; ++record) {
        if (record->IsAboveMiddleOfLayer(layer))
            first = record;
        else if (record->IsBelowMiddleOfLayer(layer) && second == end)
            second = record;
    }
    return RangeBetween(first, second);
}

std::pair<SkinFrictionAndTipResistanceSectionV4::const_iterator, SkinFrictionAndTipResistanceSectionV4::const_iterator>
SkinFrictionAndTipResistanceSectionV4::RangeBetween(const_iterator first, const_iterator second) const {
    const const_iterator end = records.end();
    if (second == end)
        second = first;
    else if (first == end)
        first = second;
    if (second != end) ++second;
    // Levels out of depth order can put the first level below the middle in
    // front of the last one above it: the two do not bracket the middle in
    // the file, and the range is empty rather than reversed.
    if (second < first) return {end, end};
    return {first, second};
}

template <class Archive>
void SkinFrictionAndTipResistanceSectionV4::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION");
    archive.RequiredParameter(ZONINF, "ZONINF", "(ZONE OF INFLUENCE) / (PILE RADIUS) FOR TZCODE = 200");
    archive.RequiredParameter(RFTZ, "RFTZ", "CURVE FITTING FACTOR RF FOR TZCODE = 200");
    archive.TableHeader("ZLEV  SKIN-CMP  SKIN-TNS  G0-SOIL  DSPTZ/DIAM   SIG-TIP  POIS  DSPQZ/DIAM");
    archive.RecordVector(records, count);
}

#define INSTANTIATE(Archive) template void SkinFrictionAndTipResistanceSectionV4::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
