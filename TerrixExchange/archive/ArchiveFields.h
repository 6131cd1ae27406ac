#pragma once

#include <vector>

#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// A number that the file writes in its own units but that a section keeps as
// a plain double: the archives convert it as a quantity of Phenomenon.
template <class Phenomenon>
struct Dimensioned {
    double& value;
};

// The same for every value of a vector of doubles (curve points, forces).
template <class Phenomenon>
struct DimensionedVector {
    std::vector<double>& values;
};

// All the numbers that remain on a record's line, however many there are
// (none included): a last group of columns whose number the file leaves
// open. Held as read, never converted.
struct ValuesToEndOfLine {
    std::vector<double>& values;
};

inline ValuesToEndOfLine ToEndOfLine(std::vector<double>& values) { return ValuesToEndOfLine{values}; }

template <class Phenomenon>
Dimensioned<Phenomenon> AsQuantity(double& value) {
    return Dimensioned<Phenomenon>{value};
}

template <class Phenomenon>
DimensionedVector<Phenomenon> AsQuantity(std::vector<double>& values) {
    return DimensionedVector<Phenomenon>{values};
}

}  // namespace TerrixExchange
