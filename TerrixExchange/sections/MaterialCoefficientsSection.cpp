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



}  // namespace TerrixExchange
