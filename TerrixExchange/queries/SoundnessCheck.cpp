#include <TerrixExchange/queries/SoundnessCheck.h>

#include <cmath>
#include <cstdio>
#include <exception>

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/queries/LayerDivisionCheck.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

namespace TerrixExchange {

namespace {

using Units::Runtime::LengthPhenomenon;
using Length = Units::Runtime::Quantity<LengthPhenomenon>;

class Findings {
public:
    Findings(const Terrix& profile, const SourceLines& lines) : profile_(profile), lines_(lines) {}

    void Error(std::uint64_t line, const std::string& text) {
        found_.push_back({line, SoundnessFinding::Severity::Error, text});
    }
    void Warning(std::uint64_t line, const std::string& text) {
        found_.push_back({line, SoundnessFinding::Severity::Warning, text});
    }

    // A length of the profile as the file writes it: "12.5".
    std::string InFile(const Length& value) const {
        const double size = profile_.GetUnitSystem().ConvertFromUnitSystem(1.0, LengthPhenomenon::dimension);
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", value.GetValue() / size);
        return text;
    }

    std::uint64_t Row(const std::string& title, std::size_t row) const { return lines_.GetRowLine(title, row); }
    std::uint64_t Section(const std::string& title) const { return lines_.GetSectionLine(title); }
    std::uint64_t Parameter(const std::string& title, const std::string& name) const {
        const std::uint64_t line = lines_.GetParameterLine(title, name);
        return line != 0 ? line : Section(title);
    }

