#pragma once

// Values of the library (database units: N and m, radians) as an engineer
// reads them: in the units of the file a profile came from, with as few
// digits as make the number. show and report print through this, so the
// two always write a value alike.

#include <cstddef>
#include <string>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

#include "Json.h"

namespace TerrixTool {

using TerrixExchange::Units::Runtime::DynamicDimension;

const double degreesPerRadian = 180.0 / 3.14159265358979323846;

// Table cells take 9 characters, so that a column of numbers stays narrow
// whatever the file holds; other values take 12, room for six digits.
const std::size_t cellWidth = 9;
const std::size_t valueWidth = 12;

const DynamicDimension none{0, 0};
const DynamicDimension length = TerrixExchange::Units::Runtime::LengthPhenomenon::dimension;
const DynamicDimension force = TerrixExchange::Units::Runtime::ForcePhenomenon::dimension;
const DynamicDimension moment = TerrixExchange::Units::Runtime::MomentPhenomenon::dimension;
const DynamicDimension stress = TerrixExchange::Units::Runtime::StressPhenomenon::dimension;
const DynamicDimension unitWeight = TerrixExchange::Units::Runtime::ForcePerUnitVolumePhenomenon::dimension;

// A number for people: the shortest text that reads back as the same double
// when it fits `width` characters, in plain decimals if they fit; else
// rounded to at most six significant digits, as few as it takes to fit.
std::string Compact(double value, std::size_t width);

bool IsError(const Json& answer);
bool IsFiniteNumber(const Json& value);
// A value of the dump that is not a finite number: "-" for an absent one,
// NaN and the infinities as the dump spells them, a text as it stands, "yes"
// or "no", and "" for a failed answer, whose error is shown apart.
std::string Other(const Json& value);
// "error: MESSAGE" of a failed answer.
std::string ErrorText(const Json& answer);
// An angle of the dump (radians) in degrees.
std::string Degrees(const Json& answer, std::size_t width = cellWidth);

// The units of the file a profile was read from, and its values in them.
class FileUnits {
public:
    explicit FileUnits(const TerrixExchange::Terrix& profile);
    explicit FileUnits(const TerrixExchange::Units::Runtime::UnitSystem& units);

    // "m", "kN", "kN/m2", "kN/m3": the unit of a dimension in these units.
    std::string Name(DynamicDimension dimension) const;
    // A value of the profile (database units) in the file's units.
    double Convert(double value, DynamicDimension dimension) const { return toFile_.Convert(value, dimension); }
    // A number of the profile (database units) as the file writes it.
    std::string Number(double value, DynamicDimension dimension, std::size_t width = cellWidth) const {
        return Compact(Convert(value, dimension), width);
    }
    // A number of the dump so; "-" for an absent value, "" for a failed
    // answer (whose error is told apart).
    std::string Number(const Json& value, DynamicDimension dimension, std::size_t width = cellWidth) const;
    // An answer with its unit: "12 m", "-" when absent, the error in full.
    std::string Value(const Json& answer, DynamicDimension dimension) const;

private:
    TerrixExchange::Units::Runtime::UnitSystem units_;
    TerrixExchange::Units::Runtime::FastUnitConverter toFile_;
};

}  // namespace TerrixTool
