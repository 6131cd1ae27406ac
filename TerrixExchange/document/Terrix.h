#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <boost/optional.hpp>

#include <TerrixExchange/document/TerrixInputData.h>
#include <TerrixExchange/document/Version.h>
#include <TerrixExchange/queries/CurveData.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange {

class TerrixMultipleSoilProfiles;
class JsonExporter;
class JsonImporter;
class LayerLookup;

// One soil profile: the content of one TERRIX input file, or of one profile
// of a stream of several. It holds the header, the unit system in which the
// file was read or last written, the sections, and the format version.
class Terrix {
public:
    TERRIX_ALLOCATION_OPERATORS

    explicit Terrix(Version version = Version::V4, Revision revision = Revision::Unsettled);

    // A complete profile of `version` with no layers yet, held in `units`,
    // as an engineer starts one: every section there (the M-theta, BS-Y and
    // BM-theta sections too, their counts 0), the unit weight of sea water
    // and the atmospheric pressure from which the units deduce, conversion
    // factors and material coefficients of 1, and in each modification
    // section one row of factors 1 for every layer and pile diameter. The
    // name is the profile name of version 5 (version 4 has none).
    static Terrix MakeNew(Version version, const Units::Runtime::UnitSystem& units, const std::string& name = "");

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
    // The same of a text in memory, read without a stream: the same profile,
    // or the same error with the same four lines, as Import of a stream that
    // holds the text.
    void ImportText(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit);

    // Reads one profile from JSON: its object of terrix dump ({"version": 5,
    // "header": ..., "units": ..., "sections": ...}, see DescribeProfile), or
    // a dump that holds one profile ({"profiles": [...]}). The values are in
    // database units and are taken as they stand; the profile then holds the
    // units the JSON names, or those named here. Throws JsonImportError (a
    // std::runtime_error) at the first fault, with the profile as it was.
    void ImportJson(std::string_view text);
    void ImportJson(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit);

    // Writes the profile with its values in `units`: "TERRIX", the header
    // lines, the version line of version 5, the sections each after one empty
    // line, and, if asked for, an empty line and "END OF TERRIX INPUT FILE".
    void Export(std::ostream& stream, const Units::Runtime::UnitSystem& units,
                const std::list<std::string>& headerLines, bool writeEndLine);
    void Export(std::ostream& stream, const std::string& forceUnit, const std::string& lengthUnit,
                const std::list<std::string>& headerLines, bool writeEndLine);

    // Writes the profile over `original`, the text it was read from, with
    // only the lines that hold what changed written anew: see
    // TerrixMultipleSoilProfiles::ExportKeepingLines. False when the profile
    // was written whole instead.
    bool ExportKeepingLines(std::ostream& stream, std::string_view original);

    // Sets every count that the file keeps for a table from what the
    // profile holds, for a host that has added or removed records: NUMTYP,
    // NUMTQZ and NUMLAY (the numbered layers the divisions cover) in version
    // 4, NUMLAYM (the main layers of the main layer table) in version 5,
    // NUMDSP, and NUMDM, NUMBS and NUMBM (given, as the number of manual
    // curves, whenever either section of their kind holds rows). The counts
    // of pile diameters, point forces and curve points are the lengths of
    // their lists already. What no count can mend stays for
    // FindInconsistencies to tell: tables that disagree with each other, two
    // value lines of a curve of different lengths, manual curves that the
    // layer codes and pile diameters do not call for.
    void SetCountsFromTables();

    // What an export of the profile would write that does not read back as
    // the same profile: a message for every count that disagrees with the
    // table it sizes (NUMTYP, NUMTQZ, NUMLAY, NUMLAYM, NUMDSP, NUMDM, NUMBS,
    // NUMBM, the manual curves against the manual layers times the pile
    // diameters), every curve whose two value lines and the point forces
    // whose distances differ in number, and whatever the export leaves out
    // (curves of a kind whose count is not given, AK values of a table laid
    // out without them). Empty when the profile reads back as it is. Export
    // writes what the profile holds whatever this says: a host that builds
    // or edits a profile calls this before Export.
    std::vector<std::string> FindInconsistencies() const;

