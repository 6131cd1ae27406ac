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
#include <set>
#include <tuple>
#include <unordered_map>

namespace TerrixExchange {

using namespace Units::Runtime;

namespace {

const std::size_t none = std::numeric_limits<std::size_t>::max();

// Number -> position of the first record that holds it, or `none`.
using FirstPositions = std::unordered_map<std::int32_t, std::size_t>;

// A closed range of layer numbers; empty when low > high.
struct NumberRange {
    std::int64_t low;
    std::int64_t high;
};

// For each of `numbers`, the position of the first of `records` whose range
// (`rangeOf`) holds it. A number found leaves the set of numbers still
// sought, so the work is one search per record plus one per number, however
// wide the ranges are.
template <class Record, class RangeOf>
FirstPositions FirstHolding(const std::set<std::int32_t>& numbers, const std::vector<Record>& records, RangeOf rangeOf) {
    FirstPositions first;
    for (const std::int32_t number : numbers) first.emplace(number, none);
    std::set<std::int32_t> sought = numbers;
    for (std::size_t position = 0; position < records.size() && !sought.empty(); ++position) {
        const NumberRange range = rangeOf(records[position]);
        if (range.low > range.high) continue;
        auto number = sought.lower_bound(static_cast<std::int32_t>(
            std::max<std::int64_t>(range.low, std::numeric_limits<std::int32_t>::min())));
        while (number != sought.end() && *number <= range.high) {
            first[*number] = position;
            number = sought.erase(number);
        }
    }
    return first;
}

template <class Record, class Number>
FirstPositions FirstWith(const std::set<std::int32_t>& numbers, const std::vector<Record>& records,
                         Number Record::*column) {
    return FirstHolding(numbers, records, [column](const Record& record) {
        return NumberRange{record.*column, record.*column};
    });
}

// What a section's FindLayer gives, from the positions when the number is
// among them, by the scan otherwise.
template <class Section>
typename Section::const_iterator FoundAt(const FirstPositions* positions, std::int32_t number, const Section& section,
                                         const Layer& layer) {
    if (positions != nullptr) {
        const auto found = positions->find(number);
        if (found != positions->end())
            return found->second == none ? section.records.end()
                                         : section.records.begin() + static_cast<std::ptrdiff_t>(found->second);
    }
    return section.FindLayer(layer);
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

// An index of one section, with the section it indexes.
template <class Section, class Value>
struct IndexOf {
    const Section* section;
    Value value;
};

template <class Kind>
using CurveIndex =
    IndexOf<BasicManualCurveSection<Kind>, typename BasicManualCurveSection<Kind>::RecordIndex>;

template <class Kind>
CurveIndex<Kind> IndexCurves(const BasicManualCurveSection<Kind>& section) {
    return {&section, section.IndexRecords(nullptr)};
}

// Number -> the first row covering it at each pile diameter (null: none).
template <class Kind>
using ModificationIndex =
    IndexOf<BasicModificationSection<Kind>,
            std::unordered_map<std::int32_t, std::vector<const BasicModificationSectionRecord<Kind>*>>>;

// HasLayer and HasDiameter, as a range of numbers per diameter.
template <class Kind>
ModificationIndex<Kind> IndexModifications(
    const BasicModificationSection<Kind>& section, const std::set<std::int32_t>& numbers,
    const std::vector<Quantity<Units::Runtime::LengthPhenomenon>>& diameters) {
    using Record = BasicModificationSectionRecord<Kind>;
    ModificationIndex<Kind> index{&section, {}};
    for (const std::int32_t number : numbers) index.value[number].assign(diameters.size(), nullptr);
    for (std::size_t d = 0; d < diameters.size(); ++d) {
        const FirstPositions first = FirstHolding(numbers, section.records, [&](const Record& record) {
            if (!record.HasDiameter(diameters[d])) return NumberRange{1, 0};
            const std::pair<int, int> layers = record.GetLayerRange();
            return NumberRange{layers.first, layers.second};
        });
        for (const auto& [number, position] : first)
            if (position != none) index.value[number][d] = &section.records[position];
    }
    return index;
}

}  // namespace

struct LayerLookup::Index {
    Index(const TerrixInputData& data, const std::set<std::int32_t>& mainLayers,
          const std::set<std::int32_t>& firstLayers)
        : soilTypes(FirstWith(mainLayers, data.soilTypeAndPropertySection.records, &SoilTypeAndPropertySectionRecord::TYP)),
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
          manualCurves(IndexCurves(data.manualPyLateralResistanceDataSection),
                       IndexCurves(data.manualTzSkinFrictionDataSection),
                       IndexCurves(data.manualQzPileTipResistanceDataSection),
                       IndexCurves(data.manualMthetaMomentDataSection),
                       IndexCurves(data.manualBSYBaseShearDataSection),
                       IndexCurves(data.manualBMthetaMomentDataSection)) {
        const auto& diameters = data.pileDiametersAndGroupEffectsSection.diameters;
        modifications = std::make_tuple(
            IndexModifications(data.pyLateralResistanceDataModificationSection, firstLayers, diameters),
            IndexModifications(data.tzSkinFrictionDataModificationSection, firstLayers, diameters),
            IndexModifications(data.qzPileTipResistanceDataModificationSection, firstLayers, diameters),
            IndexModifications(data.mthetaMomentDataModificationSection, firstLayers, diameters),
            IndexModifications(data.bsyBaseShearDataModificationSection, firstLayers, diameters),
            IndexModifications(data.bmThetaMomentDataModificationSection, firstLayers, diameters));
    }

