#include "PlainNumberColumns.h"

#include <functional>

#include <boost/optional.hpp>

namespace TerrixTool {

using namespace TerrixExchange;

namespace {

// Collects the columns of one table: a column is named when any record
// holds a non-zero value in it.
template <class Record>
class TableColumns {
public:
    TableColumns(const std::string& section, const std::vector<Record>& records,
                 std::vector<PlainNumberColumn>& columns)
        : section_(section), records_(records), columns_(columns) {}

    TableColumns& Column(const std::string& column, const std::function<double(const Record&)>& value) {
        for (const Record& record : records_) {
            if (value(record) != 0.0) {
                columns_.push_back(PlainNumberColumn{section_, column});
                break;
            }
        }
        return *this;
    }

private:
    std::string section_;
    const std::vector<Record>& records_;
    std::vector<PlainNumberColumn>& columns_;
};

template <class Record>
TableColumns<Record> Table(const std::string& section, const std::vector<Record>& records,
                           std::vector<PlainNumberColumn>& columns) {
    return TableColumns<Record>(section, records, columns);
}

double ValueOr0(const boost::optional<double>& value) { return value ? *value : 0.0; }

const char* const skinFrictionTitle = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";

// Version 4: skin friction, shear modulus and tip resistance per level.
void SkinFrictionAndTipResistanceV4Columns(const SkinFrictionAndTipResistanceSectionV4& section,
                                           std::vector<PlainNumberColumn>& columns) {
    using Record = SkinFrictionAndTipResistanceSectionV4Record;
    Table(skinFrictionTitle, section.records, columns)
        .Column("SKIN-CMP", [](const Record& r) { return r.SKIN_CMP; })
        .Column("SKIN-TNS", [](const Record& r) { return r.SKIN_TNS; })
        .Column("G0-SOIL", [](const Record& r) { return ValueOr0(r.G0_SOIL); })
        .Column("SIG-TIP", [](const Record& r) { return r.SIG_TIP; });
}

// Version 5: unit weight, CPT values, shear strength and initial modulus
// per main layer.
void SoilMainLayersAndPropertiesColumns(const SoilMainLayersAndPropertiesSection& section,
                                        std::vector<PlainNumberColumn>& columns) {
    using Record = SoilMainLayersAndPropertiesSectionRecord;
    Table("SOIL MAIN LAYERS AND PROPERTIES SECTION", section.records, columns)
        .Column("GAMTOT", [](const Record& r) { return r.GAMTOT; })
        .Column("CPTTOP", [](const Record& r) { return r.CPTTOP; })
        .Column("CPTBOT", [](const Record& r) { return r.CPTBOT; })
        .Column("SUTOP", [](const Record& r) { return r.SUTOP; })
        .Column("SUBOT", [](const Record& r) { return r.SUBOT; })
        .Column("AK", [](const Record& r) { return r.AK; });
}

// Version 5: skin friction and tip resistance per main layer.
void SkinFrictionAndTipResistanceV5Columns(const SkinFrictionAndTipResistanceSectionV5& section,
                                           std::vector<PlainNumberColumn>& columns) {
    using Record = SkinFrictionAndTipResistanceSectionV5Record;
    Table(skinFrictionTitle, section.records, columns)
        .Column("SKINC TOP", [](const Record& r) { return r.SKINC_TOP; })
        .Column("SKINC BOT", [](const Record& r) { return r.SKINC_BOT; })
        .Column("SKINT TOP", [](const Record& r) { return r.SKINT_TOP; })
        .Column("SKINT BOT", [](const Record& r) { return r.SKINT_BOT; })
        .Column("SIGTIP TOP", [](const Record& r) { return r.SIGTIP_TOP; })
        .Column("SIGTIP BOT", [](const Record& r) { return r.SIGTIP_BOT; })
        .Column("TZZRES", [](const Record& r) { return r.TZZRES; });
}

// Both versions: the gap that a P-Y modification row adds on the Y axis is
// a length; the other factors are ratios.
void PyModificationColumns(const PyLateralResistanceDataModificationSection& section,
                           std::vector<PlainNumberColumn>& columns) {
    using Record = PyLateralResistanceDataModificationSectionRecord;
    Table(PyModificationRows::title, section.records, columns)
        .Column("Y-GAP", [](const Record& r) { return r.modification.Y_GAP; });
}

}  // namespace

std::vector<PlainNumberColumn> NonZeroPlainNumberColumns(const Terrix& profile) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    std::vector<PlainNumberColumn> columns;
    if (profile.GetVersion() == Version::V4) {
        SkinFrictionAndTipResistanceV4Columns(data.skinFrictionAndTipResistanceSectionV4, columns);
    }
    if (profile.GetVersion() == Version::V5) {
        SoilMainLayersAndPropertiesColumns(data.soilMainLayersAndPropertiesSection, columns);
        SkinFrictionAndTipResistanceV5Columns(data.skinFrictionAndTipResistanceSectionV5, columns);
    }
    if (profile.GetVersion() == Version::V4 || profile.GetVersion() == Version::V5)
        PyModificationColumns(data.pyLateralResistanceDataModificationSection, columns);
    return columns;
}

}  // namespace TerrixTool
