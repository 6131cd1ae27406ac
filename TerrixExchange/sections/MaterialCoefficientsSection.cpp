#include <TerrixExchange/sections/MaterialCoefficientsSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void MaterialCoefficientsSection::Serialize(Archive& archive) {
    const auto guard = archive.BeginSection("MATERIAL COEFFICIENTS SECTION");
    archive.RequiredParameter(SFTPHI, "SFTPHI", "MATERIAL COEFFICIENT ON TAN(PHI)");
    archive.RequiredParameter(SFSU, "SFSU", "MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH");
    archive.RequiredParameter(SFSKF, "SFSKF", "MATERIAL COEFFICIENT ON PILE SKIN FRICTION");
    archive.RequiredParameter(SFSIGT, "SFSIGT", "MATERIAL COEFFICIENT ON PILE TIP RESISTANCE");
}

#define INSTANTIATE(Archive) template void MaterialCoefficientsSection::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
