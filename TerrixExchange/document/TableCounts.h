#pragma once

#include <cstddef>

#include <TerrixExchange/document/TerrixInputData.h>
#include <TerrixExchange/document/Version.h>

namespace TerrixExchange {

// How many records the tables of a profile are read with. The file holds no
// count beside most tables: the control section's counts and the sections
// read before a table say how many of its records follow. Reading a profile
// and checking that a profile can be read back work them out alike.

// A count of the file as a number of records to read: a negative count
// reads none.
inline std::size_t RecordCount(long long count) { return count > 0 ? static_cast<std::size_t>(count) : 0; }

// The curves the manual P-Y, T-Z and Q-Z sections are read with: one per
// manual layer of the layer-division section of the version and pile
// diameter.
struct ManualCurveCounts {
    std::size_t py = 0;
    std::size_t tz = 0;
    std::size_t qz = 0;
};

inline ManualCurveCounts CountManualCurves(const TerrixInputData& data, Version version) {
    const std::size_t diameters = data.pileDiametersAndGroupEffectsSection.diameters.size();
    if (version == Version::V5) {
        const MainLayersSubdivisionAndPyTzQzCodesSection& codes = data.mainLayersSubdivisionAndPyTzQzCodesSection;
        return {RecordCount(codes.GetManualPYRecordCount()) * diameters,
                RecordCount(codes.GetManualTZRecordCount()) * diameters,
                RecordCount(codes.GetManualQZRecordCount()) * diameters};
    }
    const SoilLayerDivisionsAndCodesForPyTzQzSection& codes = data.soilLayerDivisionsAndCodesForPyTzQzSection;
    return {codes.GetManualPYRecordCount() * diameters, codes.GetManualTZRecordCount() * diameters,
            codes.GetManualQZRecordCount() * diameters};
}

}  // namespace TerrixExchange
