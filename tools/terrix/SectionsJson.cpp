#include "SectionsJson.h"

#include <sstream>
#include <stdexcept>
#include <tuple>

namespace TerrixTool {

using namespace TerrixExchange;

namespace {

// One function per section: the section's values under the names the file
// gives them, in the order of the file's lines. A table is "records", each
// record keyed by the column titles of the table's header line; where the
// header takes two lines, a column's title is its two words joined by one
// blank ("MAIN LAYER"), and a title broken after a slash is joined without
// one ("TRES/TMAX").

template <class Record, class RecordJson>
Json Records(const std::vector<Record>& records, RecordJson recordJson) {
    Json list = Json::array();
    for (const Record& record : records) list.push_back(recordJson(record));
    return list;
}

// The words of a header line, as the file separates them by blanks.
std::vector<std::string> Words(const std::string& line) {
    std::istringstream words(line);
    std::vector<std::string> list;
    for (std::string word; words >> word;) list.push_back(word);
    return list;
}

Json ControlSectionJson(const ControlSection& section) {
    Json json = Json::object();
    if (section.version == Version::V5) json["profileName"] = JsonText(section.profileName);
    json["CONFRC"] = JsonNumber(section.CONFRC);
    json["CONLTH"] = JsonNumber(section.CONLTH);
    if (section.version == Version::V4) {
        json["NUMTYP"] = section.NUMTYP;
        json["NUMTQZ"] = section.NUMTQZ;
        json["NUMLAY"] = section.NUMLAY;
        json["NUMDSP"] = section.NUMDSP;
        json["MIDBOT"] = section.MIDBOT;
    }
    if (section.version == Version::V5) {
        json["NUMLAYM"] = section.NUMLAYM;
        json["NUMDSP"] = section.NUMDSP;
    }
    json["GAMMAW"] = JsonNumber(section.GAMMAW);
    json["ATMPRS"] = JsonNumber(section.ATMPRS);
    json["ZCYCL"] = JsonNumber(section.ZCYCL);
    json["SUSTIF"] = JsonNumber(section.SUSTIF);
    json["JPRINT"] = section.JPRINT;
    json["JECHO"] = section.JECHO;
    json["NUMDM"] = JsonNumber(section.NUMDM);
    json["NUMBS"] = JsonNumber(section.NUMBS);
    json["NUMBM"] = JsonNumber(section.NUMBM);
    return json;
}

Json MaterialCoefficientsSectionJson(const MaterialCoefficientsSection& section) {
    return Json{{"SFTPHI", JsonNumber(section.SFTPHI)},
                {"SFSU", JsonNumber(section.SFSU)},
                {"SFSKF", JsonNumber(section.SFSKF)},
                {"SFSIGT", JsonNumber(section.SFSIGT)}};
}

// NUMDIA is written from the number of diameters, as the file holds it.
Json PileDiametersAndGroupEffectsSectionJson(const PileDiametersAndGroupEffectsSection& section, Version version) {
    Json json = Json::object();
    json["NUMDIA"] = JsonNumber(static_cast<std::uint64_t>(section.diameters.size()));
    json["diameters"] = JsonNumbers(section.diameters);
    json["ESOL0"] = JsonNumber(section.ESOL0);
    json["ESOL1"] = JsonNumber(section.ESOL1);
    if (version == Version::V5) json["EVHRAT"] = JsonNumber(section.EVHRAT);
    json["POSAVR"] = JsonNumber(section.POSAVR);
    return json;
}

Json SoilSurfaceAndGroundWaterSectionJson(const SoilSurfaceAndGroundWaterSection& section) {
    return Json{{"ZSURF", JsonNumber(section.ZSURF)},   {"SCRGEN", JsonNumber(section.SCRGEN)},
                {"SCRLOC", JsonNumber(section.SCRLOC)}, {"SLOPE", JsonNumber(section.SLOPE)},
                {"ZGRWT", JsonNumber(section.ZGRWT)},   {"GAMPWP", JsonNumber(section.GAMPWP)}};
}

// NUMFRC is written from the number of point forces, as the file holds it.
Json LoadsAtSoilSurfaceSectionJson(const LoadsAtSoilSurfaceSection& section) {
    return Json{{"SIGSRF", JsonNumber(section.SIGSRF)},
                {"DPEMB", JsonNumber(section.DPEMB)},
                {"AEMB", JsonNumber(section.AEMB)},
                {"BEMB", JsonNumber(section.BEMB)},
                {"DPCIRC", JsonNumber(section.DPCIRC)},
                {"RADIUS", JsonNumber(section.RADIUS)},
                {"NUMFRC", JsonNumber(static_cast<std::uint64_t>(section.pointForces.size()))},
                {"pointForces", JsonNumbers(section.pointForces)},
                {"distances", JsonNumbers(section.distances)}};
}

// Version 4.
Json SoilTypeAndPropertySectionJson(const SoilTypeAndPropertySection& section) {
    return Json{{"records", Records(section.records, [](const SoilTypeAndPropertySectionRecord& record) {
                     return Json{{"TYP", record.TYP},
                                 {"GAMTOT", JsonNumber(record.GAMTOT)},
                                 {"PHI", JsonNumber(record.PHI)},
                                 {"SU.Z=0", JsonNumber(record.SU_Z0)},
                                 {"SU.Z=100", JsonNumber(record.SU_Z100)},
                                 {"EPSC", JsonNumber(record.EPSC)},
                                 {"OCR", JsonNumber(record.OCR)},
                                 {"API-J", JsonNumber(record.API_J)},
                                 {"GAP", record.GAP},
                                 {"RPRAT", JsonNumber(record.RPRAT)},
                                 {"TZZRES", JsonNumber(record.TZZRES)}};
                 })}};
}

// Version 4: a level row without a shear modulus has G0-SOIL null.
Json SkinFrictionAndTipResistanceSectionV4Json(const SkinFrictionAndTipResistanceSectionV4& section) {
    return Json{{"ZONINF", JsonNumber(section.ZONINF)},
                {"RFTZ", JsonNumber(section.RFTZ)},
                {"records", Records(section.records, [](const SkinFrictionAndTipResistanceSectionV4Record& record) {
                     return Json{{"ZLEV", JsonNumber(record.ZLEV)},
                                 {"SKIN-CMP", JsonNumber(record.SKIN_CMP)},
                                 {"SKIN-TNS", JsonNumber(record.SKIN_TNS)},
                                 {"G0-SOIL", JsonNumber(record.G0_SOIL)},
                                 {"DSPTZ/DIAM", JsonNumber(record.DSPTZ_DIAM)},
                                 {"SIG-TIP", JsonNumber(record.SIG_TIP)},
                                 {"POIS", JsonNumber(record.POIS)},
                                 {"DSPQZ/DIAM", JsonNumber(record.DSPQZ_DIAM)}};
                 })}};
}

// Version 4.
Json SoilLayerDivisionsAndCodesForPyTzQzSectionJson(const SoilLayerDivisionsAndCodesForPyTzQzSection& section) {
    return Json{
        {"records", Records(section.records, [](const SoilLayerDivisionsAndCodesForPyTzQzSectionRecord& record) {
             return Json{{"LAYER1", record.LAYER1}, {"LAYER2", record.LAYER2},
                         {"TYP", record.TYP},       {"ZBOTM", JsonNumber(record.ZBOTM)},
                         {"PYCODE", record.PYCODE}, {"TZCODE", record.TZCODE},
                         {"QZCODE", record.QZCODE}};
         })}};
}

// Version 5: the AK column only in the layout of the table that has it.
Json SoilMainLayersAndPropertiesSectionJson(const SoilMainLayersAndPropertiesSection& section) {
    const bool hasAK = section.layoutRevision != static_cast<int>(Revision::WithoutAK);
    return Json{{"records", Records(section.records, [hasAK](const SoilMainLayersAndPropertiesSectionRecord& record) {
                     Json json{{"MAIN LAYER", record.MAIN},           {"ZBOTM", JsonNumber(record.ZBOTM)},
                               {"GAMTOT", JsonNumber(record.GAMTOT)}, {"CPTTOP", JsonNumber(record.CPTTOP)},
                               {"CPTBOT", JsonNumber(record.CPTBOT)}, {"PHI", JsonNumber(record.PHI)},
                               {"DR", JsonNumber(record.DR)},         {"SUTOP", JsonNumber(record.SUTOP)},
                               {"SUBOT", JsonNumber(record.SUBOT)},   {"IP", record.IP},
                               {"EPSC", JsonNumber(record.EPSC)},     {"API-J", JsonNumber(record.API_J)}};
                     if (hasAK) json["AK"] = JsonNumber(record.AK);
                     return json;
                 })}};
}

// Version 5.
Json SkinFrictionAndTipResistanceSectionV5Json(const SkinFrictionAndTipResistanceSectionV5& section) {
    return Json{{"DIAMP", JsonNumber(section.DIAMP)},
                {"WALL", JsonNumber(section.WALL)},
                {"ZTIP", JsonNumber(section.ZTIP)},
                {"MATPIL", section.MATPIL},
                {"records", Records(section.records, [](const SkinFrictionAndTipResistanceSectionV5Record& record) {
                     return Json{{"MAIN LAYER", record.MAIN_LAYER},
                                 {"CALC METH", record.CALC_METH},
                                 {"SKINC TOP", JsonNumber(record.SKINC_TOP)},
                                 {"SKINC BOT", JsonNumber(record.SKINC_BOT)},
                                 {"SKINT TOP", JsonNumber(record.SKINT_TOP)},
                                 {"SKINT BOT", JsonNumber(record.SKINT_BOT)},
                                 {"SIGTIP TOP", JsonNumber(record.SIGTIP_TOP)},
                                 {"SIGTIP BOT", JsonNumber(record.SIGTIP_BOT)},
                                 {"G0 FACT", JsonNumber(record.G0_FACT)},
                                 {"TRES/TMAX", JsonNumber(record.TRES_TMAX)},
                                 {"TZZRES", JsonNumber(record.TZZRES)}};
                 })}};
}

// Version 5. The subdivision's second header line ("0=AUTO 1=NONE") tells
// its values, not its name; the miscellaneous values are one list.
Json MainLayersSubdivisionAndPyTzQzCodesSectionJson(const MainLayersSubdivisionAndPyTzQzCodesSection& section) {
    return Json{
        {"NUMPIL", section.NUMPIL},
        {"records", Records(section.records, [](const MainLayersSubdivisionAndPyTzQzCodesSectionRecord& record) {
             return Json{
                 {"MAIN LAYER", record.MAIN_LAYER},   {"ZBOTM", JsonNumber(record.ZBOTM)},
                 {"SUBDIVISION", record.SUBDIVISION}, {"P-Y CODE", record.PYCODE},
                 {"T-Z CODE", record.TZCODE},         {"Q-Z CODE", record.QZCODE},
                 {"OPEN HOLE", record.OPEN_HOLE},     {"MISC.SOIL.LAYER.VALUES", JsonNumbers(record.MISC_VALUES)}};
         })}};
}

// The title of a curve record's value line, as the section's header line
// names it after "LINE1 :" or "LINE2 :" ("P-VALUES", "THETA-VALUES").
std::string ValueLineTitle(const std::string& header, const std::string& line) {
    const std::vector<std::string> words = Words(header);
    for (std::size_t i = 0; i + 2 < words.size(); ++i)
        if (words[i] == line && words[i + 1] == ":") return words[i + 2];
    throw std::logic_error("no " + line + " in the header line '" + header + "'");
}

// The six manual curve sections: LAY, DIAM and NUMPNT, then the two value
// lines, each keyed by its title in the section's header line.
template <class Kind>
Json ManualCurveSectionJson(const BasicManualCurveSection<Kind>& section) {
    const std::string line1 = ValueLineTitle(Kind::header, "LINE1");
    const std::string line2 = ValueLineTitle(Kind::header, "LINE2");
    return Json{{"records", Records(section.records, [&](const BasicManualCurveSectionRecord<Kind>& record) {
                     Json json{{"LAY", record.LAY},
                               {"DIAM", JsonNumber(record.DIAM)},
                               {"NUMPNT", JsonNumber(static_cast<std::uint64_t>(record.resistances.size()))}};
                     json[line1] = JsonNumbers(record.resistances);
                     json[line2] = JsonNumbers(record.displacements);
                     return json;
                 })}};
}

// The factors of a modification, keyed by the header's titles that follow
// LAY1, LAY2 and DIAM, in their column order.
template <class Modification>
void AddFactors(const Modification& modification, const std::vector<std::string>& titles, Json& json) {
    std::size_t column = 3;
    std::apply([&](const auto&... factors) { ((json[titles.at(column++)] = JsonNumber(factors)), ...); },
               Modification::Factors(modification));
}

// The six modification sections: LAY1, LAY2, DIAM and the factors, each
// keyed by its title in the section's header line.
template <class Kind>
Json ModificationSectionJson(const BasicModificationSection<Kind>& section) {
    const std::vector<std::string> titles = Words(Kind::header);
    return Json{{"records", Records(section.records, [&](const BasicModificationSectionRecord<Kind>& record) {
                     Json json{{titles.at(0), record.LAY1},
                               {titles.at(1), record.LAY2},
                               {titles.at(2), JsonNumber(record.DIAM)}};
                     AddFactors(record.modification, titles, json);
                     return json;
                 })}};
}

template <class Kind>
void AddManualCurveSection(const BasicManualCurveSection<Kind>& section, Json& sections) {
    sections[Kind::title] = ManualCurveSectionJson(section);
}

template <class Kind>
void AddModificationSection(const BasicModificationSection<Kind>& section, Json& sections) {
    sections[Kind::title] = ModificationSectionJson(section);
}

Json GivenSoilDisplacementsAndOpenHoleSectionJson(const GivenSoilDisplacementsAndOpenHoleSection& section) {
    return Json{{"records", Records(section.records, [](const GivenSoilDisplacementsAndOpenHoleSectionRecord& record) {
                     return Json{{"ZLEV", JsonNumber(record.ZLEV)},
                                 {"DSP-X", JsonNumber(record.DSP_X)},
                                 {"DSP-Y", JsonNumber(record.DSP_Y)},
                                 {"DSP-Z", JsonNumber(record.DSP_Z)},
                                 {"HOLE-DIAM", JsonNumber(record.HOLE_DIAM)}};
                 })}};
}

const char* const skinFrictionTitle = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";

}  // namespace

Json SectionsJson(const Terrix& profile) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    const ControlSection& control = data.controlSection;
    const Version version = profile.GetVersion();
    Json sections = Json::object();
    sections["CONTROL SECTION"] = ControlSectionJson(control);
    if (version != Version::V4 && version != Version::V5) return sections;  // a profile of no known version

