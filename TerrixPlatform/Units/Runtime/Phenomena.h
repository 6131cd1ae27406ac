#pragma once

#include <TerrixPlatform/Units/Runtime/DynamicDimension.h>

namespace TerrixExchange { namespace Units { namespace Runtime {

// The phenomena of the soil profile, each with its dimension.
struct LengthPhenomenon { static constexpr DynamicDimension dimension{0, 1}; };
struct ForcePhenomenon { static constexpr DynamicDimension dimension{1, 0}; };
struct MomentPhenomenon { static constexpr DynamicDimension dimension{1, 1}; };
struct StressPhenomenon { static constexpr DynamicDimension dimension{1, -2}; };
struct ForcePerUnitAreaPhenomenon { static constexpr DynamicDimension dimension{1, -2}; };
struct ForcePerUnitVolumePhenomenon { static constexpr DynamicDimension dimension{1, -3}; };
// Angles are held in radians and never converted between unit systems.
struct AnglePhenomenon { static constexpr DynamicDimension dimension{0, 0}; };
struct DimensionlessPhenomenon { static constexpr DynamicDimension dimension{0, 0}; };

}}}  // namespace TerrixExchange::Units::Runtime
