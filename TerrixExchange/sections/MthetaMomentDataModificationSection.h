#pragma once

#include <cstddef>
#include <tuple>

#include <TerrixExchange/sections/ModificationSection.h>

namespace TerrixExchange {

// The factors of one M-theta (distributed moment) modification row, in column order.
// Default-built, and as defaultModification, it is the identity modification.
struct MThetaModification : ModificationFactors<MThetaModification> {
    TERRIX_ALLOCATION_OPERATORS

    static const MThetaModification defaultModification;

    double M_FCT = 1.0;      // factor on the M values
    double THETA_FCT = 1.0;  // factor on the THETA values

    // The factors under their column titles.
    template <class Self>
    static auto Columns(Self& modification) {
        return std::make_tuple(Column("M-FCT", modification.M_FCT), Column("THETA-FCT", modification.THETA_FCT));
    }
};

inline const MThetaModification MThetaModification::defaultModification{};

// "M-THETA (DISTRIBUTED MOMENT) DATA MODIFICATION SECTION".
struct MThetaModificationRows {
    TERRIX_ALLOCATION_OPERATORS

    using Modification = MThetaModification;
    static constexpr const char* title = "M-THETA (DISTRIBUTED MOMENT) DATA MODIFICATION SECTION";
    static constexpr const char* header = "LAY1   LAY2   DIAM   M-FCT THETA-FCT";
    // The rows are written in the archive's column width.
    static constexpr int columnWidth = 0;
    // A layer and diameter without a row keeps its curve as it is.
    static constexpr const char* missingModification = nullptr;
};

using MthetaMomentDataModificationSectionRecord = BasicModificationSectionRecord<MThetaModificationRows>;

class MthetaMomentDataModificationSection : public BasicModificationSection<MThetaModificationRows> {
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
