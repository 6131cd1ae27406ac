#pragma once

#include <cstddef>
#include <tuple>

#include <TerrixExchange/sections/ModificationSection.h>

namespace TerrixExchange {

// The factors of one Q-Z (pile tip resistance) modification row, in column order.
// Default-built, and as defaultModification, it is the identity modification.
struct QzModification : ModificationFactors<QzModification> {
    TERRIX_ALLOCATION_OPERATORS

    static const QzModification defaultModification;

    double CMP_FCT = 1.0;    // factor on the tip resistance in compression
    double TNS_FCT = 1.0;    // factor on the tip resistance in tension
    double QZZ_FCT = 1.0;    // factor on the Z values
    double Q_RES_FCT = 1.0;  // factor on the residual Q value
    double Z_RES_FCT = 1.0;  // factor on the Z value of the residual

    // The factors under their column titles.
    template <class Self>
    static auto Columns(Self& modification) {
        return std::make_tuple(Column("CMP-FCT", modification.CMP_FCT), Column("TNS-FCT", modification.TNS_FCT),
                               Column("QZZ-FCT", modification.QZZ_FCT), Column("Q-RES-FCT", modification.Q_RES_FCT),
                               Column("Z-RES-FCT", modification.Z_RES_FCT));
    }
};

inline const QzModification QzModification::defaultModification{};

// "Q-Z (PILE TIP RESISTANCE) DATA MODIFICATION SECTION".
struct QzModificationRows {
    TERRIX_ALLOCATION_OPERATORS

    using Modification = QzModification;
    static constexpr const char* title = "Q-Z (PILE TIP RESISTANCE) DATA MODIFICATION SECTION";
    static constexpr const char* header = "LAY1   LAY2   DIAM   CMP-FCT TNS-FCT QZZ-FCT Q-RES-FCT Z-RES-FCT";
    // The rows are written in the archive's column width.
    static constexpr int columnWidth = 0;
    // Every curve of this kind is modified: a layer and diameter without a
    // row is an error.
    static constexpr const char* missingModification = "Unable to find QZ modifications";
};

using QzPileTipResistanceDataModificationSectionRecord = BasicModificationSectionRecord<QzModificationRows>;

class QzPileTipResistanceDataModificationSection : public BasicModificationSection<QzModificationRows> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // The profile passes its numbers of layers and pile diameters; the rows
    // themselves say which layers and diameters they cover.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t layerCount, std::size_t diameterCount);
};

}  // namespace TerrixExchange