    std::vector<SoundnessFinding> Take() { return std::move(found_); }

private:
    const Terrix& profile_;
    const SourceLines& lines_;
    std::vector<SoundnessFinding> found_;
};

const char* const controlTitle = "CONTROL SECTION";
const char* const divisionTitle = "SOIL LAYER DIV ...";
const char* const skinFrictionTitle = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";
const char* const subdivisionTitle = "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION";
const char* const mainLayersTitle = "SOIL MAIN LAYERS AND PROPERTIES SECTION";
const char* const diametersTitle = "PILE DIAMETERS AND GROUP EFFECTS SECTION";

// "NUMLAYM is 3 but ...": a count of the control section names itself first.
void CheckCounts(const Terrix& profile, Findings& findings) {
    for (const std::string& problem : profile.FindInconsistencies()) {
        const std::string name = problem.substr(0, problem.find(' '));
        findings.Error(findings.Parameter(controlTitle, name), problem);
    }
}

// A file names no units: its unit weight of water and atmospheric pressure
// tell them, and a file read without units given is read in those. Read in
// other units, every value means something else than its writer meant. (Two
// unit pairs never both fit: the nearest two candidates of a unit differ by
// a factor of more than two, against a tolerance of 5 per cent.)
void CheckUnits(const Terrix& profile, Findings& findings) {
    using namespace Units::Runtime;
    const UnitSystem& units = profile.GetUnitSystem();
    const FastUnitConverter toFile(GetDatabaseUnitSystem(), units);
    const ControlSection& control = profile.GetTerrixInputData().controlSection;
    const double waterUnitWeight = toFile.Convert(control.GAMMAW.GetValue(), ForcePerUnitVolumePhenomenon::dimension);
    const double pressure = toFile.Convert(control.ATMPRS.GetValue(), StressPhenomenon::dimension);
    char values[96];
    std::snprintf(values, sizeof values, "GAMMAW %.6g and ATMPRS %.6g", waterUnitWeight, pressure);
    const std::string read = units.GetForceUnitName() + " " + units.GetLengthUnitName();
    std::string force;
    std::string length;
    if (!Terrix::TryDeduceUnits(Quantity<ForcePerUnitVolumePhenomenon>(waterUnitWeight),
                                Quantity<StressPhenomenon>(pressure), force, length))
        findings.Warning(findings.Parameter(controlTitle, "GAMMAW"),
                         std::string(values) + " fit no units: the units the file was read in, " + read +
                             ", cannot be confirmed");
    else if (force + " " + length != read)
        findings.Warning(findings.Parameter(controlTitle, "GAMMAW"),
                         std::string(values) + " are those of " + force + " " + length +
                             ", not of the units the file was read in, " + read);
}

// Version 4 numbers its layers from 1 down; the divisions must take them in
// turn, each from the layer after the last one of the division above.
void CheckDivisions(const Terrix& profile, const SourceLines& lines, Findings& findings) {
    const auto& divisions = profile.GetTerrixInputData().soilLayerDivisionsAndCodesForPyTzQzSection.records;
    long long next = 1;
    std::uint64_t covered = 0;
    for (std::size_t i = 0; i < divisions.size(); ++i) {
        const auto& division = divisions[i];
        const std::uint64_t line = findings.Row(divisionTitle, i);
        const std::string name =
            "layer division " + std::to_string(division.LAYER1) + " " + std::to_string(division.LAYER2);
        if (division.LAYER2 < division.LAYER1) {
            // It names the layers LAYER2 to LAYER1, the wrong way round.
            findings.Error(line, name + " runs backwards: LAYER2 is less than LAYER1");
            next = static_cast<long long>(division.LAYER1) + 1;
            continue;
        }
        if (division.LAYER1 > next)
            findings.Error(line, name + " leaves a gap: " +
                                     (division.LAYER1 - 1 == next ? "layer " + std::to_string(next) + " has"
                                                                  : "layers " + std::to_string(next) + " to " +
                                                                        std::to_string(division.LAYER1 - 1) + " have") +
                                     " no division");
        else if (division.LAYER1 < next)
            findings.Error(line, name + " overlaps the divisions above it, which end at layer " +
                                     std::to_string(next - 1));
        next = static_cast<long long>(division.LAYER2) + 1;
        covered += division.GetSublayerCount();
    }
    // The import reads divisions until they cover NUMLAY layers; the last
    // may cover more, which the count then does not tell. (Fewer is a count
    // that disagrees with its table, found above.)
    const int count = profile.GetTerrixInputData().controlSection.NUMLAY;
    if (!divisions.empty() && count >= 0 && covered > static_cast<std::uint64_t>(count) &&
        !FindLayerDivisionError(profile, lines))
        findings.Error(findings.Parameter(controlTitle, "NUMLAY"), "NUMLAY is " + std::to_string(count) +
                                                                       " but the layer divisions cover " +
                                                                       std::to_string(covered) + " layers");
}

// Levels grow downwards: each layer's bottom lies below its top, the
// soil surface for the first layer and the bottom above for the others.
template <class Records>
void CheckBottoms(const Records& records, const char* title, Findings& findings, const Length& surface) {
    Length top = surface;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const Length bottom = records[i].ZBOTM;
        if (!(top < bottom))
            findings.Error(findings.Row(title, i), "ZBOTM " + findings.InFile(bottom) +
                                                       " is not below the top of its layer, " +
                                                       findings.InFile(top) + (i == 0 ? " (ZSURF)" : ""));
        if (top < bottom) top = bottom;
    }
}

void CheckLevels(const Terrix& profile, Findings& findings) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    const Length surface(data.soilSurfaceAndGroundWaterSection.ZSURF);
    if (profile.GetVersion() == Version::V4) {
        CheckBottoms(data.soilLayerDivisionsAndCodesForPyTzQzSection.records, divisionTitle, findings, surface);
        const auto& rows = data.skinFrictionAndTipResistanceSectionV4.records;
        for (std::size_t i = 1; i < rows.size(); ++i)
            if (!(rows[i - 1].ZLEV < rows[i].ZLEV))
                findings.Warning(findings.Row(skinFrictionTitle, i),
                                 "level row ZLEV " + findings.InFile(rows[i].ZLEV) +
                                     " is not below the row above it, " + findings.InFile(rows[i - 1].ZLEV) +
                                     ": the rows are out of depth order and lookups follow file order");
    } else if (profile.GetVersion() == Version::V5) {
        CheckBottoms(data.soilMainLayersAndPropertiesSection.records, mainLayersTitle, findings, surface);
        CheckBottoms(data.mainLayersSubdivisionAndPyTzQzCodesSection.records, subdivisionTitle, findings, surface);
    }
}

void CheckDiameters(const Terrix& profile, Findings& findings) {
    const auto& diameters = profile.GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters;
    for (std::size_t i = 1; i < diameters.size(); ++i)
        if (!(diameters[i - 1] < diameters[i]))
            findings.Error(findings.Parameter(diametersTitle, "diameters"),
                           "pile diameter " + std::to_string(i + 1) + ", " + findings.InFile(diameters[i]) +
                               ", is not larger than the one before it, " + findings.InFile(diameters[i - 1]));
}