    FirstPositions soilTypes;
    FirstPositions mainLayerProperties;
    FirstPositions subdivisions;
    FirstPositions axialTables;
    FirstPositions divisions;
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

LayerLookup::LayerLookup(const Terrix& profile, const std::vector<Layer>& layers) : profile_(&profile) {
    std::set<std::int32_t> mainLayers;
    std::set<std::int32_t> firstLayers;
    for (const Layer& layer : layers) {
        mainLayers.insert(layer.mainLayer);
        firstLayers.insert(layer.firstLayer);
    }
    index_ = std::make_unique<Index>(profile.GetTerrixInputData(), mainLayers, firstLayers);
}

LayerLookup::LayerLookup(LayerLookup&&) noexcept = default;
LayerLookup::~LayerLookup() = default;

SoilTypeAndPropertySection::const_iterator LayerLookup::Find(const SoilTypeAndPropertySection& section,
                                                             const Layer& layer) const {
    const bool indexed = IsIndexed(section, &TerrixInputData::soilTypeAndPropertySection);
    return FoundAt(indexed ? &index_->soilTypes : nullptr, layer.mainLayer, section, layer);
}

SoilMainLayersAndPropertiesSection::const_iterator LayerLookup::Find(const SoilMainLayersAndPropertiesSection& section,
                                                                     const Layer& layer) const {
    const bool indexed = IsIndexed(section, &TerrixInputData::soilMainLayersAndPropertiesSection);
    return FoundAt(indexed ? &index_->mainLayerProperties : nullptr, layer.mainLayer, section, layer);
}

SoilLayerDivisionsAndCodesForPyTzQzSection::const_iterator LayerLookup::Find(
    const SoilLayerDivisionsAndCodesForPyTzQzSection& section, const Layer& layer) const {
    const bool indexed = IsIndexed(section, &TerrixInputData::soilLayerDivisionsAndCodesForPyTzQzSection);
    return FoundAt(indexed ? &index_->divisions : nullptr, layer.firstLayer, section, layer);
}

MainLayersSubdivisionAndPyTzQzCodesSection::const_iterator LayerLookup::Find(
    const MainLayersSubdivisionAndPyTzQzCodesSection& section, const Layer& layer) const {
    const bool indexed = IsIndexed(section, &TerrixInputData::mainLayersSubdivisionAndPyTzQzCodesSection);
    return FoundAt(indexed ? &index_->subdivisions : nullptr, layer.mainLayer, section, layer);
}

SkinFrictionAndTipResistanceSectionV5::const_iterator LayerLookup::Find(
    const SkinFrictionAndTipResistanceSectionV5& section, const Layer& layer) const {
    const bool indexed = IsIndexed(section, &TerrixInputData::skinFrictionAndTipResistanceSectionV5);
    return FoundAt(indexed ? &index_->axialTables : nullptr, layer.mainLayer, section, layer);
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
    if (index_ == nullptr || std::get<CurveIndex<Kind>>(index_->manualCurves).section != &section) {
        auto scanned = section.IndexRecords(&layer.firstLayer);
        return scanned.empty() ? typename BasicManualCurveSection<Kind>::RecordsOfLayer() : scanned.begin()->second;
    }
    const auto& index = std::get<CurveIndex<Kind>>(index_->manualCurves).value;
    const auto found = index.find(layer.firstLayer);
    return found == index.end() ? typename BasicManualCurveSection<Kind>::RecordsOfLayer() : found->second;
}

template <class Kind>
std::vector<const BasicModificationSectionRecord<Kind>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<Kind>& section, const Layer& layer) const {
    if (index_ != nullptr && std::get<ModificationIndex<Kind>>(index_->modifications).section == &section) {
        const auto& index = std::get<ModificationIndex<Kind>>(index_->modifications).value;
        const auto found = index.find(layer.firstLayer);
        if (found != index.end()) return found->second;
    }
    return section.FindFirstRows(layer.firstLayer,
                                 profile_->GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters);
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
template std::vector<const BasicModificationSectionRecord<MThetaModificationRows>*>
LayerLookup::FirstModificationRows(const BasicModificationSection<MThetaModificationRows>&, const Layer&) const;
template std::vector<const BasicModificationSectionRecord<BSYModificationRows>*> LayerLookup::FirstModificationRows(
    const BasicModificationSection<BSYModificationRows>&, const Layer&) const;
template std::vector<const BasicModificationSectionRecord<BMThetaModificationRows>*>
LayerLookup::FirstModificationRows(const BasicModificationSection<BMThetaModificationRows>&, const Layer&) const;


// A getter asks about one layer: its lookup scans the sections.
Terrix::SoilType Terrix::GetSoilType(const Layer& layer) const { return PerLayer::GetSoilType(LayerLookup(*this), layer); }
Quantity<AnglePhenomenon> Terrix::GetPhi(const Layer& layer) const { return PerLayer::GetPhi(LayerLookup(*this), layer); }
double Terrix::GetEpsc(const Layer& layer) const { return PerLayer::GetEpsc(LayerLookup(*this), layer); }
boost::optional<double> Terrix::GetOverConsolidationRatio(const Layer& layer) const { return PerLayer::GetOverConsolidationRatio(LayerLookup(*this), layer); }
double Terrix::GetAPIJFactor(const Layer& layer) const { return PerLayer::GetAPIJFactor(LayerLookup(*this), layer); }
bool Terrix::GetOpenGap(const Layer& layer) const { return PerLayer::GetOpenGap(LayerLookup(*this), layer); }
double Terrix::GetRPRatio(const Layer& layer) const { return PerLayer::GetRPRatio(LayerLookup(*this), layer); }
Quantity<LengthPhenomenon> Terrix::GetTZCurveZDisplacement(const Layer& layer) const { return PerLayer::GetTZCurveZDisplacement(LayerLookup(*this), layer); }
Quantity<ForcePerUnitVolumePhenomenon> Terrix::GetLayerUnitWeight(const Layer& layer) const { return PerLayer::GetLayerUnitWeight(LayerLookup(*this), layer); }
boost::optional<Quantity<ForcePerUnitVolumePhenomenon>> Terrix::GetInitialModulus(const Layer& layer) const { return PerLayer::GetInitialModulus(LayerLookup(*this), layer); }
boost::optional<Quantity<ForcePerUnitAreaPhenomenon>> Terrix::GetInitialSoilShearModulus(const Layer& layer) const { return PerLayer::GetInitialSoilShearModulus(LayerLookup(*this), layer); }
boost::optional<double> Terrix::GetDSDiameterRatio(const Layer& layer) const { return PerLayer::GetDSDiameterRatio(LayerLookup(*this), layer); }
boost::optional<double> Terrix::GetPoissonRatio(const Layer& layer) const { return PerLayer::GetPoissonRatio(LayerLookup(*this), layer); }
boost::optional<double> Terrix::GetDTDiameterRatio(const Layer& layer) const { return PerLayer::GetDTDiameterRatio(LayerLookup(*this), layer); }
Terrix::StressByLevel Terrix::GetSUz(const Layer& layer) const { return PerLayer::GetSUz(LayerLookup(*this), layer); }
Terrix::StressByLevel Terrix::GetSkinCompression(const Layer& layer) const { return PerLayer::GetSkinCompression(LayerLookup(*this), layer); }
Terrix::StressByLevel Terrix::GetSkinTension(const Layer& layer) const { return PerLayer::GetSkinTension(LayerLookup(*this), layer); }
Terrix::StressByLevel Terrix::GetTipResistance(const Layer& layer) const { return PerLayer::GetTipResistance(LayerLookup(*this), layer); }
PyData Terrix::GetPyData(const Layer& layer) const { return PerLayer::GetPyData(LayerLookup(*this), layer); }
TzData Terrix::GetTzData(const Layer& layer) const { return PerLayer::GetTzData(LayerLookup(*this), layer); }
QzData Terrix::GetQzData(const Layer& layer) const { return PerLayer::GetQzData(LayerLookup(*this), layer); }
MThetaData Terrix::GetMthetaData(const Layer& layer) const { return PerLayer::GetMthetaData(LayerLookup(*this), layer); }
BSYData Terrix::GetBSyData(const Layer& layer) const { return PerLayer::GetBSyData(LayerLookup(*this), layer); }
BMThetaData Terrix::GetBMthetaData(const Layer& layer) const { return PerLayer::GetBMthetaData(LayerLookup(*this), layer); }

}  // namespace TerrixExchange