    sections["MATERIAL COEFFICIENTS SECTION"] = MaterialCoefficientsSectionJson(data.materialCoefficientsSection);
    sections["PILE DIAMETERS AND GROUP EFFECTS SECTION"] =
        PileDiametersAndGroupEffectsSectionJson(data.pileDiametersAndGroupEffectsSection, version);
    sections["SOIL SURFACE AND GROUND WATER SECTION"] =
        SoilSurfaceAndGroundWaterSectionJson(data.soilSurfaceAndGroundWaterSection);
    sections["LOADS AT SOIL SURFACE SECTION"] = LoadsAtSoilSurfaceSectionJson(data.loadsAtSoilSurfaceSection);
    if (version == Version::V5) {
        sections["SOIL MAIN LAYERS AND PROPERTIES SECTION"] =
            SoilMainLayersAndPropertiesSectionJson(data.soilMainLayersAndPropertiesSection);
        sections[skinFrictionTitle] =
            SkinFrictionAndTipResistanceSectionV5Json(data.skinFrictionAndTipResistanceSectionV5);
        sections["MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION"] =
            MainLayersSubdivisionAndPyTzQzCodesSectionJson(data.mainLayersSubdivisionAndPyTzQzCodesSection);
    } else {
        sections["SOIL TYPE AND PROPERTY SECTION"] = SoilTypeAndPropertySectionJson(data.soilTypeAndPropertySection);
        sections[skinFrictionTitle] =
            SkinFrictionAndTipResistanceSectionV4Json(data.skinFrictionAndTipResistanceSectionV4);
        sections["SOIL LAYER DIV ..."] =
            SoilLayerDivisionsAndCodesForPyTzQzSectionJson(data.soilLayerDivisionsAndCodesForPyTzQzSection);
    }
    AddManualCurveSection(data.manualPyLateralResistanceDataSection, sections);
    AddModificationSection(data.pyLateralResistanceDataModificationSection, sections);
    AddManualCurveSection(data.manualTzSkinFrictionDataSection, sections);
    AddModificationSection(data.tzSkinFrictionDataModificationSection, sections);
    AddManualCurveSection(data.manualQzPileTipResistanceDataSection, sections);
    AddModificationSection(data.qzPileTipResistanceDataModificationSection, sections);
    // The M-theta, BS-Y and BM-theta sections stand in the file only when the
    // control section gives their counts.
    if (control.HasDMData()) {
        AddManualCurveSection(data.manualMthetaMomentDataSection, sections);
        AddModificationSection(data.mthetaMomentDataModificationSection, sections);
    }
    if (control.HasBSData()) {
        AddManualCurveSection(data.manualBSYBaseShearDataSection, sections);
        AddModificationSection(data.bsyBaseShearDataModificationSection, sections);
    }
    if (control.HasBMData()) {
        AddManualCurveSection(data.manualBMthetaMomentDataSection, sections);
        AddModificationSection(data.bmThetaMomentDataModificationSection, sections);
    }
    sections["GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION"] =
        GivenSoilDisplacementsAndOpenHoleSectionJson(data.givenSoilDisplacementsAndOpenHoleSection);
    return sections;
}

}  // namespace TerrixTool
