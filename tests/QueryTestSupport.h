#pragma once

// Helpers for the tests of the profile's queries: the example files as
// profiles, layers written out in full, and the message of a failed query.

#include <cstdint>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>

#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "TestSupport.h"

namespace TerrixExchange {

// Layers print as "{main, first, count, top, bottom}" in failure messages.
inline void PrintTo(const Layer& layer, std::ostream* out) {
    *out << "{" << layer.mainLayer << ", " << layer.firstLayer << ", " << layer.layerCount << ", "
         << layer.zTop.GetValue() << ", " << layer.zBottom.GetValue() << "}";
}

namespace Testing {

using Stress = Units::Runtime::Quantity<Units::Runtime::StressPhenomenon>;

inline Terrix ImportedText(const std::string& text, const std::string& forceUnit = "kN",
                           const std::string& lengthUnit = "m") {
    std::istringstream stream(text);
    Terrix profile;
    profile.Import(stream, forceUnit, lengthUnit);
    return profile;
}

// An example of examples/, read in kN and m unless told otherwise.
inline Terrix ExampleProfile(const std::string& name, const std::string& forceUnit = "kN",
                             const std::string& lengthUnit = "m") {
    return ImportedText(ExampleFileText(name), forceUnit, lengthUnit);
}

inline Layer MakeLayer(std::int32_t mainLayer, std::int32_t firstLayer, std::uint64_t layerCount, double zTop,
                       double zBottom) {
    return Layer{mainLayer, firstLayer, layerCount, Length(zTop), Length(zBottom)};
}

// A table of quantities as plain numbers (database units), so that a
// failure prints it.
template <class Key, class Value>
std::map<double, double> Numbers(const std::map<Key, Value>& table) {
    std::map<double, double> numbers;
    for (const auto& entry : table) numbers[entry.first.GetValue()] = entry.second.GetValue();
    return numbers;
}

// The message of the std::runtime_error that `query` throws; fails the test
// when it throws nothing.
inline std::string QueryErrorOf(const std::function<void()>& query) {
    try {
        query();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    ADD_FAILURE() << "expected a std::runtime_error, got none";
    return "";
}

}  // namespace Testing
}  // namespace TerrixExchange
