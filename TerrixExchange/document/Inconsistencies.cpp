// Whether a profile reads back as it is written. Most tables of the file
// hold no count of their own: the control section's counts (and the layer
// codes times the pile diameters) say how many records follow, and the two
// value lines of a curve share one count. An export writes what the profile
// holds, so a host that adds a soil type without raising NUMTYP writes a
// file that reads another profile back, or none. These checks name every
// such disagreement before anything is written.

#include <string>
#include <vector>

#include <TerrixExchange/document/TableCounts.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

namespace TerrixExchange {

namespace {

// "1 record", "2 records".
std::string Counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string Quoted(const std::string& title) { return "'" + title + "'"; }

// A count of the control section against the records of the table it sizes.
template <class Table>
void CheckCount(std::vector<std::string>& messages, const char* name, long long count, const Table& table,
                const std::string& title) {
    if (RecordCount(count) != table.records.size())
        messages.push_back(std::string(name) + " is " + std::to_string(count) + " but " + Quoted(title) + " holds " +
                           Counted(table.records.size(), "record"));
}

// The manual curves of a kind against the number the profile reads.
template <class Section>
void CheckManualCurves(std::vector<std::string>& messages, const Section& section, std::size_t expected,
                       const std::string& kind) {
    if (section.records.size() != expected)
        messages.push_back(Quoted(section.GetTitle()) + " holds " + Counted(section.records.size(), "curve") +
                           " but is read with " + std::to_string(expected) + ": one per manual " + kind +
                           " layer and pile diameter");
}

// Both value lines of every curve of a section hold the same number of values.
template <class Section>
void CheckCurvePoints(std::vector<std::string>& messages, const Section& section) {
    for (std::size_t i = 0; i < section.records.size(); ++i) {
        const auto& record = section.records[i];
        if (record.resistances.size() != record.displacements.size())
            messages.push_back("Curve " + std::to_string(i + 1) + " of " + Quoted(section.GetTitle()) + " has " +
                               Counted(record.resistances.size(), "value") + " on its first line but " +
                               std::to_string(record.displacements.size()) + " on its second");
    }
}

// An optional kind of curve (M-theta, BS-Y, BM-theta): its two sections are
// written only when the control section gives their count.
template <class Manual, class Modifications>
void CheckOptionalCurves(std::vector<std::string>& messages, const char* name, const boost::optional<int>& count,
                         const Manual& manual, const Modifications& modifications) {
    if (count) {
        CheckCount(messages, name, *count, manual, manual.GetTitle());
        return;
    }
    if (!manual.records.empty())
        messages.push_back(Quoted(manual.GetTitle()) + " holds " + Counted(manual.records.size(), "curve") + " but " +
                           name + " is not given: they are not written");
    if (!modifications.records.empty())
        messages.push_back(Quoted(modifications.GetTitle()) + " holds " + Counted(modifications.records.size(), "row") +
                           " but " + name + " is not given: they are not written");
}

// The version 4 divisions are read while they cover fewer layers than
// NUMLAY: all of them must be read, and no more.
void CheckDivisions(std::vector<std::string>& messages, const ControlSection& control,
                    const SoilLayerDivisionsAndCodesForPyTzQzSection& divisions) {
    const std::size_t layers = RecordCount(control.NUMLAY);
    const std::size_t held = divisions.records.size();
    std::size_t read = 0;
    std::size_t covered = 0;
    while (read < held && covered < layers) covered += divisions.records[read++].GetSublayerCount();
    const std::string name = "NUMLAY is " + std::to_string(control.NUMLAY);
    if (covered < layers)
        messages.push_back(name + " but the divisions of 'SOIL LAYER DIV ...' cover " + Counted(covered, "layer"));
    else if (read < held)
        messages.push_back(name + " but the first " + std::to_string(read) + " of the " + std::to_string(held) +
                           " divisions of 'SOIL LAYER DIV ...' cover it: the others are not read back");
}

}  // namespace

std::vector<std::string> Terrix::FindInconsistencies() const {
    std::vector<std::string> messages;
    const TerrixInputData& data = inputData_;
    const ControlSection& control = data.controlSection;
    if (version_ != Version::V4 && version_ != Version::V5) {
        messages.push_back("The version is neither 4 nor 5: no section is written");
        return messages;
    }
    if (control.version != version_)
        messages.push_back("The control section is of version " + std::to_string(static_cast<int>(control.version)) +
                           " but the profile of version " + std::to_string(static_cast<int>(version_)));
    if (version_ == Version::V5 && control.profileName.find_first_of("\r\n") != std::string::npos)
        messages.push_back("The profile name holds a line break");

    if (version_ == Version::V4) {
        CheckCount(messages, "NUMTYP", control.NUMTYP, data.soilTypeAndPropertySection, "SOIL TYPE AND PROPERTY SECTION");
        CheckCount(messages, "NUMTQZ", control.NUMTQZ, data.skinFrictionAndTipResistanceSectionV4,
                   "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION");
        CheckDivisions(messages, control, data.soilLayerDivisionsAndCodesForPyTzQzSection);
    } else {
        const SoilMainLayersAndPropertiesSection& mainLayers = data.soilMainLayersAndPropertiesSection;
        CheckCount(messages, "NUMLAYM", control.NUMLAYM, mainLayers, "SOIL MAIN LAYERS AND PROPERTIES SECTION");
        CheckCount(messages, "NUMLAYM", control.NUMLAYM, data.skinFrictionAndTipResistanceSectionV5,
                   "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION");
        CheckCount(messages, "NUMLAYM", control.NUMLAYM, data.mainLayersSubdivisionAndPyTzQzCodesSection,
                   "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION");
        if (mainLayers.layoutRevision == static_cast<int>(Revision::WithoutAK))
            for (const SoilMainLayersAndPropertiesSectionRecord& record : mainLayers.records)
                if (record.AK != 0.0)
                    messages.push_back("'SOIL MAIN LAYERS AND PROPERTIES SECTION' is laid out without AK, but main "
                                       "layer " + std::to_string(record.MAIN) + " holds an AK: it is not written");
    }

    const ManualCurveCounts manual = CountManualCurves(data, version_);
    CheckManualCurves(messages, data.manualPyLateralResistanceDataSection, manual.py, "P-Y");
    CheckManualCurves(messages, data.manualTzSkinFrictionDataSection, manual.tz, "T-Z");
    CheckManualCurves(messages, data.manualQzPileTipResistanceDataSection, manual.qz, "Q-Z");
    CheckOptionalCurves(messages, "NUMDM", control.NUMDM, data.manualMthetaMomentDataSection,
                        data.mthetaMomentDataModificationSection);
    CheckOptionalCurves(messages, "NUMBS", control.NUMBS, data.manualBSYBaseShearDataSection,
                        data.bsyBaseShearDataModificationSection);
    CheckOptionalCurves(messages, "NUMBM", control.NUMBM, data.manualBMthetaMomentDataSection,
                        data.bmThetaMomentDataModificationSection);
    CheckCurvePoints(messages, data.manualPyLateralResistanceDataSection);
    CheckCurvePoints(messages, data.manualTzSkinFrictionDataSection);
    CheckCurvePoints(messages, data.manualQzPileTipResistanceDataSection);
    CheckCurvePoints(messages, data.manualMthetaMomentDataSection);
    CheckCurvePoints(messages, data.manualBSYBaseShearDataSection);
    CheckCurvePoints(messages, data.manualBMthetaMomentDataSection);

    const LoadsAtSoilSurfaceSection& loads = data.loadsAtSoilSurfaceSection;
    if (loads.pointForces.size() != loads.distances.size())
        messages.push_back("'LOADS AT SOIL SURFACE SECTION' holds " + Counted(loads.pointForces.size(), "point force") +
                           " but " + Counted(loads.distances.size(), "distance"));
    CheckCount(messages, "NUMDSP", control.NUMDSP, data.givenSoilDisplacementsAndOpenHoleSection,
               "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION");
    return messages;
}

std::vector<std::string> TerrixMultipleSoilProfiles::FindInconsistencies() const {
    std::vector<std::string> problems;
    for (std::size_t i = 0; i < profiles_.size(); ++i)
        for (const std::string& problem : profiles_[i].FindInconsistencies())
            problems.push_back("profile #" + std::to_string(i) + ": " + problem);
    return problems;
}

void TerrixMultipleSoilProfiles::CheckConsistency() const {
    std::string message = "The profiles would not read back as they are:";
    const std::vector<std::string> problems = FindInconsistencies();
    for (const std::string& problem : problems) message += "\n" + problem;
    if (!problems.empty()) throw InconsistentProfilesError(message);
}

}  // namespace TerrixExchange
