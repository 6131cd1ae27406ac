// The index of a call that asks about many layers. Each part finds what the
// scan of its section would find, the first record in file order:
//
// - a table looked up by a number (soil type, main layer, numbered layer or
//   a range of them) keeps, for every number the call will ask, the position
//   of the first record that holds it;
// - the level rows are kept in depth order, with, for every cut of that
//   order, the last row in the file above it and the first row below it;
// - the manual curves are kept by layer and diameter, the first one of each;
// - the modification rows are kept, for every number asked and every pile
//   diameter, as the first row that covers them.

#include <TerrixExchange/queries/LayerLookup.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace TerrixExchange {

using namespace Units::Runtime;

namespace {

const std::size_t none = std::numeric_limits<std::size_t>::max();

// The numbers a call asks about (soil types or main layers, numbered
// layers), ascending, each once.
using Numbers = std::vector<std::int32_t>;

// Where `number` stands among `numbers`; `none` when it is not one of them.
std::size_t PlaceOf(const Numbers& numbers, std::int32_t number) {
    const auto found = std::lower_bound(numbers.begin(), numbers.end(), number);
    return found != numbers.end() && *found == number ? static_cast<std::size_t>(found - numbers.begin()) : none;
}

// A closed range of layer numbers; empty when low > high.
struct NumberRange {
    std::int64_t low;
    std::int64_t high;
};

// For each of `numbers`, the position of the first of `records` whose range
// (`rangeOf`) holds it, or `none`. A number found is skipped from then on
// (`next` leads past the numbers found, its paths shortened as they are
// followed), so the work is one search per record plus one step per
// number, however wide the ranges are.
template <class Record, class RangeOf>
std::vector<std::size_t> FirstHolding(const Numbers& numbers, const std::vector<Record>& records, RangeOf rangeOf) {
    std::vector<std::size_t> first(numbers.size(), none);
    std::vector<std::size_t> next(numbers.size() + 1);
    for (std::size_t i = 0; i < next.size(); ++i) next[i] = i;
    const auto sought = [&next](std::size_t i) {
        while (next[i] != i) i = next[i] = next[next[i]];
        return i;
    };
    std::size_t left = numbers.size();
    for (std::size_t position = 0; position < records.size() && left > 0; ++position) {
        const NumberRange range = rangeOf(records[position]);
        if (range.low > range.high) continue;
        const auto from = std::lower_bound(numbers.begin(), numbers.end(), range.low,
                                           [](std::int32_t number, std::int64_t low) { return number < low; });
        for (std::size_t i = sought(static_cast<std::size_t>(from - numbers.begin()));
             i < numbers.size() && numbers[i] <= range.high; i = sought(i + 1)) {
            first[i] = position;
            next[i] = i + 1;
            --left;
        }
    }
    return first;
}

template <class Record, class Number>
std::vector<std::size_t> FirstWith(const Numbers& numbers, const std::vector<Record>& records, Number Record::*column) {
    return FirstHolding(numbers, records, [column](const Record& record) {
        return NumberRange{record.*column, record.*column};
    });
}

// What a section's FindLayer gives, from the first positions of `numbers`
// when `number` is among them, by the scan otherwise.
template <class Section>
typename Section::const_iterator FoundAt(const Numbers& numbers, const std::vector<std::size_t>& first,
                                         std::int32_t number, const Section& section, const Layer& layer) {
    const std::size_t place = PlaceOf(numbers, number);
    if (place == none) return section.FindLayer(layer);
    if (first[place] == none) return section.records.end();
    return section.records.begin() + static_cast<std::ptrdiff_t>(first[place]);
}

// The level rows in depth order (a level that is not a number neither lies
// above nor below any middle, and is left out), with, for every cut i of
// that order, the last file position among the rows before it and the first
// among the rows from it on.
struct LevelsByDepth {
    explicit LevelsByDepth(const std::vector<SkinFrictionAndTipResistanceSectionV4Record>& records) {
        for (std::size_t position = 0; position < records.size(); ++position)
            if (records[position].ZLEV == records[position].ZLEV) order.push_back(position);
        std::sort(order.begin(), order.end(),
                  [&](std::size_t a, std::size_t b) { return records[a].ZLEV < records[b].ZLEV; });
        lastBefore.assign(order.size() + 1, none);
        firstFrom.assign(order.size() + 1, none);
        for (std::size_t i = 0; i < order.size(); ++i)
            lastBefore[i + 1] = lastBefore[i] == none ? order[i] : std::max(lastBefore[i], order[i]);
        for (std::size_t i = order.size(); i-- > 0;) firstFrom[i] = std::min(firstFrom[i + 1], order[i]);
    }