    // Reads the start of a profile (header, version line, control section)
    // and deduces the units of the file from its unit weight of water and
    // atmospheric pressure. False when no candidate unit is within 5 per cent.
    static bool TryDeduceUnits(std::istream& stream, std::string& forceUnit, std::string& lengthUnit);
    // The same deduction from the two numbers as the file writes them: the
    // unit weight of water (GAMMAW) and the atmospheric pressure (ATMPRS).
    static bool TryDeduceUnits(
        Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> waterUnitWeight,
        Units::Runtime::Quantity<Units::Runtime::StressPhenomenon> atmosphericPressure, std::string& forceUnit,
        std::string& lengthUnit);

    // ---- Queries ------------------------------------------------------------
    // What a pile-soil analysis asks of the profile. Every answer is worked
    // out afresh from the sections of the profile's version: nothing is
    // cached and the profile is never changed. Records are looked up in file
    // order, the first match wins, and numbers are compared exactly.

    // A soil by its undrained shear strength (GetSUz): Sand when it is zero
    // throughout, Clay when some value is not, Undefined without strengths.
    enum class SoilType : std::int32_t { Sand = 0, Clay = 1, Undefined = 2 };

    // Level (growing downwards) -> stress, in ascending level.
    using StressByLevel = std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>,
                                   Units::Runtime::Quantity<Units::Runtime::StressPhenomenon>>;

    // The computational layers from top to bottom, the first starting at the
    // seafloor (ZSURF). Version 4: one layer per soil layer division; with
    // `split`, each division cut into its numbered layers, neighbours whose
    // curve data agree joined again (the curve-data errors pass out
    // unchanged). Version 5: one layer per main layer; `split` changes
    // nothing. Any other version: no layers.
    std::vector<Layer> GetLayers(bool split) const;

    // Per-layer soil properties, from the soil type table (version 4) or the
    // main layer tables (version 5). A profile of any other version throws
    // std::runtime_error "Unknown TERRIX version"; a layer that the table
    // of its version does not hold throws "Unknown layer". Values come as the
    // file gives them, in the profile's database units; only the friction
    // angle, written in degrees, is turned into radians.
    SoilType GetSoilType(const Layer& layer) const;
    Units::Runtime::Quantity<Units::Runtime::AnglePhenomenon> GetPhi(const Layer& layer) const;
    double GetEpsc(const Layer& layer) const;
    // OCR of the soil type; always empty in version 5, whose tables have none.
    boost::optional<double> GetOverConsolidationRatio(const Layer& layer) const;
    double GetAPIJFactor(const Layer& layer) const;
    // Whether a gap opens behind the pile: GAP (version 4) or OPEN HOLE of
    // the main layer subdivision (version 5) is exactly 1.
    bool GetOpenGap(const Layer& layer) const;
    // RPRAT (version 4) or the residual over maximum skin friction (version 5).
    double GetRPRatio(const Layer& layer) const;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetTZCurveZDisplacement(const Layer& layer) const;
    Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> GetLayerUnitWeight(const Layer& layer) const;
    // AK of the main layer table; empty in version 4, and in version 5 when
    // the table is laid out without the AK column.
    boost::optional<Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon>> GetInitialModulus(
        const Layer& layer) const;
    // From the version 4 level rows that bracket the layer's middle (the
    // first of them); empty in every other version and when there are none.
    boost::optional<Units::Runtime::Quantity<Units::Runtime::ForcePerUnitAreaPhenomenon>> GetInitialSoilShearModulus(
        const Layer& layer) const;
    boost::optional<double> GetDSDiameterRatio(const Layer& layer) const;
    boost::optional<double> GetPoissonRatio(const Layer& layer) const;
    boost::optional<double> GetDTDiameterRatio(const Layer& layer) const;

    // The curve data of a layer for every pile diameter. A profile of any
    // other version than 4 or 5 throws std::runtime_error "TERRIX version
    // undefined", a layer without a layer division "Could not find layer".
    // P-Y, T-Z and Q-Z take the manual curves only when the layer's code is
    // 0, and then require one per diameter ("Manual PY curve not defined");
    // every diameter needs a covering modification row ("Unable to find PY
    // modifications"). M-theta, BS-Y and BM-theta take a manual curve wherever
    // the file gives one, and identity factors where no row applies.
    PyData GetPyData(const Layer& layer) const;
    TzData GetTzData(const Layer& layer) const;
    QzData GetQzData(const Layer& layer) const;
    MThetaData GetMthetaData(const Layer& layer) const;
    BSYData GetBSyData(const Layer& layer) const;
    BMThetaData GetBMthetaData(const Layer& layer) const;

