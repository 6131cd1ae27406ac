#include <TerrixExchange/sections/PileDiametersAndGroupEffectsSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

using namespace Units::Runtime;

template <class Archive>
void PileDiametersAndGroupEffectsSection::Serialize(Archive& archive, bool isVersion5) {
    const auto guard = archive.BeginSection("PILE DIAMETERS AND GROUP EFFECTS SECTION");
    int NUMDIA = static_cast<int>(diameters.size());
    archive.RequiredParameter(NUMDIA, "NUMDIA", "NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED");
    archive.Vector(Column("diameters", diameters), NUMDIA > 0 ? NUMDIA : 0, "DIAMETERS IN INCREASING ORDER");
    archive.RequiredParameter(AsQuantity<ForcePerUnitAreaPhenomenon>(ESOL0), "ESOL0", "E-SOIL FOR GROUP EFFECT CALCULATION :");
    archive.RequiredParameter(AsQuantity<ForcePerUnitVolumePhenomenon>(ESOL1), "ESOL1", "     ESOIL(Z) = ESOL0 + ESOL1*Z");
    if (isVersion5)
        archive.RequiredParameter(EVHRAT, "EVHRAT", "     RATIO EV(Z) / EH(Z), EV(Z) = E-SOIL FOR AXIAL GROUP EFFECT");
    archive.RequiredParameter(POSAVR, "POSAVR", "SOIL AVERAGE POISSON RATIO FOR GROUP EFFECTS");
}

#define INSTANTIATE(Archive) template void PileDiametersAndGroupEffectsSection::Serialize(Archive&, bool);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