    std::vector<std::size_t> order;
    std::vector<std::size_t> lastBefore;
    std::vector<std::size_t> firstFrom;
};

// The manual curves of a section whose diameter is a number (a NaN equals
// no diameter), by layer and diameter, in file order among equals: the first
// of each layer and diameter comes first.
template <class Kind>
struct CurveIndex {
    using Record = BasicManualCurveSectionRecord<Kind>;

    explicit CurveIndex(const BasicManualCurveSection<Kind>& section) : section(&section) {
        for (const Record& record : section.records)
            if (record.DIAM == record.DIAM) records.push_back(&record);
        std::stable_sort(records.begin(), records.end(), [](const Record* a, const Record* b) {
            return a->LAY < b->LAY || (a->LAY == b->LAY && a->DIAM < b->DIAM);
        });
    }

    const BasicManualCurveSection<Kind>* section;
    std::vector<const Record*> records;
};

// For every number asked and every pile diameter, the position of the
// first modification row that covers them (HasLayer and HasDiameter): the
// rows' layer ranges, one pass per diameter.
template <class Kind>
struct ModificationIndex {
    using Record = BasicModificationSectionRecord<Kind>;

    ModificationIndex(const BasicModificationSection<Kind>& section, const Numbers& numbers,
                      const std::vector<Quantity<LengthPhenomenon>>& diameters)
        : section(&section) {
        for (const auto& diameter : diameters)
            firstByDiameter.push_back(FirstHolding(numbers, section.records, [&](const Record& record) {
                if (!record.HasDiameter(diameter)) return NumberRange{1, 0};
                const std::pair<int, int> layers = record.GetLayerRange();
                return NumberRange{layers.first, layers.second};
            }));
    }

    const BasicModificationSection<Kind>* section;
    std::vector<std::vector<std::size_t>> firstByDiameter;
};

// Orders manual curve records by their layer alone, for equal_range.
template <class Kind>
struct LayerOrder {
    using Record = BasicManualCurveSectionRecord<Kind>;
    bool operator()(const Record* record, std::int32_t layer) const { return record->LAY < layer; }
    bool operator()(std::int32_t layer, const Record* record) const { return layer < record->LAY; }
};

// The numbers of `layers`, ascending, each once.
template <class Number>
Numbers NumbersOf(const std::vector<Layer>& layers, Number Layer::*member) {
    Numbers numbers;
    for (const Layer& layer : layers) numbers.push_back(layer.*member);
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

}  // namespace

struct LayerLookup::Index {
    Index(const TerrixInputData& data, const std::vector<Layer>& layers)
        : mainLayers(NumbersOf(layers, &Layer::mainLayer)),
          firstLayers(NumbersOf(layers, &Layer::firstLayer)),
          soilTypes(
              FirstWith(mainLayers, data.soilTypeAndPropertySection.records, &SoilTypeAndPropertySectionRecord::TYP)),
          mainLayerProperties(FirstWith(mainLayers, data.soilMainLayersAndPropertiesSection.records,
                                        &SoilMainLayersAndPropertiesSectionRecord::MAIN)),
          subdivisions(FirstWith(mainLayers, data.mainLayersSubdivisionAndPyTzQzCodesSection.records,
                                 &MainLayersSubdivisionAndPyTzQzCodesSectionRecord::MAIN_LAYER)),
          axialTables(FirstWith(mainLayers, data.skinFrictionAndTipResistanceSectionV5.records,
                                &SkinFrictionAndTipResistanceSectionV5Record::MAIN_LAYER)),
          divisions(FirstHolding(firstLayers, data.soilLayerDivisionsAndCodesForPyTzQzSection.records,
                                 [](const SoilLayerDivisionsAndCodesForPyTzQzSectionRecord& record) {
                                     return NumberRange{record.LAYER1, record.LAYER2};
                                 })),
          levels(data.skinFrictionAndTipResistanceSectionV4.records),
          manualCurves(CurveIndex<ManualPyCurves>(data.manualPyLateralResistanceDataSection),
                       CurveIndex<ManualTzCurves>(data.manualTzSkinFrictionDataSection),
                       CurveIndex<ManualQzCurves>(data.manualQzPileTipResistanceDataSection),
                       CurveIndex<ManualMthetaCurves>(data.manualMthetaMomentDataSection),
                       CurveIndex<ManualBSYCurves>(data.manualBSYBaseShearDataSection),
                       CurveIndex<ManualBMthetaCurves>(data.manualBMthetaMomentDataSection)),
          modifications(Modifications<PyModificationRows>(data.pyLateralResistanceDataModificationSection, data),
                        Modifications<TzModificationRows>(data.tzSkinFrictionDataModificationSection, data),
                        Modifications<QzModificationRows>(data.qzPileTipResistanceDataModificationSection, data),
                        Modifications<MThetaModificationRows>(data.mthetaMomentDataModificationSection, data),
                        Modifications<BSYModificationRows>(data.bsyBaseShearDataModificationSection, data),
                        Modifications<BMThetaModificationRows>(data.bmThetaMomentDataModificationSection, data)) {}

