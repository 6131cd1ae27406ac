#include <TerrixExchange/archive/JsonImporter.h>

#include <algorithm>

#include <TerrixExchange/archive/JsonFormat.h>
#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

namespace {

// A value as the message shows it: its JSON, cut when long.
std::string Shown(const Json& value) {
    std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (text.size() > 60) text = text.substr(0, 57) + "...";
    return text;
}

std::string Listed(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
    return list;
}

// The keys of a profile's object: what the file holds, and the answers of a
// dump, which a reader passes over.
const std::vector<std::string> profileKeys = {"version", "revision", "name",       "header", "encoding",
                                              "units",   "sections", "parameters", "layers"};

Units::Runtime::UnitSystem UnitsOf(const Json& units, const std::string& where) {
    const std::string expected = where + ", 'units': expected {\"force\": FORCE, \"length\": LENGTH}, found ";
    if (!units.is_object() || units.size() != 2 || !units.contains("force") || !units.contains("length") ||
        !units["force"].is_string() || !units["length"].is_string())
        throw JsonImportError(expected + Shown(units));
    try {
        return Units::Runtime::UnitSystem(units["force"].get<std::string>(), units["length"].get<std::string>());
    } catch (const std::runtime_error& error) {
        throw JsonImportError(where + ", 'units': " + error.what() +
                              " (force units: N kN MN GN mN lbf kipf kgf; length units: km m dm cm mm in ft)");
    }
}

}  // namespace

Terrix ProfileFromJson(const Json& profile, const std::string& where, const Units::Runtime::UnitSystem* units,
                       ListLengths lengths) {
    return JsonImporter::ReadProfile(profile, where, units, lengths);
}

Terrix JsonImporter::ReadProfile(const Json& object, const std::string& where, const Units::Runtime::UnitSystem* units,
                                 ListLengths lengths) {
    if (!object.is_object())
        throw JsonImportError(where + ": expected an object of the profile's version, header, units and sections, "
                                      "found " + Shown(object));
    for (auto member = object.begin(); member != object.end(); ++member)
        if (std::find(profileKeys.begin(), profileKeys.end(), member.key()) == profileKeys.end())
            throw JsonImportError(where + ": unknown key '" + member.key() + "' (known: " + Listed(profileKeys) + ")");
    for (const char* required : {"units", "sections"})
        if (!object.contains(required)) throw JsonImportError(where + ", '" + required + "': missing");
    if (!object["sections"].is_object())
        throw JsonImportError(where + ", 'sections': expected an object of sections keyed by their titles, found " +
                              Shown(object["sections"]));

    TextEncoding encoding = TextEncoding::Utf8;
    if (object.contains("encoding")) {
        const Json& name = object["encoding"];
        if (name == EncodingName(TextEncoding::Latin1)) encoding = TextEncoding::Latin1;
        else if (name != EncodingName(TextEncoding::Utf8))
            throw JsonImportError(where + ", 'encoding': expected \"UTF-8\" or \"Latin-1\", found " + Shown(name));
    }
    Revision revision = Revision::Unsettled;
    if (object.contains("revision")) {
        const Json& number = object["revision"];
        if (!number.is_number_integer() || number < 0 || number > 2)
            throw JsonImportError(where + ", 'revision': expected 0, 1 or 2, found " + Shown(number));
        revision = static_cast<Revision>(number.get<int>());
    }
    const Units::Runtime::UnitSystem named = UnitsOf(object["units"], where);

    Terrix profile(Version::V4, revision);
    profile.unitSystem_ = units ? *units : named;
    JsonImporter importer(object, where, encoding, lengths);
    profile.ReadProfile(importer);
    importer.Finish();

    if (object.contains("name")) {
        const std::string name = importer.ReadText(object["name"]);
        const std::string& profileName = profile.GetTerrixInputData().controlSection.profileName;
        if (name != profileName)
            throw JsonImportError(where + ", 'name': expected the profile name of the control section, " +
                                  Shown(JsonText(profileName, encoding)) + ", found " + Shown(object["name"]));
    }
    return profile;
}

JsonImporter::JsonImporter(const Json& profile, std::string where, TextEncoding encoding, ListLengths lengths)
    : profile_(profile), where_(std::move(where)), encoding_(encoding), lengths_(lengths) {}

std::string JsonImporter::Where() const {
    std::string where = where_;
    if (section_) where += ", section '" + title_ + "'";
    // Records and values counted from 1, as terrix diff and check count them.
    if (recordIndex_ != none) where += ", record " + std::to_string(recordIndex_ + 1);
    if (!key_.empty()) where += std::string(", ") + keyKind_ + (*keyKind_ ? " '" : "'") + key_ + "'";
    if (element_ != none) where += ", value " + std::to_string(element_ + 1);
    return where;
}

