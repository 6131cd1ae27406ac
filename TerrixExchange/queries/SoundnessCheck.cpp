#include <TerrixExchange/queries/SoundnessCheck.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include <boost/optional.hpp>

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/queries/LayerDivisionCheck.h>
#include <TerrixExchange/queries/LayerLookup.h>
#include <TerrixExchange/queries/NamedQueries.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

namespace TerrixExchange {

namespace {

using Units::Runtime::LengthPhenomenon;
using Length = Units::Runtime::Quantity<LengthPhenomenon>;

const Mending noMending{Mending::Kind::None, "", 0, 0, 0};

// The counts of the control section that size a table, by name.
template <class Visit>
bool WithCount(ControlSection& control, const std::string& name, Visit visit) {
    if (name == "NUMTYP") visit(control.NUMTYP);
    else if (name == "NUMTQZ") visit(control.NUMTQZ);
    else if (name == "NUMLAY") visit(control.NUMLAY);
    else if (name == "NUMLAYM") visit(control.NUMLAYM);
    else if (name == "NUMDSP") visit(control.NUMDSP);
    else if (name == "NUMDM") visit(control.NUMDM);
    else if (name == "NUMBS") visit(control.NUMBS);
    else if (name == "NUMBM") visit(control.NUMBM);
    else return false;
    return true;
}

long long CountValue(int count) { return count; }
long long CountValue(const boost::optional<int>& count) { return count ? *count : -1; }

// The modification sections whose uncovered layers fail a query, by title.
template <class Visit>
bool WithModificationSection(TerrixInputData& data, const std::string& title, Visit visit) {
    if (title == data.pyLateralResistanceDataModificationSection.GetTitle())
        visit(data.pyLateralResistanceDataModificationSection);
    else if (title == data.tzSkinFrictionDataModificationSection.GetTitle())
        visit(data.tzSkinFrictionDataModificationSection);
    else if (title == data.qzPileTipResistanceDataModificationSection.GetTitle())
        visit(data.qzPileTipResistanceDataModificationSection);
    else return false;
    return true;
}

class Findings {
public:
    Findings(const Terrix& profile, const SourceLines& lines) : profile_(profile), lines_(lines) {}