    template <class Kind>
    ModificationIndex<Kind> Modifications(const BasicModificationSection<Kind>& section,
                                          const TerrixInputData& data) const {
        return ModificationIndex<Kind>(section, firstLayers, data.pileDiametersAndGroupEffectsSection.diameters);
    }

    Numbers mainLayers;   // the soil types (version 4) or main layers (version 5) asked
    Numbers firstLayers;  // the numbered layers asked
    std::vector<std::size_t> soilTypes;
    std::vector<std::size_t> mainLayerProperties;
    std::vector<std::size_t> subdivisions;
    std::vector<std::size_t> axialTables;
    std::vector<std::size_t> divisions;
    LevelsByDepth levels;
    std::tuple<CurveIndex<ManualPyCurves>, CurveIndex<ManualTzCurves>, CurveIndex<ManualQzCurves>,
               CurveIndex<ManualMthetaCurves>, CurveIndex<ManualBSYCurves>, CurveIndex<ManualBMthetaCurves>>
        manualCurves;
    std::tuple<ModificationIndex<PyModificationRows>, ModificationIndex<TzModificationRows>,
               ModificationIndex<QzModificationRows>, ModificationIndex<MThetaModificationRows>,
               ModificationIndex<BSYModificationRows>, ModificationIndex<BMThetaModificationRows>>
        modifications;
};

LayerLookup::LayerLookup(const Terrix& profile) : profile_(&profile) {}

LayerLookup::LayerLookup(const Terrix& profile, const std::vector<Layer>& layers)
    : profile_(&profile), index_(std::make_unique<Index>(profile.GetTerrixInputData(), layers)) {}

LayerLookup::LayerLookup(LayerLookup&&) noexcept = default;
LayerLookup::~LayerLookup() = default;

SoilTypeAndPropertySection::const_iterator LayerLookup::Find(const SoilTypeAndPropertySection& section,
                                                             const Layer& layer) const {
    if (!IsIndexed(section, &TerrixInputData::soilTypeAndPropertySection)) return section.FindLayer(layer);
    return FoundAt(index_->mainLayers, index_->soilTypes, layer.mainLayer, section, layer);
}

SoilMainLayersAndPropertiesSection::const_iterator LayerLookup::Find(const SoilMainLayersAndPropertiesSection& section,
                                                                     const Layer& layer) const {
    if (!IsIndexed(section, &TerrixInputData::soilMainLayersAndPropertiesSection)) return section.FindLayer(layer);
    return FoundAt(index_->mainLayers, index_->mainLayerProperties, layer.mainLayer, section, layer);
}

SoilLayerDivisionsAndCodesForPyTzQzSection::const_iterator LayerLookup::Find(
    const SoilLayerDivisionsAndCodesForPyTzQzSection& section, const Layer& layer) const {
    if (!IsIndexed(section, &TerrixInputData::soilLayerDivisionsAndCodesForPyTzQzSection))
        return section.FindLayer(layer);
    return FoundAt(index_->firstLayers, index_->divisions, layer.firstLayer, section, layer);
}

MainLayersSubdivisionAndPyTzQzCodesSection::const_iterator LayerLookup::Find(
    const MainLayersSubdivisionAndPyTzQzCodesSection& section, const Layer& layer) const {
    if (!IsIndexed(section, &TerrixInputData::mainLayersSubdivisionAndPyTzQzCodesSection))
        return section.FindLayer(layer);
    return FoundAt(index_->mainLayers, index_->subdivisions, layer.mainLayer, section, layer);
}

SkinFrictionAndTipResistanceSectionV5::const_iterator LayerLookup::Find(
    const SkinFrictionAndTipResistanceSectionV5& section, const Layer& layer) const {
    if (!IsIndexed(section, &TerrixInputData::skinFrictionAndTipResistanceSectionV5)) return section.FindLayer(layer);
    return FoundAt(index_->mainLayers, index_->axialTables, layer.mainLayer, section, layer);
}

// In depth order, the rows above the middle come first and those below it
// last; the last row in the file among the first and the first among the
// last bracket the middle, as the scan finds them.
std::pair<SkinFrictionAndTipResistanceSectionV4::const_iterator, SkinFrictionAndTipResistanceSectionV4::const_iterator>
LayerLookup::EqualRange(const SkinFrictionAndTipResistanceSectionV4& section, const Layer& layer) const {
    if (!IsIndexed(section, &TerrixInputData::skinFrictionAndTipResistanceSectionV4)) return section.EqualRange(layer);
    const LevelsByDepth& levels = index_->levels;
    const auto& records = section.records;
    const auto above = std::partition_point(levels.order.begin(), levels.order.end(), [&](std::size_t position) {
        return records[position].IsAboveMiddleOfLayer(layer);
    });
    const auto notBelow = std::partition_point(levels.order.begin(), levels.order.end(), [&](std::size_t position) {
        return !records[position].IsBelowMiddleOfLayer(layer);
    });
    const auto at = [&](std::size_t position) {
        return position == none ? records.end() : records.begin() + static_cast<std::ptrdiff_t>(position);
    };
    return section.RangeBetween(at(levels.lastBefore[static_cast<std::size_t>(above - levels.order.begin())]),
                                at(levels.firstFrom[static_cast<std::size_t>(notBelow - levels.order.begin())]));
}

template <class Kind>
typename BasicManualCurveSection<Kind>::RecordsOfLayer LayerLookup::ManualCurves(
    const BasicManualCurveSection<Kind>& section, const Layer& layer) const {
    if (index_ == nullptr || std::get<CurveIndex<Kind>>(index_->manualCurves).section != &section)
        return section.FindRecordsOfLayer(layer.firstLayer);
    const auto& records = std::get<CurveIndex<Kind>>(index_->manualCurves).records;
    const auto ofLayer = std::equal_range(records.begin(), records.end(), layer.firstLayer, LayerOrder<Kind>());
    typename BasicManualCurveSection<Kind>::RecordsOfLayer curves;
    for (auto record = ofLayer.first; record != ofLayer.second; ++record) curves.emplace((*record)->DIAM, *record);
    return curves;
}

template <class Kind>
std::vector<const BasicModificationSectionRecord<Kind>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<Kind>& section, const Layer& layer) const {
    const auto& diameters = profile_->GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters;
    const std::size_t place = index_ == nullptr ? none : PlaceOf(index_->firstLayers, layer.firstLayer);
    const ModificationIndex<Kind>* index =
        place == none ? nullptr : &std::get<ModificationIndex<Kind>>(index_->modifications);
    if (index == nullptr || index->section != &section) return section.FindFirstRows(layer.firstLayer, diameters);
    std::vector<const BasicModificationSectionRecord<Kind>*> rows;
    for (const std::vector<std::size_t>& first : index->firstByDiameter)
        rows.push_back(first[place] == none ? nullptr : &section.records[first[place]]);
    return rows;
}