void JsonImporter::Fail(const std::string& expected, const std::string& found) const {
    throw JsonImportError(Where() + ": expected " + expected + ", found " + found);
}

void JsonImporter::Fail(const std::string& expected, const Json& found) const { Fail(expected, Shown(found)); }

const Json& JsonImporter::Member(const Json& object, const std::string& name) {
    const auto found = object.find(name);
    // A misspelt key shows among those given.
    if (found == object.end()) {
        std::vector<std::string> given;
        for (auto member = object.begin(); member != object.end(); ++member) given.push_back(member.key());
        throw JsonImportError(Where() + ": missing (" + (given.empty() ? "nothing is given" : "given: " + Listed(given)) +
                              ")");
    }
    (&object == record_ ? recordKeys_ : sectionKeys_).push_back(name);
    return *found;
}

void JsonImporter::CheckKeys(const Json& object, const std::vector<std::string>& read, const char* kind) {
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (std::find(read.begin(), read.end(), member.key()) != read.end()) continue;
        SetKey("", "");
        throw JsonImportError(Where() + ": unknown " + kind + " '" + member.key() + "' (" +
                              (read.empty() ? std::string("none is read here") : "known: " + Listed(read)) + ")");
    }
}

void JsonImporter::CheckSectionKeys() {
    if (section_) CheckKeys(*section_, sectionKeys_, "key");
}

const Json& JsonImporter::Records() {
    SetKey("", "records");
    const Json& list = Member(*section_, "records");
    if (!list.is_array()) Fail("a list of records", list);
    return list;
}

void JsonImporter::Header(std::string& header) {
    SetKey("", "header");
    header = ReadText(Member(profile_, "header"));
    SetKey("", "");
}

void JsonImporter::VersionLine(bool& isVersion5, int, int, int) {
    SetKey("", "version");
    const Json& version = Member(profile_, "version");
    if (!version.is_number_integer() || (version != 4 && version != 5)) Fail("4 or 5", version);
    isVersion5 = version == 5;
    SetKey("", "");
}

JsonImporter::SectionGuard JsonImporter::BeginSection(const std::string& title) {
    CheckSectionKeys();
    SetKey("", "");
    section_ = nullptr;
    const Json& sections = profile_.at("sections");
    const auto found = sections.find(title);
    if (found == sections.end()) throw JsonImportError(where_ + ", section '" + title + "': missing");
    title_ = title;
    section_ = &*found;
    titles_.push_back(title);
    sectionKeys_.clear();
    if (!section_->is_object()) Fail("an object of the section's parameters and records", *section_);
    return SectionGuard{};
}

void JsonImporter::Finish() {
    CheckSectionKeys();
    section_ = nullptr;
    SetKey("", "");
    const Json& sections = profile_.at("sections");
    for (auto member = sections.begin(); member != sections.end(); ++member)
        if (std::find(titles_.begin(), titles_.end(), member.key()) == titles_.end())
            throw JsonImportError(where_ + ": unknown section '" + member.key() +
                                  "' (a profile of this version and these counts holds: " + Listed(titles_) + ")");
}

void JsonImporter::StringParameter(std::string& value, const std::string& name, const std::string&) {
    SetKey("parameter", name);
    value = ReadText(Member(*section_, name));
}

std::string JsonImporter::ReadText(const Json& value) const {
    std::string text;
    if (!value.is_string()) Fail("a text", value);
    if (!TextFromJson(value.get_ref<const std::string&>(), encoding_, text))
        Fail("a text of Latin-1 characters, as \"encoding\" says", value);
    return text;
}

void JsonImporter::ReadValue(const Json& value, double& field) {
    if (!ReadNumber(value, field)) Fail("a number", value);
}

void JsonImporter::ReadValue(const Json& value, int& field) {
    // A count or a code: a whole number that an int holds.
    double number = 0.0;
    if (!ReadNumber(value, number) || !std::isfinite(number)) Fail("a whole number", value);
    if (number != std::trunc(number)) Fail("a whole number", value);
    if (number < static_cast<double>(std::numeric_limits<int>::min()) ||
        number > static_cast<double>(std::numeric_limits<int>::max()))
        Fail("a whole number from " + std::to_string(std::numeric_limits<int>::min()) + " to " +
                 std::to_string(std::numeric_limits<int>::max()),
             value);
    field = static_cast<int>(number);
}

}  // namespace TerrixExchange
