#include <TerrixExchange/sections/ManualMthetaMomentDataSection.h>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

template <class Archive>
void ManualMthetaMomentDataSection::Serialize(Archive& archive, std::size_t count) {
    SerializeSection(archive, count);
}

#define INSTANTIATE(Archive) template void ManualMthetaMomentDataSection::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