template BasicManualCurveSection<ManualPyCurves>::RecordsOfLayer LayerLookup::ManualCurves(
    const BasicManualCurveSection<ManualPyCurves>&, const Layer&) const;
template BasicManualCurveSection<ManualTzCurves>::RecordsOfLayer LayerLookup::ManualCurves(
    const BasicManualCurveSection<ManualTzCurves>&, const Layer&) const;
template BasicManualCurveSection<ManualQzCurves>::RecordsOfLayer LayerLookup::ManualCurves(
    const BasicManualCurveSection<ManualQzCurves>&, const Layer&) const;
template BasicManualCurveSection<ManualMthetaCurves>::RecordsOfLayer LayerLookup::ManualCurves(
    const BasicManualCurveSection<ManualMthetaCurves>&, const Layer&) const;
template BasicManualCurveSection<ManualBSYCurves>::RecordsOfLayer LayerLookup::ManualCurves(
    const BasicManualCurveSection<ManualBSYCurves>&, const Layer&) const;
template BasicManualCurveSection<ManualBMthetaCurves>::RecordsOfLayer LayerLookup::ManualCurves(
    const BasicManualCurveSection<ManualBMthetaCurves>&, const Layer&) const;

template std::vector<const BasicModificationSectionRecord<PyModificationRows>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<PyModificationRows>&, const Layer&) const;
template std::vector<const BasicModificationSectionRecord<TzModificationRows>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<TzModificationRows>&, const Layer&) const;
template std::vector<const BasicModificationSectionRecord<QzModificationRows>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<QzModificationRows>&, const Layer&) const;
template std::vector<const BasicModificationSectionRecord<MThetaModificationRows>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<MThetaModificationRows>&, const Layer&) const;
template std::vector<const BasicModificationSectionRecord<BSYModificationRows>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<BSYModificationRows>&, const Layer&) const;
template std::vector<const BasicModificationSectionRecord<BMThetaModificationRows>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<BMThetaModificationRows>&, const Layer&) const;

