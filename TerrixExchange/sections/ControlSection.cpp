#include <TerrixExchange/sections/ControlSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

using namespace Units::Runtime;

ControlSection::ControlSection(Version version_)
    : version(version_),
      // Sea water, although the comment line speaks of 9.81 KN/M3.
      GAMMAW(UnitSystem("kN", "m").ConvertFromUnitSystem<ForcePerUnitVolumePhenomenon>(10.0518)),
      ATMPRS(UnitSystem("kN", "m").ConvertFromUnitSystem<StressPhenomenon>(101.3)) {}

template <class Archive>
void ControlSection::Serialize(Archive& archive) {
    const auto guard = archive.BeginSection("CONTROL SECTION");
    if (version == Version::V5)
        archive.StringParameter(profileName, "profileName", "NAME OF THIS SOIL PROFILE, MAX 10 CHARACTERS");
    archive.RequiredParameter(CONFRC, "CONFRC", "OLD-FORCE-UNIT  = CONFRC * NEW-FORCE-UNIT  1MN  = 1000*1KN");
    archive.RequiredParameter(CONLTH, "CONLTH", "OLD-LENGTH-UNIT = CONLTH * NEW-LENGTH-UNIT  1M  = 3.28*1FT");
    if (version == Version::V4) {
        archive.RequiredParameter(NUMTYP, "NUMTYP", "NUMBER OF DIFFERENT SOIL TYPES");
        archive.RequiredParameter(NUMTQZ, "NUMTQZ", "NUMBER OF LINES IN THE T - Z / Q - Z DATA TABLE BELOW");
        archive.RequiredParameter(NUMLAY, "NUMLAY", "NUMBER OF SOIL LAYERS");
        archive.RequiredParameter(NUMDSP, "NUMDSP", "NUMBER OF Z-LEVELS WITH GIVEN SOIL DISPLACEMENTS");
        archive.RequiredParameter(MIDBOT, "MIDBOT", "P - Y ETC COMPUTED AT : 1 = LAYER - MIDPOINT 2 = LAYER - BOTTOM");
    }
    if (version == Version::V5) {
        archive.RequiredParameter(NUMLAYM, "NUMLAYM", "NUMBER OF MAIN SOIL LAYERS");
        archive.RequiredParameter(NUMDSP, "NUMDSP", "NUMBER OF Z-LEVELS WITH GIVEN SOIL DISPLACEMENTS");
    }
    archive.RequiredParameter(GAMMAW, "GAMMAW", "UNIT WEIGHT OF WATER (9.81 KN/M3 IN SI-UNITS)");
    archive.RequiredParameter(ATMPRS, "ATMPRS", "ATMOSPHERIC PRESSURE (101.3 KN/M2 IN SI-UNITS)");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(ZCYCL), "ZCYCL", "Z-LEVEL DOWN TO WHICH CYCLIC P-Y DATA SHALL BE GENERATED");
    archive.RequiredParameter(AsQuantity<ForcePerUnitAreaPhenomenon>(SUSTIF), "SUSTIF", "USE STIFF CLAY P-Y PROCEDURES IF SU.GT.SUSTF (API ONLY)");
    archive.RequiredParameter(JPRINT, "JPRINT", "PRINTED OUTPUT DATA (0=NONE 1=SOME 2=FULL)");
    archive.RequiredParameter(JECHO, "JECHO", "ECHO PRINT OF INPUT FILE NF14 TO FILE NF16 (0=NO 1=YES)");
    archive.OptionalParameter(NUMDM, "NUMDM", "NUMBER OF LAYERS WITH DISTRIBUTED MOMENT. THIS FLAG IS OPTIONAL");
    archive.OptionalParameter(NUMBS, "NUMBS", "NUMBER OF LAYERS WITH BASE SHEAR. THIS FLAG IS OPTIONAL");
    archive.OptionalParameter(NUMBM, "NUMBM", "NUMBER OF LAYERS WITH BASE MOMENT. THIS FLAG IS OPTIONAL");
}

#define INSTANTIATE(Archive) template void ControlSection::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
