#pragma once

// What the file format allows but no sound soil profile holds: a profile
// that imports may still hold layers that run upwards, a numbering with
// gaps, curves whose displacements go back, or a modification section that
// leaves a layer without factors, so that a generator run on it fails or,
// worse, answers something else than the engineer meant. Each finding names
// the line of the record it comes from, so that it can be fixed there.

#include <cstdint>
#include <string>
#include <vector>

#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

// How a finding is mended, where one edit of the profile does it (see
// Mend): a count of the control section set to what its table holds,
// or a row of factors 1 added at the end of a modification section for the
// layers that no row covers (LAY1 and LAY2 those layers, DIAM 0: every pile
// diameter that no row above it covers).
struct Mending {
    enum class Kind { None, SetCount, AddModificationRow };

    Kind kind;
    // The count's name (NUMLAY) or the modification section's title.
    std::string name;
    // The count's new value, or the first and last layer of the row.
    long long value;
    int firstLayer;
    int lastLayer;
};

struct SoundnessFinding {
    // An error makes the profile mean nothing sound or makes a query fail;
    // a warning is legal and answered, but likely not what was meant.
    enum class Severity { Error, Warning };

    std::uint64_t line;  // of the record, parameter or section; 0 when not read
    Severity severity;
    std::string text;
    Mending mending;
};

// Every finding of the profile, in the order of the file's sections:
// - counts of the control section that disagree with their tables
//   (FindInconsistencies);
// - units the profile was read in that its unit weight of water and
//   atmospheric pressure do not fit (warning; only when units were given);
// - version 4 layer divisions that run backwards, overlap or leave a gap in
//   the numbering of the layers;
// - layer bottoms (ZBOTM) that do not grow downwards from the soil surface;
// - version 4 level rows of the skin friction table out of depth order
//   (warning: lookups then follow file order);
// - pile diameters that do not increase;
// - manual curves whose displacements do not increase;
// - whatever makes GetLayers(true), or an answer of a layer it gives, fail:
//   a numbered layer and pile diameter that no P-Y, T-Z or Q-Z modification
//   row covers, a code 0 without its manual curve, a layer whose soil
//   properties the file does not give, divisions too many to split;
// - values that are NaN or infinite.
// `lines` are the profile's source lines as the import noted them.
// Counts that disagree with their tables and P-Y, T-Z and Q-Z layers that no
// modification row covers come with their mending.
std::vector<SoundnessFinding> FindUnsoundValues(const Terrix& profile, const SourceLines& lines);

// Makes the edit of the profile that mends a finding; false, with the
// profile as it was, for a finding without one.
bool Mend(Terrix& profile, const Mending& mending);

}  // namespace TerrixExchange
