#pragma once

// Where the per-layer queries find the records of a layer.
//
// Every lookup of the format takes the first record in file order that
// matches, and queries never cache: a getter asked about one layer scans the
// sections afresh. A call that asks about many layers at once (the layering,
// ForEachLayerAnswer) would then scan every section once per layer, which
// grows with the square of the profile. Such a call builds a LayerLookup
// over the layers it will ask about instead: the sections are indexed once,
// for that call only, and every lookup finds the very record the scan would.
// The answers are the same either way; only the time differs.
//
// A lookup refers to its profile and to the sections' records: it is valid
// while the profile is, unchanged.

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

class LayerLookup {
public:
    // Scans the sections at every lookup.
    explicit LayerLookup(const Terrix& profile);
    // Indexes the sections for the soil type, main layer and numbered layer
    // of each of `layers`. A layer outside them is still found, by a scan.
    LayerLookup(const Terrix& profile, const std::vector<Layer>& layers);
    LayerLookup(LayerLookup&&) noexcept;
    ~LayerLookup();

    const Terrix& GetProfile() const { return *profile_; }

    // What `section.FindLayer(layer)` gives, for a section of the profile.
    SoilTypeAndPropertySection::const_iterator Find(const SoilTypeAndPropertySection& section,
                                                    const Layer& layer) const;
    SoilMainLayersAndPropertiesSection::const_iterator Find(const SoilMainLayersAndPropertiesSection& section,
                                                            const Layer& layer) const;
    SoilLayerDivisionsAndCodesForPyTzQzSection::const_iterator Find(
        const SoilLayerDivisionsAndCodesForPyTzQzSection& section, const Layer& layer) const;
    MainLayersSubdivisionAndPyTzQzCodesSection::const_iterator Find(
        const MainLayersSubdivisionAndPyTzQzCodesSection& section, const Layer& layer) const;
    SkinFrictionAndTipResistanceSectionV5::const_iterator Find(const SkinFrictionAndTipResistanceSectionV5& section,
                                                               const Layer& layer) const;

    // What `section.EqualRange(layer)` gives, for the profile's level rows.
    std::pair<SkinFrictionAndTipResistanceSectionV4::const_iterator,
              SkinFrictionAndTipResistanceSectionV4::const_iterator>
    EqualRange(const SkinFrictionAndTipResistanceSectionV4& section, const Layer& layer) const;

    // The first manual curve of each diameter given for the layer's first
    // numbered layer, as `section.FindRecordsOfLayer` finds them; empty when the
    // section has none for it.
    template <class Kind>
    typename BasicManualCurveSection<Kind>::RecordsOfLayer ManualCurves(const BasicManualCurveSection<Kind>& section,
                                                                        const Layer& layer) const;

    // What `section.FindFirstRows` gives for the layer's first numbered
    // layer at each of the profile's pile diameters.
    template <class Kind>
    std::vector<const BasicModificationSectionRecord<Kind>*> FirstModificationRows(
        const BasicModificationSection<Kind>& section, const Layer& layer) const;

private:
    struct Index;

    // Whether lookups in `section` go through the index: only in the
    // profile's own sections.
    template <class Section>
    bool IsIndexed(const Section& section, Section TerrixInputData::*member) const {
        return index_ != nullptr && &section == &(profile_->GetTerrixInputData().*member);
    }

    const Terrix* profile_;
    std::unique_ptr<Index> index_;  // null: every lookup scans
};

}  // namespace TerrixExchange

namespace TerrixExchange {

// The per-layer queries of Terrix, asked through a lookup:
// `profile.GetPhi(layer)` is `PerLayer::GetPhi(LayerLookup(profile), layer)`.
// ForEachLayerAnswer (NamedQueries.h) asks them of many layers through one
// index.
namespace PerLayer {

using namespace Units::Runtime;

Terrix::SoilType GetSoilType(const LayerLookup& lookup, const Layer& layer);
Quantity<AnglePhenomenon> GetPhi(const LayerLookup& lookup, const Layer& layer);
double GetEpsc(const LayerLookup& lookup, const Layer& layer);
boost::optional<double> GetOverConsolidationRatio(const LayerLookup& lookup, const Layer& layer);
double GetAPIJFactor(const LayerLookup& lookup, const Layer& layer);
bool GetOpenGap(const LayerLookup& lookup, const Layer& layer);
double GetRPRatio(const LayerLookup& lookup, const Layer& layer);
Quantity<LengthPhenomenon> GetTZCurveZDisplacement(const LayerLookup& lookup, const Layer& layer);
Quantity<ForcePerUnitVolumePhenomenon> GetLayerUnitWeight(const LayerLookup& lookup, const Layer& layer);
boost::optional<Quantity<ForcePerUnitVolumePhenomenon>> GetInitialModulus(const LayerLookup& lookup,
                                                                          const Layer& layer);
boost::optional<Quantity<ForcePerUnitAreaPhenomenon>> GetInitialSoilShearModulus(const LayerLookup& lookup,
                                                                                 const Layer& layer);
boost::optional<double> GetDSDiameterRatio(const LayerLookup& lookup, const Layer& layer);
boost::optional<double> GetPoissonRatio(const LayerLookup& lookup, const Layer& layer);
boost::optional<double> GetDTDiameterRatio(const LayerLookup& lookup, const Layer& layer);
Terrix::StressByLevel GetSUz(const LayerLookup& lookup, const Layer& layer);
Terrix::StressByLevel GetSkinCompression(const LayerLookup& lookup, const Layer& layer);
Terrix::StressByLevel GetSkinTension(const LayerLookup& lookup, const Layer& layer);
Terrix::StressByLevel GetTipResistance(const LayerLookup& lookup, const Layer& layer);
PyData GetPyData(const LayerLookup& lookup, const Layer& layer);
TzData GetTzData(const LayerLookup& lookup, const Layer& layer);
QzData GetQzData(const LayerLookup& lookup, const Layer& layer);
MThetaData GetMthetaData(const LayerLookup& lookup, const Layer& layer);
BSYData GetBSyData(const LayerLookup& lookup, const Layer& layer);
BMThetaData GetBMthetaData(const LayerLookup& lookup, const Layer& layer);

}  // namespace PerLayer
}  // namespace TerrixExchange
