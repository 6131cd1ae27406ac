#include "SectionsJson.h"

namespace TerrixTool {

using namespace TerrixExchange;

namespace {

// One function per section: the section's values under the names the file
// gives them, in the order of the file's lines.

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

}  // namespace

Json SectionsJson(const Terrix& profile) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    Json sections = Json::object();
    // In the order of the file; a section of one version only is added
    // under a test of profile.GetVersion().
    sections["CONTROL SECTION"] = ControlSectionJson(data.controlSection);
    return sections;
}

}  // namespace TerrixTool