template <class Section>
void CheckCurveSection(const Section& section, Findings& findings) {
    for (std::size_t i = 0; i < section.records.size(); ++i) {
        const auto& displacements = section.records[i].displacements;
        for (std::size_t point = 1; point < displacements.size(); ++point)
            if (!(displacements[point] > displacements[point - 1])) {
                findings.Error(findings.Row(section.GetTitle(), i),
                               "manual curve of layer " + std::to_string(section.records[i].LAY) + ", diameter " +
                                   findings.InFile(section.records[i].DIAM) + ": displacement " +
                                   std::to_string(point + 1) + " is not larger than the one before it");
                break;
            }
    }
}

void CheckCurves(const Terrix& profile, Findings& findings) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    CheckCurveSection(data.manualPyLateralResistanceDataSection, findings);
    CheckCurveSection(data.manualTzSkinFrictionDataSection, findings);
    CheckCurveSection(data.manualQzPileTipResistanceDataSection, findings);
    if (profile.GetVersion() == Version::V4) {
        CheckCurveSection(data.manualMthetaMomentDataSection, findings);
        CheckCurveSection(data.manualBSYBaseShearDataSection, findings);
        CheckCurveSection(data.manualBMthetaMomentDataSection, findings);
    }
}

// A curve query that fails for want of a modification row: the finding
// stands at the modification section (or, when the file has none, at the
// layer's own row).
void CheckModifications(const Terrix& profile, const SourceLines& lines, Findings& findings) {
    // Divisions that cannot be split are told by CheckDivisions; asking
    // for their layers could take for ever.
    if (FindLayerDivisionError(profile, lines)) return;
    std::vector<Layer> layers;
    try {
        layers = profile.GetLayers(false);
    } catch (const std::exception&) {
        return;  // told by the other checks
    }
    const bool isVersion5 = profile.GetVersion() == Version::V5;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const Layer& layer = layers[i];
        auto ask = [&](const char* title, auto query) {
            try {
                query();
            } catch (const std::exception& error) {
                const std::string message = error.what();
                if (message.find("modifications") == std::string::npos) return;
                const std::uint64_t line = findings.Section(title);
                const std::string layerName =
                    layer.layerCount <= 1 ? "layer " + std::to_string(layer.firstLayer)
                                          : "layers " + std::to_string(layer.firstLayer) + "-" +
                                                std::to_string(layer.firstLayer + layer.layerCount - 1);
                findings.Error(line != 0 ? line : findings.Row(isVersion5 ? subdivisionTitle : divisionTitle, i),
                               layerName + ": " + message + ": no row covers the layer at every pile diameter");
            }
        };
        ask("P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION", [&] { profile.GetPyData(layer); });
        ask("T-Z (SKIN FRICTION) DATA MODIFICATION SECTION", [&] { profile.GetTzData(layer); });
        ask("Q-Z (PILE TIP RESISTANCE) DATA MODIFICATION SECTION", [&] { profile.GetQzData(layer); });
    }
}

bool IsNotFinite(const Json& value) {
    if (value.is_number_float()) return !std::isfinite(value.get<double>());
    if (value.is_array())
        for (const Json& item : value)
            if (IsNotFinite(item)) return true;
    return false;
}

// Any value of any section, walked as the sections describe themselves.
void CheckNumbers(const Terrix& profile, Findings& findings) {
    const Json sections = DescribeSections(profile);
    for (const auto& [title, section] : sections.items()) {
        for (const auto& [name, value] : section.items()) {
            if (name == "records") {
                for (std::size_t row = 0; row < value.size(); ++row)
                    for (const auto& [column, cell] : value[row].items())
                        if (IsNotFinite(cell))
                            findings.Error(findings.Row(title, row),
                                           title + ", column " + column + ": a value is not a finite number");
            } else if (IsNotFinite(value)) {
                findings.Error(findings.Parameter(title, name), title + ", " + name + ": not a finite number");
            }
        }
    }
}

}  // namespace

std::vector<SoundnessFinding> FindUnsoundValues(const Terrix& profile, const SourceLines& lines) {
    Findings findings(profile, lines);
    CheckCounts(profile, findings);
    CheckUnits(profile, findings);
    if (profile.GetVersion() == Version::V4) CheckDivisions(profile, lines, findings);
    CheckLevels(profile, findings);
    CheckDiameters(profile, findings);
    CheckCurves(profile, findings);
    CheckModifications(profile, lines, findings);
    CheckNumbers(profile, findings);
    return findings.Take();
}

}  // namespace TerrixExchange