    void Error(std::uint64_t line, const std::string& text, const Mending& mending = noMending) {
        found_.push_back({line, SoundnessFinding::Severity::Error, text, mending});
    }
    void Warning(std::uint64_t line, const std::string& text) {
        found_.push_back({line, SoundnessFinding::Severity::Warning, text, noMending});
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

    std::size_t ErrorCount() const {
        return static_cast<std::size_t>(std::count_if(found_.begin(), found_.end(), [](const SoundnessFinding& found) {
            return found.severity == SoundnessFinding::Severity::Error;
        }));
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
// Setting the counts from the tables mends it when the disagreement is then
// gone (a count of three tables that disagree among themselves stays).
void CheckCounts(const Terrix& profile, Findings& findings) {
    const std::vector<std::string> problems = profile.FindInconsistencies();
    if (problems.empty()) return;
    Terrix counted(profile);
    counted.SetCountsFromTables();
    const std::vector<std::string> left = counted.FindInconsistencies();
    for (const std::string& problem : problems) {
        const std::string name = problem.substr(0, problem.find(' '));
        Mending mending = noMending;
        const bool isCount = WithCount(counted.GetTerrixInputData().controlSection, name, [&](const auto& count) {
            mending = Mending{Mending::Kind::SetCount, name, CountValue(count), 0, 0};
        });
        if (!isCount || std::find(left.begin(), left.end(), problem) != left.end()) mending = noMending;
        findings.Error(findings.Parameter(controlTitle, name), problem, mending);
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
        findings.Error(findings.Parameter(controlTitle, "NUMLAY"),
                       "NUMLAY is " + std::to_string(count) + " but the layer divisions cover " +
                           std::to_string(covered) + " layers",
                       Mending{Mending::Kind::SetCount, "NUMLAY", static_cast<long long>(covered), 0, 0});
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

// "layer 7", "layers 3-5".
std::string LayersName(std::int64_t first, std::int64_t last) {
    return first == last ? "layer " + std::to_string(first)
                         : "layers " + std::to_string(first) + "-" + std::to_string(last);
}

// The findings of the numbered layers of one layer division, joined where
// neighbours have the same: "layers 3-5, diameter 2.134: ...".
class LayerFindings {
public:
    explicit LayerFindings(Findings& findings) : findings_(findings) {}

    // `uncoveredBy`: the title of the modification section that no row of
    // covers the layer, if that is the finding.
    void Add(std::int64_t layer, std::uint64_t line, const std::string& text, const std::string& uncoveredBy = "") {
        for (Run& run : runs_)
            if (run.line == line && run.text == text && run.last + 1 == layer) {
                run.last = layer;
                return;
            }
        runs_.push_back({layer, layer, line, text, uncoveredBy});
    }

    // Ends the division: its findings go out in the order they came, "{it}"
    // and "{its}" of their texts said of one layer or of several.
    void Flush() {
        for (const Run& run : runs_) {
            std::string text = run.text;
            const bool one = run.first == run.last;
            for (const auto& [word, said] : {std::pair<std::string, std::string>("{it}", one ? "it" : "them"),
                                             std::pair<std::string, std::string>("{its}", one ? "its" : "their")})
                for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at))
                    text.replace(at, word.size(), said);
            const Mending mending =
                run.uncoveredBy.empty()
                    ? noMending
                    : Mending{Mending::Kind::AddModificationRow, run.uncoveredBy, 0, static_cast<int>(run.first),
                              static_cast<int>(run.last)};
            findings_.Error(run.line, LayersName(run.first, run.last) + text, mending);
        }
        runs_.clear();
    }

private:
    struct Run {
        std::int64_t first;
        std::int64_t last;
        std::uint64_t line;
        std::string text;
        std::string uncoveredBy;
    };
    Findings& findings_;
    std::vector<Run> runs_;
};

// The first pile diameter at which `lookup(diameter)` fails with `message`.
template <class Lookup>
boost::optional<Length> FirstDiameterFailing(const Terrix& profile, const std::string& message, Lookup lookup) {
    for (const Length& diameter : profile.GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters) {
        try {
            lookup(diameter);
        } catch (const std::runtime_error& error) {
            if (message == error.what()) return diameter;
        }
    }
    return boost::none;
}

// Where a curve-data query of a numbered layer fails, and why: a pile
// diameter that no modification row covers (at the section's last row,
// where a covering row would go, or its title; at the layer's division when
// the file has no such section), a code 0 without its manual curve (at the
// division that gives the code), or anything else at the division.
template <class ManualSection, class ModificationSection>
void CheckCurveQuery(const Terrix& profile, const Layer& layer, const std::string& message,
                     const ManualSection& manual, const ModificationSection& modifications,
                     std::uint64_t divisionLine, Findings& findings, LayerFindings& layerFindings) {
    const int number = layer.firstLayer;
    if (const auto diameter = FirstDiameterFailing(
            profile, message, [&](const Length& d) { modifications.GetModification(number, d); })) {
        const std::string title = ModificationSection::GetTitle();
        std::uint64_t line = modifications.records.empty()
                                 ? findings.Section(title)
                                 : findings.Row(title, modifications.records.size() - 1);
        if (line == 0) line = divisionLine;
        layerFindings.Add(number, line,
                          ", diameter " + findings.InFile(*diameter) + ": " + message + ": no row of the " + title +
                              " covers {it}",
                          title);
    } else if (const auto missing = FirstDiameterFailing(
                   profile, message, [&](const Length& d) { manual.GetManualCurve(number, d); })) {
        layerFindings.Add(number, divisionLine,
                          ", diameter " + findings.InFile(*missing) + ": " + message +
                              ": {its} code 0 asks for a curve of the " + ManualSection::GetTitle());
    } else {
        layerFindings.Add(number, divisionLine, ": " + message);
    }
}

// The line of the division (version 4) or main layer (version 5) whose
// layer holds the numbered layer `number`.
std::uint64_t DivisionLine(const Terrix& profile, const std::vector<Layer>& divisions, std::int64_t number,
                           Findings& findings) {
    const bool isVersion5 = profile.GetVersion() == Version::V5;
    for (std::size_t i = 0; i < divisions.size(); ++i)
        if (divisions[i].firstLayer <= number &&
            number - divisions[i].firstLayer < static_cast<std::int64_t>(divisions[i].layerCount))
            return findings.Row(isVersion5 ? subdivisionTitle : divisionTitle, i);
    return findings.Section(isVersion5 ? subdivisionTitle : divisionTitle);
}

bool IsCurveData(const std::string& name) {
    return name == "PyData" || name == "TzData" || name == "QzData" || name == "MthetaData" || name == "BSyData" ||
           name == "BMthetaData";
}

// Whatever makes GetLayers(true), or an answer of a layer it gives, fail.
// GetLayers(true) cuts each version 4 division into its numbered layers and
// asks the six kinds of curve data of each, to join those that agree: each
// such query is asked here of each numbered layer, and a failure named at the
// record that causes it. The layers' other answers (soil properties, axial
// tables) are asked of the layers GetLayers(true) gives; their curve data
// are those of their first numbered layer, asked already.
void CheckLayerQueries(const Terrix& profile, const SourceLines& lines, Findings& findings) {
    // Divisions that cannot be split: one that runs backwards is told by
    // CheckDivisions; one that counts more layers than any profile has is
    // told here. Splitting either would never end.
    const auto& divisionRecords = profile.GetTerrixInputData().soilLayerDivisionsAndCodesForPyTzQzSection.records;
    if (const auto divisionError = FindLayerDivisionError(profile, lines)) {
        const bool runsBackwards = std::any_of(divisionRecords.begin(), divisionRecords.end(),
                                               [](const auto& record) { return record.LAYER2 < record.LAYER1; });
        if (!runsBackwards) findings.Error(divisionError->line, divisionError->text);
        return;
    }
    const TerrixInputData& data = profile.GetTerrixInputData();
    const bool isVersion5 = profile.GetVersion() == Version::V5;
    const char* const layersTitle = isVersion5 ? subdivisionTitle : divisionTitle;
    const std::vector<Layer> divisions = profile.GetLayers(false);
    std::vector<std::vector<Layer>> piecesOfDivisions;
    std::vector<Layer> pieces;
    for (const Layer& division : divisions) {
        piecesOfDivisions.push_back(isVersion5 ? std::vector<Layer>{division} : division.Split());
        pieces.insert(pieces.end(), piecesOfDivisions.back().begin(), piecesOfDivisions.back().end());
    }
    const std::size_t errorsBefore = findings.ErrorCount();
    {
        const LayerLookup lookup(profile, pieces);
        LayerFindings layerFindings(findings);
        for (std::size_t i = 0; i < divisions.size(); ++i) {
            const std::uint64_t line = findings.Row(layersTitle, i);
            for (const Layer& piece : piecesOfDivisions[i]) {
                auto ask = [&](auto query, const auto& manual, const auto& modifications) {
                    try {
                        query(lookup, piece);
                    } catch (const std::runtime_error& error) {
                        CheckCurveQuery(profile, piece, error.what(), manual, modifications, line, findings,
                                        layerFindings);
                    }
                };
                ask(PerLayer::GetPyData, data.manualPyLateralResistanceDataSection,
                    data.pyLateralResistanceDataModificationSection);
                ask(PerLayer::GetTzData, data.manualTzSkinFrictionDataSection,
                    data.tzSkinFrictionDataModificationSection);
                ask(PerLayer::GetQzData, data.manualQzPileTipResistanceDataSection,
                    data.qzPileTipResistanceDataModificationSection);
                ask(PerLayer::GetMthetaData, data.manualMthetaMomentDataSection,
                    data.mthetaMomentDataModificationSection);
                ask(PerLayer::GetBSyData, data.manualBSYBaseShearDataSection, data.bsyBaseShearDataModificationSection);
                ask(PerLayer::GetBMthetaData, data.manualBMthetaMomentDataSection,
                    data.bmThetaMomentDataModificationSection);
            }
            layerFindings.Flush();
        }
    }
    // With every curve-data query answered, GetLayers(true) joins the
    // numbered layers; otherwise the divisions stand for its layers.
    std::vector<Layer> layers = divisions;
    if (findings.ErrorCount() == errorsBefore) {
        try {
            layers = profile.GetLayers(true);
        } catch (const std::exception& error) {
            findings.Error(findings.Section(layersTitle), std::string("the layers cannot be split: ") + error.what());
            return;
        }
    }
    // Per layer, the queries that fail, by message: "SoilType, Phi fail: Unknown layer".
    std::vector<std::pair<std::string, std::string>> failed;
    const Layer* current = nullptr;
    auto flush = [&] {
        const std::int64_t last = current->firstLayer + static_cast<std::int64_t>(current->layerCount) - 1;
        for (const auto& [message, names] : failed)
            findings.Error(DivisionLine(profile, divisions, current->firstLayer, findings),
                           LayersName(current->firstLayer, last) + ": " + names +
                               (names.find(',') == std::string::npos ? " fails: " : " fail: ") + message);
        failed.clear();
    };
    ForEachLayerAnswer(profile, layers, [&](const Layer& layer, const char* name, auto answer) {
        if (&layer != current) {
            if (current != nullptr) flush();
            current = &layer;
        }
        if (IsCurveData(name)) return;
        try {
            answer();
        } catch (const std::runtime_error& error) {
            const std::string message = error.what();
            const auto known = std::find_if(failed.begin(), failed.end(),
                                            [&](const auto& entry) { return entry.first == message; });
            if (known == failed.end()) failed.emplace_back(message, name);
            else known->second += std::string(", ") + name;
        }
    });
    if (current != nullptr) flush();
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
    CheckLayerQueries(profile, lines, findings);
    CheckNumbers(profile, findings);
    return findings.Take();
}

bool Mend(Terrix& profile, const Mending& mending) {
    TerrixInputData& data = profile.GetTerrixInputData();
    if (mending.kind == Mending::Kind::SetCount) {
        const auto set = [&](auto& count) { count = static_cast<int>(mending.value); };
        return mending.value >= 0 && mending.value <= INT_MAX && WithCount(data.controlSection, mending.name, set);
    }
    if (mending.kind == Mending::Kind::AddModificationRow)
        return WithModificationSection(data, mending.name, [&](auto& section) {
            // The row of the identity factors, for every diameter (DIAM 0).
            typename std::remove_reference_t<decltype(section)>::Record row;
            row.LAY1 = mending.firstLayer;
            row.LAY2 = mending.lastLayer;
            section.records.push_back(row);
        });
    return false;
}

}  // namespace TerrixExchange
