#pragma once

// PLACEHOLDER: to be replaced by the section's real class.
#include <cstddef>
#include <vector>

#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

class BSYBaseShearDataModificationSection {
public:
    template <class Archive>
    void Serialize(Archive& archive) {}
    
};

}  // namespace TerrixExchange
