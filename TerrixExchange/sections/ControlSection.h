#pragma once

#include <string>
#include <tuple>

#include <boost/optional.hpp>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/document/Version.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// "CONTROL SECTION": the first section of a profile. Its counts size the
// tables of later sections, which hold no count of their own.
class ControlSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const {
        return std::tie(version, profileName, CONFRC, CONLTH, NUMTYP, NUMTQZ, NUMLAY, MIDBOT, NUMLAYM, NUMDSP, GAMMAW,
                        ATMPRS, ZCYCL, SUSTIF, JPRINT, JECHO, NUMDM, NUMBS, NUMBM);
    }

    explicit ControlSection(Version version = Version::V4);

    // Whether the file gives the optional counts NUMDM, NUMBS and NUMBM; a
    // count given as 0 still counts as given.
    bool HasDMData() const { return NUMDM.has_value(); }
    bool HasBSData() const { return NUMBS.has_value(); }
    bool HasBMData() const { return NUMBM.has_value(); }

    template <class Archive>
    void Serialize(Archive& archive);

    // The format version; it chooses the lines of the section.
    Version version;
    // Version 5: the name of the soil profile (at most 10 characters by the
    // format's own comment; not cut or checked).
    std::string profileName;
    double CONFRC = 0.0;
    double CONLTH = 0.0;
    int NUMTYP = 0;   // version 4
    int NUMTQZ = 0;   // version 4
    int NUMLAY = 0;   // version 4
    int MIDBOT = 1;   // version 4: 1 = layer midpoint, 2 = layer bottom
    int NUMLAYM = 0;  // version 5
    int NUMDSP = 0;
    Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> GAMMAW;
    Units::Runtime::Quantity<Units::Runtime::StressPhenomenon> ATMPRS;
    // A level (converted as a length) and an undrained shear strength
    // (converted as a force per area), held in database units.
    double ZCYCL = 0.0;
    double SUSTIF = 0.0;
    int JPRINT = 0;
    int JECHO = 0;
    boost::optional<int> NUMDM;
    boost::optional<int> NUMBS;
    boost::optional<int> NUMBM;
};

// Member by member, exactly.

}  // namespace TerrixExchange
