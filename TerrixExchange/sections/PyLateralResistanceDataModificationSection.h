#pragma once

#include <cstddef>
#include <tuple>

#include <TerrixExchange/sections/ModificationSection.h>

namespace TerrixExchange {

// The factors of one P-Y (lateral resistance) modification row, in column order.
// Default-built, and as defaultModification, it is the identity modification.
struct PyModification : ModificationFactors<PyModification> {
    TERRIX_ALLOCATION_OPERATORS

    static const PyModification defaultModification;

    double P_FACT = 1.0;      // factor on the P values
    double Y_FACT = 1.0;      // factor on the Y values
    double Y_GAP = 0.0;       // gap added on the Y axis
    double P_PEAK_FCT = 1.0;  // factor on the peak P value
    double P_RES_FCT = 1.0;   // factor on the residual P value
    double Y_RES_FCT = 1.0;   // factor on the Y value of the residual

    // The factors under their column titles; the gap is a length that the
    // format keeps as a plain number.
    template <class Self>
    static auto Columns(Self& modification) {
        return std::make_tuple(Column("P-FACT", modification.P_FACT), Column("Y-FACT", modification.Y_FACT),
                               PlainNumber("Y-GAP", modification.Y_GAP),
                               Column("P-PEAK-FCT", modification.P_PEAK_FCT),
                               Column("P-RES-FCT", modification.P_RES_FCT),
                               Column("Y-RES-FCT", modification.Y_RES_FCT));
    }
};

inline const PyModification PyModification::defaultModification{};

// "P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION".
struct PyModificationRows {
    TERRIX_ALLOCATION_OPERATORS

    using Modification = PyModification;
    static constexpr const char* title = "P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION";
    static constexpr const char* header = "LAY1   LAY2   DIAM   P-FACT Y-FACT Y-GAP  P-PEAK-FCT P-RES-FCT Y-RES-FCT";
    // The rows stand under the header's 7-character column names.
    static constexpr int columnWidth = 7;
    // Every curve of this kind is modified: a layer and diameter without a
    // row is an error.
    static constexpr const char* missingModification = "Unable to find PY modifications";
};

using PyLateralResistanceDataModificationSectionRecord = BasicModificationSectionRecord<PyModificationRows>;

class PyLateralResistanceDataModificationSection : public BasicModificationSection<PyModificationRows> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // The profile passes its numbers of layers and pile diameters; the rows
    // themselves say which layers and diameters they cover.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t layerCount, std::size_t diameterCount);
};

}  // namespace TerrixExchange
