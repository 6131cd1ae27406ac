#include <TerrixExchange/sections/SoilSurfaceAndGroundWaterSection.h>

#include <TerrixExchange/archive/Archives.h>
#include <TerrixExchange/sections/ControlSection.h>

namespace TerrixExchange {

using namespace Units::Runtime;

// The ground water of a new profile is the water of its control section.
SoilSurfaceAndGroundWaterSection::SoilSurfaceAndGroundWaterSection() : GAMPWP(ControlSection().GAMMAW.GetValue()) {}

template <class Archive>
void SoilSurfaceAndGroundWaterSection::Serialize(Archive& archive) {
    const auto guard = archive.BeginSection("SOIL SURFACE AND GROUND WATER SECTION");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(ZSURF), "ZSURF", "Z-LEVEL OF NON-SCOURED SOIL SURFACE");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(SCRGEN), "SCRGEN", "DEPTH OF GENERAL SCOUR BELOW ZSURF");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(SCRLOC), "SCRLOC", "DEPTH OF LOCAL SCOUR BELOW ZSURF");
    archive.RequiredParameter(SLOPE, "SLOPE", "SIDE SLOPE (DEGREES) OF LOCAL SCOUR HOLES");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(ZGRWT), "ZGRWT", "Z-LEVEL OF GROUND WATER TABLE");
    // "PRSS" is how the file has always spelt it.
    archive.RequiredParameter(AsQuantity<ForcePerUnitVolumePhenomenon>(GAMPWP), "GAMPWP", "UNIT WEIGHT OF GROUND WATER (USED TO FIND PORE WATER PRSS)");
}

#define INSTANTIATE(Archive) template void SoilSurfaceAndGroundWaterSection::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