    // Profile-wide parameters, as the sections hold them.
    Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> GetWaterUnitWeight() const;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetLowestLevelWithCyclicPY() const;
    Units::Runtime::Quantity<Units::Runtime::StressPhenomenon> GetLowestShearStiff() const;
    double GetTanPhiCoeff() const;
    double GetShearStrengthCoeff() const;
    double GetSkinFrictionCoeff() const;
    double GetPileTipResistanceCoeff() const;
    Units::Runtime::Quantity<Units::Runtime::ForcePerUnitAreaPhenomenon> GetModulusOfElasticity() const;
    Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> GetModulusOfElasticitySlope() const;
    double GetAveragePoissonRatio() const;
    // The level of the soil surface, where the first layer starts.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetZSeafloor() const;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetDepthOfScour() const;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetDepthOfLocalScour() const;
    // The side slope of local scour holes, written in degrees, in radians.
    Units::Runtime::Quantity<Units::Runtime::AnglePhenomenon> GetSideSlope() const;
    Units::Runtime::Quantity<Units::Runtime::StressPhenomenon> GetVerticalStressAtSurface() const;
    Units::Runtime::Quantity<Units::Runtime::StressPhenomenon> GetVerticalStressUnderEmbankment() const;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetWidthOfEmbankmentSlopingPart() const;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetDistancePileToEmbankmentToe() const;
    Units::Runtime::Quantity<Units::Runtime::StressPhenomenon> GetVerticalStressUnderCircularLoadedArea() const;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> GetRadiusOfCircularLoadedArea() const;
    // ZONINF and RFTZ of the version 4 skin friction section; empty in any
    // other version.
    boost::optional<double> GetZoneOfInfluenceTZ() const;
    boost::optional<double> GetCurveShapeFactorTZ() const;

    // The axial capacity tables of a layer. Version 4: the values of the
    // level rows that bracket the layer's middle, at their levels. Version 5:
    // the main layer's top and bottom values at the computational layer's
    // top and bottom. Empty when there are none, and in any other version.
    StressByLevel GetSkinCompression(const Layer& layer) const;
    StressByLevel GetSkinTension(const Layer& layer) const;
    StressByLevel GetTipResistance(const Layer& layer) const;
    // The undrained shear strength against level. Version 4: SU.Z=0 at level
    // 0 and SU.Z=100 at level 100 of the file's length unit; a soil type
    // without a row throws "Unknown layer". Version 5: SUTOP and SUBOT at the
    // main layer's own top and bottom; empty for an unknown main layer. Any
    // other version: empty.
    StressByLevel GetSUz(const Layer& layer) const;

private:
    friend class TerrixMultipleSoilProfiles;
    friend class JsonExporter;
    friend class JsonImporter;

    // The header, the version line and the sections of the version.
    template <class Importer>
    void ReadProfile(Importer& importer);
    // The frame of a profile around its sections, described once for both
    // archives, and what follows a profile.
    template <class Archive>
    void SerializeProfile(Archive& archive, std::string& header);
    template <class Archive>
    static void SerializeProfileEnd(Archive& archive, bool& isLast, bool withEndLine);
    // The profile in `units` with the header lines of `header` (joined by
    // "\n"), then the marker of a further profile or, when it is the last,
    // the end line if asked for.
    void WriteProfile(std::ostream& stream, const Units::Runtime::UnitSystem& units, std::string header,
                      bool isLast, bool writeEndLine);
    static std::string JoinLines(const std::list<std::string>& lines);
    // The sections of the profile's version, each after one empty line.
    template <class Archive>
    void SerializeSections(Archive& archive);
    // The header, the version line and the control section, in database units.
    template <class Importer>
    static bool DeduceUnits(Importer& importer, std::string& forceUnit, std::string& lengthUnit);
    // Layering: each layer cut into its numbered layers, the pieces of one
    // layer (never of two) joined where the main layer and the data of all
    // six curves are exactly the same.
    std::vector<Layer> ConditionallySplitLayers(std::vector<Layer> layers) const;
    std::vector<Layer> ConditionallyMergeLayers(std::vector<Layer> layers, const LayerLookup& lookup) const;

    std::string header_;
    Units::Runtime::UnitSystem unitSystem_;
    TerrixInputData inputData_;
    Version version_;
    Revision revision_;
};

}  // namespace TerrixExchange
