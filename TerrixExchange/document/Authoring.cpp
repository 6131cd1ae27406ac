// What a host needs to make and edit a profile rather than read one: a new
// profile to start from, and the counts of the control section set from the
// tables they size.

#include <climits>

#include <TerrixExchange/document/TableCounts.h>
#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

namespace {

int CountOf(std::size_t records) { return records > INT_MAX ? INT_MAX : static_cast<int>(records); }

// An optional kind of curve (M-theta, BS-Y, BM-theta) is given, with the
// number of its manual curves, whenever either of its sections holds rows.
template <class Manual, class Modifications>
void SetOptionalCount(boost::optional<int>& count, const Manual& manual, const Modifications& modifications) {
    if (count || !manual.records.empty() || !modifications.records.empty()) count = CountOf(manual.records.size());
}

// One row "0 0 0.0" of the identity factors: every layer, every diameter.
template <class Section>
void CoverEveryLayer(Section& section) {
    section.records.assign(1, typename Section::Record());
}

}  // namespace

Terrix Terrix::MakeNew(Version version, const Units::Runtime::UnitSystem& units, const std::string& name) {
    Terrix profile(version, Revision::Unsettled);
    profile.unitSystem_ = units;
    TerrixInputData& data = profile.inputData_;
    ControlSection& control = data.controlSection;
    if (version == Version::V5) control.profileName = name;
    // No conversion of old units; the unit weight of sea water and the
    // atmospheric pressure (the defaults), from which the units deduce.
    control.CONFRC = 1.0;
    control.CONLTH = 1.0;
    // Every optional section there, without curves yet.
    control.NUMDM = 0;
    control.NUMBS = 0;
    control.NUMBM = 0;
    CoverEveryLayer(data.pyLateralResistanceDataModificationSection);
    CoverEveryLayer(data.tzSkinFrictionDataModificationSection);
    CoverEveryLayer(data.qzPileTipResistanceDataModificationSection);
    CoverEveryLayer(data.mthetaMomentDataModificationSection);
    CoverEveryLayer(data.bsyBaseShearDataModificationSection);
    CoverEveryLayer(data.bmThetaMomentDataModificationSection);
    return profile;
}

void Terrix::SetCountsFromTables() {
    TerrixInputData& data = inputData_;
    ControlSection& control = data.controlSection;
    if (version_ == Version::V4) {
        control.NUMTYP = CountOf(data.soilTypeAndPropertySection.records.size());
        control.NUMTQZ = CountOf(data.skinFrictionAndTipResistanceSectionV4.records.size());
        // The divisions are read until they cover NUMLAY layers, and the last
        // may cover more: a NUMLAY that reads every division, and no more, is
        // kept; another becomes the number of layers they cover. Divisions
        // that run backwards cover no count an int holds, and are left to
        // FindInconsistencies.
        const std::vector<SoilLayerDivisionsAndCodesForPyTzQzSectionRecord>& divisions =
            data.soilLayerDivisionsAndCodesForPyTzQzSection.records;
        std::size_t beforeLast = 0;
        for (std::size_t i = 0; i + 1 < divisions.size(); ++i) beforeLast += divisions[i].GetSublayerCount();
        const std::size_t layers = data.soilLayerDivisionsAndCodesForPyTzQzSection.GetLayerCount();
        const std::size_t given = RecordCount(control.NUMLAY);
        const bool readsEveryDivision = divisions.empty() ? given == 0 : beforeLast < given && given <= layers;
        if (!readsEveryDivision && layers <= INT_MAX) control.NUMLAY = static_cast<int>(layers);
    } else if (version_ == Version::V5) {
        control.NUMLAYM = CountOf(data.soilMainLayersAndPropertiesSection.records.size());
    }
    control.NUMDSP = CountOf(data.givenSoilDisplacementsAndOpenHoleSection.records.size());
    SetOptionalCount(control.NUMDM, data.manualMthetaMomentDataSection, data.mthetaMomentDataModificationSection);
    SetOptionalCount(control.NUMBS, data.manualBSYBaseShearDataSection, data.bsyBaseShearDataModificationSection);
    SetOptionalCount(control.NUMBM, data.manualBMthetaMomentDataSection, data.bmThetaMomentDataModificationSection);
}

}  // namespace TerrixExchange
