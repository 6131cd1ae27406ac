#pragma once

#include <stdexcept>

#include <TerrixExchange/document/Version.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

// What the profile's queries share: the choice of a source by format
// version, the lookup of a layer's record, and angles given in degrees.
namespace TerrixExchange {
namespace QuerySupport {

// The value of `fromVersion4` for a version 4 profile and of `fromVersion5`
// for a version 5 profile. The two versions keep a layer's properties in
// different tables; any other version has neither, which is the
// std::runtime_error "Unknown TERRIX version".
template <class FromVersion4, class FromVersion5>
auto ByVersion(Version version, FromVersion4 fromVersion4, FromVersion5 fromVersion5) -> decltype(fromVersion4()) {
    if (version == Version::V4) return fromVersion4();
    if (version == Version::V5) return fromVersion5();
    throw std::runtime_error("Unknown TERRIX version");
}

// The first record of `section` for the layer (what the section's own
// FindLayer finds). A layer that no record describes is the
// std::runtime_error "Unknown layer".
template <class Lookup, class Section>
const auto& FindLayerRecord(const Lookup& lookup, const Section& section, const Layer& layer) {
    const auto record = lookup.Find(section, layer);
    if (record == section.records.end()) throw std::runtime_error("Unknown layer");
    return *record;
}

// The file gives friction angles and slopes in degrees; the library holds
// angles in radians. One degree is pi / 180 radians.
constexpr double radiansPerDegree = 0.017453292519943295;

inline Units::Runtime::Quantity<Units::Runtime::AnglePhenomenon> FromDegrees(double degrees) {
    return Units::Runtime::Quantity<Units::Runtime::AnglePhenomenon>(degrees * radiansPerDegree);
}

// A value that the file keeps as a plain number, handed out as the quantity
// the query promises, without a unit factor.
template <class Phenomenon>
Units::Runtime::Quantity<Phenomenon> AsStored(double value) {
    return Units::Runtime::Quantity<Phenomenon>(value);
}

}  // namespace QuerySupport
}  // namespace TerrixExchange