// A getter asks about one layer: its lookup scans the sections.
Terrix::SoilType Terrix::GetSoilType(const Layer& layer) const {
    return PerLayer::GetSoilType(LayerLookup(*this), layer);
}
Quantity<AnglePhenomenon> Terrix::GetPhi(const Layer& layer) const {
    return PerLayer::GetPhi(LayerLookup(*this), layer);
}
double Terrix::GetEpsc(const Layer& layer) const {
    return PerLayer::GetEpsc(LayerLookup(*this), layer);
}
boost::optional<double> Terrix::GetOverConsolidationRatio(const Layer& layer) const {
    return PerLayer::GetOverConsolidationRatio(LayerLookup(*this), layer);
}
double Terrix::GetAPIJFactor(const Layer& layer) const {
    return PerLayer::GetAPIJFactor(LayerLookup(*this), layer);
}
bool Terrix::GetOpenGap(const Layer& layer) const {
    return PerLayer::GetOpenGap(LayerLookup(*this), layer);
}
double Terrix::GetRPRatio(const Layer& layer) const {
    return PerLayer::GetRPRatio(LayerLookup(*this), layer);
}
Quantity<LengthPhenomenon> Terrix::GetTZCurveZDisplacement(const Layer& layer) const {
    return PerLayer::GetTZCurveZDisplacement(LayerLookup(*this), layer);
}
Quantity<ForcePerUnitVolumePhenomenon> Terrix::GetLayerUnitWeight(const Layer& layer) const {
    return PerLayer::GetLayerUnitWeight(LayerLookup(*this), layer);
}
boost::optional<Quantity<ForcePerUnitVolumePhenomenon>> Terrix::GetInitialModulus(const Layer& layer) const {
    return PerLayer::GetInitialModulus(LayerLookup(*this), layer);
}
boost::optional<Quantity<ForcePerUnitAreaPhenomenon>> Terrix::GetInitialSoilShearModulus(const Layer& layer) const {
    return PerLayer::GetInitialSoilShearModulus(LayerLookup(*this), layer);
}
boost::optional<double> Terrix::GetDSDiameterRatio(const Layer& layer) const {
    return PerLayer::GetDSDiameterRatio(LayerLookup(*this), layer);
}
boost::optional<double> Terrix::GetPoissonRatio(const Layer& layer) const {
    return PerLayer::GetPoissonRatio(LayerLookup(*this), layer);
}
boost::optional<double> Terrix::GetDTDiameterRatio(const Layer& layer) const {
    return PerLayer::GetDTDiameterRatio(LayerLookup(*this), layer);
}
Terrix::StressByLevel Terrix::GetSUz(const Layer& layer) const {
    return PerLayer::GetSUz(LayerLookup(*this), layer);
}
Terrix::StressByLevel Terrix::GetSkinCompression(const Layer& layer) const {
    return PerLayer::GetSkinCompression(LayerLookup(*this), layer);
}
Terrix::StressByLevel Terrix::GetSkinTension(const Layer& layer) const {
    return PerLayer::GetSkinTension(LayerLookup(*this), layer);
}
Terrix::StressByLevel Terrix::GetTipResistance(const Layer& layer) const {
    return PerLayer::GetTipResistance(LayerLookup(*this), layer);
}
PyData Terrix::GetPyData(const Layer& layer) const {
    return PerLayer::GetPyData(LayerLookup(*this), layer);
}
TzData Terrix::GetTzData(const Layer& layer) const {
    return PerLayer::GetTzData(LayerLookup(*this), layer);
}
QzData Terrix::GetQzData(const Layer& layer) const {
    return PerLayer::GetQzData(LayerLookup(*this), layer);
}
MThetaData Terrix::GetMthetaData(const Layer& layer) const {
    return PerLayer::GetMthetaData(LayerLookup(*this), layer);
}
BSYData Terrix::GetBSyData(const Layer& layer) const {
    return PerLayer::GetBSyData(LayerLookup(*this), layer);
}
BMThetaData Terrix::GetBMthetaData(const Layer& layer) const {
    return PerLayer::GetBMthetaData(LayerLookup(*this), layer);
}

}  // namespace TerrixExchange
