#pragma once

#include <utility>
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

// What a column's number means when the file's units change. A column that
// carries a dimension is converted like any quantity; but the format keeps
// some dimensioned columns as plain numbers (the file does not say in which
// units they stand, so they are read and written as they are), and a column
// may be tied to the length unit by its very name (SU.Z=100 is the strength
// at level 100 in the file's length unit).
enum class ColumnMeaning { Converted, KeptAsWritten, AtLevelInLengthUnit };

// A field of a line with its name: the column title of a table as the file's
// header line spells it (a two-line heading as "SKINC TOP"), or the name of
// a vector. The text archives read and write the field and ignore the name;
// a describing archive keys the value by it. Field is a reference to the
// member, or a wrapper such as Dimensioned held by value.
template <class Field>
struct NamedField {
    const char* name;
    Field field;
    ColumnMeaning meaning;
};

template <class Field>
NamedField<Field> Column(const char* name, Field&& field) {
    return NamedField<Field>{name, std::forward<Field>(field), ColumnMeaning::Converted};
}

// A column that carries a dimension which the format keeps as a plain number.
template <class Field>
NamedField<Field> PlainNumber(const char* name, Field&& field) {
    return NamedField<Field>{name, std::forward<Field>(field), ColumnMeaning::KeptAsWritten};
}

// A column whose meaning is tied to a level in the file's length unit.
template <class Field>
NamedField<Field> AtLevelInLengthUnit(const char* name, Field&& field) {
    return NamedField<Field>{name, std::forward<Field>(field), ColumnMeaning::AtLevelInLengthUnit};
}

// One layout of a table that the text tells only by its lines (the main
// layer table with or without its last column AK): the value a section keeps
// for it, and the name under which the JSON archives write it.
struct LayoutName {
    int value;
    const char* name;
};

}  // namespace TerrixExchange
