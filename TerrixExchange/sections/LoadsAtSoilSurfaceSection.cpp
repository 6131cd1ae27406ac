#include <TerrixExchange/sections/LoadsAtSoilSurfaceSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

using namespace Units::Runtime;

template <class Archive>
void LoadsAtSoilSurfaceSection::Serialize(Archive& archive) {
    const auto guard = archive.BeginSection("LOADS AT SOIL SURFACE SECTION");
    archive.RequiredParameter(AsQuantity<ForcePerUnitAreaPhenomenon>(SIGSRF), "SIGSRF", "VERTICAL STRESS AT SURFACE");
    archive.RequiredParameter(AsQuantity<ForcePerUnitAreaPhenomenon>(DPEMB), "DPEMB", "VERTICAL STRESS UNDER EMBANKMENT LOADING");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(AEMB), "AEMB", "WIDTH A OF EMBANKMENT SLOPING PART");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(BEMB), "BEMB", "PILE POSITION W.R.T. EMBANKMENT TOE (POSITIVE OUTSIDE)");
    archive.RequiredParameter(AsQuantity<ForcePerUnitAreaPhenomenon>(DPCIRC), "DPCIRC", "VERTICAL STRESS UNDER CIRCULAR LOADED AREA");
    archive.RequiredParameter(AsQuantity<LengthPhenomenon>(RADIUS), "RADIUS", "RADIUS OF CIRCULAR LOADED AREA (PILE IS IN CENTER)");
    int NUMFRC = static_cast<int>(pointForces.size());
    archive.RequiredParameter(NUMFRC, "NUMFRC", "NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE");
    // Each vector has a line of its own even when NUMFRC is 0: the generator
    // reads one line per vector whatever its length.
    const std::size_t count = NUMFRC > 0 ? static_cast<std::size_t>(NUMFRC) : 0;
    archive.Vector(Column("pointForces", AsQuantity<ForcePhenomenon>(pointForces)), count, "POINT FORCE VALUES");
    archive.Vector(Column("distances", distances), count, "HORIZONTAL DISTANCE TO PILE AXIS");
}

#define INSTANTIATE(Archive) template void LoadsAtSoilSurfaceSection::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
