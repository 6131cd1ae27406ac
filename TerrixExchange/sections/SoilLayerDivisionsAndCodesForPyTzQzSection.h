#pragma once

// PLACEHOLDER: to be replaced by the section's real class.
#include <cstddef>
#include <vector>

#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

class SoilLayerDivisionsAndCodesForPyTzQzSection {
public:
    template <class Archive>
    void Serialize(Archive& archive, std::size_t layerCount) {}
    std::size_t GetManualPYRecordCount() const { return 0; }
    std::size_t GetManualTZRecordCount() const { return 0; }
    std::size_t GetManualQZRecordCount() const { return 0; }
};

}  // namespace TerrixExchange
