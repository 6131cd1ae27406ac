#pragma once

#include <cstddef>
#include <tuple>

#include <TerrixExchange/sections/ModificationSection.h>

namespace TerrixExchange {

// The factors of one BS-Y (base shear) modification row, in column order.
// Default-built, and as defaultModification, it is the identity modification.
struct BSYModification : ModificationFactors<BSYModification> {
    TERRIX_ALLOCATION_OPERATORS

    static const BSYModification defaultModification;

    double BS_FCT = 1.0;  // factor on the BS values
    double Y_FCT = 1.0;   // factor on the Y values

    // The factors under their column titles.
    template <class Self>
    static auto Columns(Self& modification) {
        return std::make_tuple(Column("BS-FCT", modification.BS_FCT), Column("Y-FCT", modification.Y_FCT));
    }
};

inline const BSYModification BSYModification::defaultModification{};

// "BS-Y (BASE SHEAR) DATA MODIFICATION SECTION".
struct BSYModificationRows {
    TERRIX_ALLOCATION_OPERATORS

    using Modification = BSYModification;
    static constexpr const char* title = "BS-Y (BASE SHEAR) DATA MODIFICATION SECTION";
    static constexpr const char* header = "LAY1   LAY2   DIAM   BS-FCT Y-FCT";
    // The rows are written in the archive's column width.
    static constexpr int columnWidth = 0;
    // A layer and diameter without a row keeps its curve as it is.
    static constexpr const char* missingModification = nullptr;
};

using BSYBaseShearDataModificationSectionRecord = BasicModificationSectionRecord<BSYModificationRows>;

class BSYBaseShearDataModificationSection : public BasicModificationSection<BSYModificationRows> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // The first row that covers the layer, whatever its diameter.
    using BasicModificationSection::GetModificationForLayer;

    // Read and written only when the control section gives the count of its
    // manual section, right after that section.
    template <class Archive>
    void Serialize(Archive& archive);
};

}  // namespace TerrixExchange
