#pragma once

// PLACEHOLDER: to be replaced by the section's real class.
#include <cstddef>
#include <vector>

#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

class MainLayersSubdivisionAndPyTzQzCodesSection {
public:
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count) {}
    int GetManualPYRecordCount() const { return 0; }
    int GetManualTZRecordCount() const { return 0; }
    int GetManualQZRecordCount() const { return 0; }
};

}  // namespace TerrixExchange
