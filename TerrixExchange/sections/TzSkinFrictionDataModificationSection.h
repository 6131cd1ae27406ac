#pragma once

#include <cstddef>
#include <tuple>

#include <TerrixExchange/sections/ModificationSection.h>

namespace TerrixExchange {

// The factors of one T-Z (skin friction) modification row, in column order.
// Default-built, and as defaultModification, it is the identity modification.
struct TzModification : ModificationFactors<TzModification> {
    TERRIX_ALLOCATION_OPERATORS

    static const TzModification defaultModification;

    double CMP_FCT = 1.0;    // factor on the skin friction in compression
    double TNS_FCT = 1.0;    // factor on the skin friction in tension
    double TZZ_FCT = 1.0;    // factor on the Z values
    double T_RES_FCT = 1.0;  // factor on the residual T value
    double Z_RES_FCT = 1.0;  // factor on the Z value of the residual

    // The factors under their column titles.
    template <class Self>
    static auto Columns(Self& modification) {
        return std::make_tuple(Column("CMP-FCT", modification.CMP_FCT), Column("TNS-FCT", modification.TNS_FCT),
                               Column("TZZ-FCT", modification.TZZ_FCT), Column("T-RES-FCT", modification.T_RES_FCT),
                               Column("Z-RES-FCT", modification.Z_RES_FCT));
    }
};

inline const TzModification TzModification::defaultModification{};

// "T-Z (SKIN FRICTION) DATA MODIFICATION SECTION".
struct TzModificationRows {
    TERRIX_ALLOCATION_OPERATORS

    using Modification = TzModification;
    static constexpr const char* title = "T-Z (SKIN FRICTION) DATA MODIFICATION SECTION";
    static constexpr const char* header = "LAY1   LAY2   DIAM   CMP-FCT TNS-FCT TZZ-FCT T-RES-FCT Z-RES-FCT";
    // The rows are written in the archive's column width.
    static constexpr int columnWidth = 0;
    // Every curve of this kind is modified: a layer and diameter without a
    // row is an error.
    static constexpr const char* missingModification = "Unable to find TZ modifications";
};

using TzSkinFrictionDataModificationSectionRecord = BasicModificationSectionRecord<TzModificationRows>;

class TzSkinFrictionDataModificationSection : public BasicModificationSection<TzModificationRows> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // The first row that covers the layer, whatever its diameter.
    using BasicModificationSection::GetModificationForLayer;

    // The profile passes its numbers of layers and pile diameters; the rows
    // themselves say which layers and diameters they cover.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t layerCount, std::size_t diameterCount);
};

}  // namespace TerrixExchange
