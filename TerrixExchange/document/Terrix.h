#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <list>
#include <string>

#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>
#include <TerrixExchange/document/TerrixInputData.h>
#include <TerrixExchange/document/Version.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange {

class TerrixMultipleSoilProfiles;

// One soil profile: the content of one TERRIX input file, or of one profile
// of a stream of several. It holds the header, the unit system in which the
// file was read or last written, the sections, and the format version.
class Terrix {
public:
    TERRIX_ALLOCATION_OPERATORS

    explicit Terrix(Version version = Version::V4, Revision revision = Revision::Unsettled);

    void SetVersion(Version version);
    Version GetVersion() const { return version_; }
    void SetRevision(Revision revision);
    Revision GetRevision() const { return revision_; }

    // The header lines of the file (the lines after "TERRIX" up to the
    // version line or the first empty line), joined by "\n".
    std::string GetHeader() const { return header_; }
    // The unit system of the file as last read or written.
    const Units::Runtime::UnitSystem& GetUnitSystem() const { return unitSystem_; }

    // The number of pile diameters of the pile diameters section.
    std::uint64_t GetDiameterCount() const;

    TerrixInputData& GetTerrixInputData() { return inputData_; }
    const TerrixInputData& GetTerrixInputData() const { return inputData_; }

    // Reads one profile whose values are written in the named units. Throws
    // ImportError (a std::runtime_error) at the first line that is not what
    // the format expects; the sections read before it keep what they read.
    void Import(std::istream& stream, const std::string& forceUnit, const std::string& lengthUnit);

    // Writes the profile with its values in `units`: "TERRIX", the header
    // lines, the version line of version 5, the sections each after one empty
    // line, and, if asked for, an empty line and "END OF TERRIX INPUT FILE".
    void Export(std::ostream& stream, const Units::Runtime::UnitSystem& units,
                const std::list<std::string>& headerLines, bool writeEndLine);
    void Export(std::ostream& stream, const std::string& forceUnit, const std::string& lengthUnit,
                const std::list<std::string>& headerLines, bool writeEndLine);

    // Reads the start of a profile (header, version line, control section)
    // and deduces the units of the file from its unit weight of water and
    // atmospheric pressure. False when no candidate unit is within 5 per cent.
    static bool TryDeduceUnits(std::istream& stream, std::string& forceUnit, std::string& lengthUnit);

private:
    friend class TerrixMultipleSoilProfiles;

    // The header, the version line and the sections of the version.
    void ReadProfile(Importer& importer);
    // The sections of the profile's version, each after one empty line.
    template <class Archive>
    void SerializeSections(Archive& archive);
    // The header, the version line and the control section, in database units.
    static bool TryDeduceUnits(Importer& importer, std::string& forceUnit, std::string& lengthUnit);
    static bool TryDeduceUnits(
        Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> waterUnitWeight,
        Units::Runtime::Quantity<Units::Runtime::StressPhenomenon> atmosphericPressure, std::string& forceUnit,
        std::string& lengthUnit);

    std::string header_;
    Units::Runtime::UnitSystem unitSystem_;
    TerrixInputData inputData_;
    Version version_;
    Revision revision_;
};

}  // namespace TerrixExchange
