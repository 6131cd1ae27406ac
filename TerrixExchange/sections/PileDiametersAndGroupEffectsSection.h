#pragma once

// PLACEHOLDER: to be replaced by the section's real class.
#include <cstddef>
#include <vector>

#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

class PileDiametersAndGroupEffectsSection {
public:
    template <class Archive>
    void Serialize(Archive& archive, bool isVersion5) {}
    std::vector<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>> diameters;
};

}  // namespace TerrixExchange
