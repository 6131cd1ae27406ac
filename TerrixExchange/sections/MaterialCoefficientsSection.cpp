#include <TerrixExchange/sections/MaterialCoefficientsSection.h>

#include <TerrixExchange/archive/JsonArchive.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

namespace TerrixExchange {

template <class Archive>
void MaterialCoefficientsSection::Serialize(Archive& archive) {
    const auto guard = archive.BeginSection("MATERIAL COEFFICIENTS SECTION");
    archive.RequiredParameter(SFTPHI, "SFTPHI", "MATERIAL COEFFICIENT ON TAN(PHI)");
    archive.RequiredParameter(SFSU, "SFSU", "MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH");
    archive.RequiredParameter(SFSKF, "SFSKF", "MATERIAL COEFFICIENT ON PILE SKIN FRICTION");
    archive.RequiredParameter(SFSIGT, "SFSIGT", "MATERIAL COEFFICIENT ON PILE TIP RESISTANCE");
}

template void MaterialCoefficientsSection::Serialize(Importer&);
template void MaterialCoefficientsSection::Serialize(Exporter&);
template void MaterialCoefficientsSection::Serialize(JsonArchive&);

bool operator==(const MaterialCoefficientsSection& left, const MaterialCoefficientsSection& right) {
    return left.SFTPHI == right.SFTPHI && left.SFSU == right.SFSU && left.SFSKF == right.SFSKF &&
           left.SFSIGT == right.SFSIGT;
}

bool operator!=(const MaterialCoefficientsSection& left, const MaterialCoefficientsSection& right) {
    return !(left == right);
}

}  // namespace TerrixExchange
