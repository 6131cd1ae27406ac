#include <TerrixExchange/document/Terrix.h>

#include <cmath>
#include <istream>
#include <limits>
#include <ostream>

#include <TerrixExchange/archive/Archives.h>
#include <TerrixExchange/archive/JsonFormat.h>
#include <TerrixExchange/document/TableCounts.h>
#include <TerrixExchange/document/WhiteSpaceKept.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

namespace TerrixExchange {

using namespace Units::Runtime;

namespace {

// The version line of version 5 carries this date.
const int versionYear = 2009;
const int versionMonth = 9;
const int versionDay = 1;

// The reference values from which a file's units are deduced, in kN and m:
// sea water (within 5 per cent of the 9.81 of the comment line) and the
// atmospheric pressure.
const double referenceWaterUnitWeight = 10.0518;
const double referenceAtmosphericPressure = 101.3;
const double unitMatchTolerance = 0.05;

// One profile of a JSON text: the object of a profile, or a dump of one.
Terrix ProfileFromJsonText(std::string_view text, const UnitSystem* units) {
    const Json json = ParseJson(text);
    if (json.is_object() && json.size() == 1 && json.contains("profiles")) {
        const Json& profiles = json["profiles"];
        if (!profiles.is_array() || profiles.size() != 1)
            throw JsonImportError("profiles: expected a list of one profile, found " +
                                  (profiles.is_array() ? std::to_string(profiles.size()) + " profiles"
                                                       : std::string("no list")));
        return ProfileFromJson(profiles[0], "profile #0", units);
    }
    return ProfileFromJson(json, "profile", units);
}

}  // namespace

Terrix::Terrix(Version version, Revision revision) : version_(version), revision_(revision) {
    SetRevision(revision);
    SetVersion(version);
}

void Terrix::SetVersion(Version version) {
    version_ = version;
    inputData_.controlSection.version = version;
}

void Terrix::SetRevision(Revision revision) {
    revision_ = revision;
    inputData_.soilMainLayersAndPropertiesSection.layoutRevision = static_cast<int>(revision);
}

std::uint64_t Terrix::GetDiameterCount() const {
    return inputData_.pileDiametersAndGroupEffectsSection.diameters.size();
}

template <class Archive>
void Terrix::SerializeSections(Archive& archive) {
    TerrixInputData& data = inputData_;
    ControlSection& control = data.controlSection;
    const bool isVersion5 = version_ == Version::V5;

    archive.BlankLine();
    control.Serialize(archive);
    archive.BlankLine();
    data.materialCoefficientsSection.Serialize(archive);
    archive.BlankLine();
    data.pileDiametersAndGroupEffectsSection.Serialize(archive, isVersion5);
    archive.BlankLine();
    data.soilSurfaceAndGroundWaterSection.Serialize(archive);
    archive.BlankLine();
    data.loadsAtSoilSurfaceSection.Serialize(archive);

    const std::size_t diameters = GetDiameterCount();
    std::size_t layers = 0;
    if (isVersion5) {
        const std::size_t mainLayers = RecordCount(control.NUMLAYM);
        archive.BlankLine();
        data.soilMainLayersAndPropertiesSection.Serialize(archive, mainLayers);
        archive.BlankLine();
        data.skinFrictionAndTipResistanceSectionV5.Serialize(archive, mainLayers);
        archive.BlankLine();
        data.mainLayersSubdivisionAndPyTzQzCodesSection.Serialize(archive, mainLayers);
        layers = mainLayers;
    } else {
        archive.BlankLine();
        data.soilTypeAndPropertySection.Serialize(archive, RecordCount(control.NUMTYP));
        archive.BlankLine();
        data.skinFrictionAndTipResistanceSectionV4.Serialize(archive, RecordCount(control.NUMTQZ));
        archive.BlankLine();
        layers = RecordCount(control.NUMLAY);
        data.soilLayerDivisionsAndCodesForPyTzQzSection.Serialize(archive, layers);
    }

    // Manual curves are given per manual layer of the codes just read and
    // pile diameter.
    const ManualCurveCounts manual = CountManualCurves(data, version_);

    archive.BlankLine();
    data.manualPyLateralResistanceDataSection.Serialize(archive, manual.py);
    archive.BlankLine();
    data.pyLateralResistanceDataModificationSection.Serialize(archive, layers, diameters);
    archive.BlankLine();
    data.manualTzSkinFrictionDataSection.Serialize(archive, manual.tz);
    archive.BlankLine();
    data.tzSkinFrictionDataModificationSection.Serialize(archive, layers, diameters);
    archive.BlankLine();
    data.manualQzPileTipResistanceDataSection.Serialize(archive, manual.qz);
    archive.BlankLine();
    data.qzPileTipResistanceDataModificationSection.Serialize(archive, layers, diameters);

    // The optional sections' titles are read by their exact spelling.
    archive.SetTitleMode(false);
    if (control.HasDMData()) {
        archive.BlankLine();
        data.manualMthetaMomentDataSection.Serialize(archive, RecordCount(*control.NUMDM));
        archive.BlankLine();
        data.mthetaMomentDataModificationSection.Serialize(archive);
    }
    if (control.HasBSData()) {
        archive.BlankLine();
        data.manualBSYBaseShearDataSection.Serialize(archive, RecordCount(*control.NUMBS));
        archive.BlankLine();
        data.bsyBaseShearDataModificationSection.Serialize(archive);
    }
    if (control.HasBMData()) {
        archive.BlankLine();
        data.manualBMthetaMomentDataSection.Serialize(archive, RecordCount(*control.NUMBM));
        archive.BlankLine();
        data.bmThetaMomentDataModificationSection.Serialize(archive);
    }

    archive.BlankLine();
    data.givenSoilDisplacementsAndOpenHoleSection.Serialize(archive, RecordCount(control.NUMDSP));
}

// "TERRIX", the header lines, the version line of version 5 (a file without
// one is version 4), then the sections. A profile of no known version is
// written as its first lines alone.
template <class Archive>
void Terrix::SerializeProfile(Archive& archive, std::string& header) {
    archive.Header(header);
    if (version_ != Version::V4 && version_ != Version::V5) return;
    bool isVersion5 = version_ == Version::V5;
    archive.VersionLine(isVersion5, versionYear, versionMonth, versionDay);
    SetVersion(isVersion5 ? Version::V5 : Version::V4);
    SerializeSections(archive);
}

// What follows a profile: after the last one, empty lines, comment lines and
// the end line "END OF TERRIX INPUT FILE"; before a further one, an empty
// line and the marker "### New soil profile".
template <class Archive>
void Terrix::SerializeProfileEnd(Archive& archive, bool& isLast, bool withEndLine) {
    archive.EndOfProfiles(isLast, withEndLine);
    if (isLast) return;
    archive.BlankLine();
    archive.ProfileMarker();
}

template <class Importer>
void Terrix::ReadProfile(Importer& importer) {
    SetVersion(Version::V4);
    SerializeProfile(importer, header_);
}

void Terrix::Import(std::istream& stream, const std::string& forceUnit, const std::string& lengthUnit) {
    unitSystem_ = UnitSystem(forceUnit, lengthUnit);
    WhiteSpaceKept whiteSpace(stream);
    Importer importer(StreamIterator(stream), StreamIterator(), unitSystem_, true);
    ReadProfile(importer);
}

void Terrix::ImportText(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit) {
    unitSystem_ = UnitSystem(forceUnit, lengthUnit);
    TextImporter importer(text.data(), text.data() + text.size(), unitSystem_, true);
    ReadProfile(importer);
}

void Terrix::ImportJson(std::string_view text) { *this = ProfileFromJsonText(text, nullptr); }

void Terrix::ImportJson(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit) {
    const UnitSystem units(forceUnit, lengthUnit);
    *this = ProfileFromJsonText(text, &units);
}

void Terrix::Export(std::ostream& stream, const UnitSystem& units, const std::list<std::string>& headerLines,
                    bool writeEndLine) {
    WriteProfile(stream, units, JoinLines(headerLines), true, writeEndLine);
}

void Terrix::WriteProfile(std::ostream& stream, const UnitSystem& units, std::string header, bool isLast,
                          bool writeEndLine) {
    unitSystem_ = units;
    Exporter exporter(StreamSink(stream), 10, FastUnitConverter(GetDatabaseUnitSystem(), units));
    SerializeProfile(exporter, header);
    SerializeProfileEnd(exporter, isLast, writeEndLine);
}

std::string Terrix::JoinLines(const std::list<std::string>& lines) {
    std::string text;
    for (auto line = lines.begin(); line != lines.end(); ++line) text += (line == lines.begin() ? "" : "\n") + *line;
    return text;
}

void Terrix::Export(std::ostream& stream, const std::string& forceUnit, const std::string& lengthUnit,
                    const std::list<std::string>& headerLines, bool writeEndLine) {
    Export(stream, UnitSystem(forceUnit, lengthUnit), headerLines, writeEndLine);
}

bool Terrix::TryDeduceUnits(std::istream& stream, std::string& forceUnit, std::string& lengthUnit) {
    WhiteSpaceKept whiteSpace(stream);
    Importer importer(StreamIterator(stream), StreamIterator(), GetDatabaseUnitSystem(), true);
    return DeduceUnits(importer, forceUnit, lengthUnit);
}

template <class Importer>
bool Terrix::DeduceUnits(Importer& importer, std::string& forceUnit, std::string& lengthUnit) {
    std::string header;
    importer.Header(header);
    bool isVersion5 = false;
    importer.VersionLine(isVersion5, versionYear, versionMonth, versionDay);
    ControlSection control(isVersion5 ? Version::V5 : Version::V4);
    importer.BlankLine();
    control.Serialize(importer);
    return TryDeduceUnits(control.GAMMAW, control.ATMPRS, forceUnit, lengthUnit);
}

bool Terrix::TryDeduceUnits(Quantity<ForcePerUnitVolumePhenomenon> waterUnitWeight,
                            Quantity<StressPhenomenon> atmosphericPressure, std::string& forceUnit,
                            std::string& lengthUnit) {
    const UnitSystem reference("kN", "m");
    const double gRef = reference.ConvertFromUnitSystem(referenceWaterUnitWeight, ForcePerUnitVolumePhenomenon::dimension);
    const double pRef = reference.ConvertFromUnitSystem(referenceAtmosphericPressure, StressPhenomenon::dimension);
    const double g = waterUnitWeight.GetValue();
    const double p = atmosphericPressure.GetValue();

    // g/p is an inverse length: the ratio to the reference's is the size of
    // the file's length unit in metres, and the force unit follows from g.
    const double lengthFactor = (g / p) / (gRef / pRef);
    // Candidates are compared by their relative difference; on a tie the
    // first in the list wins.
    auto nearest = [](double factor, const char* const* names, std::size_t count, bool isForce, std::string& best) {
        double bestDifference = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < count; ++i) {
            double size = 0.0;
            if (isForce) TryGetForceUnitSize(names[i], size);
            else TryGetLengthUnitSize(names[i], size);
            const double difference = std::fabs(factor - size) / size;
            if (difference < bestDifference) {
                bestDifference = difference;
                best = names[i];
            }
        }
        return bestDifference <= unitMatchTolerance;
    };
    static const char* const lengthNames[] = {"km", "m", "dm", "cm", "mm", "in", "ft"};
    static const char* const forceNames[] = {"N", "kN", "MN", "GN", "mN", "lbf", "kipf", "kgf"};
    // The length unit is written as soon as it is found, even when no force
    // unit matches then: a caller can tell which of the two failed.
    std::string length;
    if (!std::isfinite(lengthFactor) || !nearest(lengthFactor, lengthNames, 7, false, length)) return false;
    lengthUnit = length;
    const double forceFactor = lengthFactor * lengthFactor * lengthFactor * (gRef / g);
    std::string force;
    if (!std::isfinite(forceFactor) || !nearest(forceFactor, forceNames, 8, true, force)) return false;
    forceUnit = force;
    return true;
}

template void Terrix::ReadProfile(Importer&);
template void Terrix::ReadProfile(TextImporter&);
template void Terrix::ReadProfile(JsonImporter&);
template void Terrix::SerializeProfile(JsonExporter&, std::string&);
template bool Terrix::DeduceUnits(Importer&, std::string&, std::string&);
template bool Terrix::DeduceUnits(TextImporter&, std::string&, std::string&);
template void Terrix::SerializeProfileEnd(Importer&, bool&, bool);
template void Terrix::SerializeProfileEnd(TextImporter&, bool&, bool);
template void Terrix::SerializeProfileEnd(Exporter&, bool&, bool);
#define INSTANTIATE(Archive) template void Terrix::SerializeSections(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
