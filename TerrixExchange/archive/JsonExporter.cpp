#include <TerrixExchange/archive/JsonExporter.h>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

// Well-formed UTF-8: no overlong forms, no surrogates.
bool IsUtf8(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        std::size_t length = 0;
        unsigned int low = 0x80, high = 0xBF;  // the allowed range of the second byte
        if (lead < 0x80) length = 1;
        else if (lead >= 0xC2 && lead <= 0xDF) length = 2;
        else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            if (lead == 0xE0) low = 0xA0;
            if (lead == 0xED) high = 0x9F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            if (lead == 0xF0) low = 0x90;
            if (lead == 0xF4) high = 0x8F;
        } else {
            return false;
        }
        if (i + length > text.size()) return false;
        for (std::size_t k = 1; k < length; ++k) {
            const unsigned char next = static_cast<unsigned char>(text[i + k]);
            if (next < (k == 1 ? low : 0x80) || next > (k == 1 ? high : 0xBF)) return false;
        }
        i += length;
    }
    return true;
}

TextEncoding EncodingOf(const Terrix& profile) {
    const bool utf8 = IsUtf8(profile.GetHeader()) && IsUtf8(profile.GetTerrixInputData().controlSection.profileName);
    return utf8 ? TextEncoding::Utf8 : TextEncoding::Latin1;
}

const char* EncodingName(TextEncoding encoding) { return encoding == TextEncoding::Utf8 ? "UTF-8" : "Latin-1"; }

Json JsonText(const std::string& text) {
    return JsonText(text, IsUtf8(text) ? TextEncoding::Utf8 : TextEncoding::Latin1);
}

Json JsonText(const std::string& text, TextEncoding encoding) {
    if (encoding == TextEncoding::Utf8) return text;
    std::string utf8;
    for (char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (byte >> 6));
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return utf8;
}

bool TextFromJson(const std::string& json, TextEncoding encoding, std::string& text) {
    if (encoding == TextEncoding::Utf8) {
        text = json;
        return true;
    }
    // Back from the two bytes of each character from U+0080 to U+00FF.
    text.clear();
    for (std::size_t i = 0; i < json.size(); ++i) {
        const unsigned char byte = static_cast<unsigned char>(json[i]);
        if (byte < 0x80) {
            text += json[i];
            continue;
        }
        if ((byte != 0xC2 && byte != 0xC3) || i + 1 == json.size()) return false;
        text += static_cast<char>(((byte & 0x03) << 6) | (static_cast<unsigned char>(json[++i]) & 0x3F));
    }
    return true;
}

JsonExporter::SectionGuard JsonExporter::BeginSection(const std::string& title) {
    title_ = title;
    section_ = &(profile_["sections"][title] = Json::object());
    return SectionGuard{};
}

void JsonExporter::MeetColumn(const char* name, ColumnMeaning meaning, bool nonZero) {
    for (MetColumn& met : columns_) {
        if (met.column.section == title_ && met.column.column == name) {
            met.nonZero = met.nonZero || nonZero;
            return;
        }
    }
    columns_.push_back(MetColumn{UnitBoundColumn{title_, name, meaning}, nonZero});
}

std::vector<UnitBoundColumn> JsonExporter::GetNonZeroColumns() const {
    std::vector<UnitBoundColumn> columns;
    for (const MetColumn& met : columns_)
        if (met.nonZero) columns.push_back(met.column);
    return columns;
}

// Serialize may settle what it walks (the layout of the main layer table),
// so the walk goes over a copy and the profile itself stays as it is. A
// profile of no known version has no sections to walk.
std::vector<UnitBoundColumn> JsonExporter::Walk(const Terrix& profile, Json& sections) {
    Json described = {{"sections", Json::object()}};
    JsonExporter archive(described, EncodingOf(profile));
    if (profile.GetVersion() == Version::V4 || profile.GetVersion() == Version::V5)
        Terrix(profile).SerializeSections(archive);
    sections = std::move(described["sections"]);
    return archive.GetNonZeroColumns();
}

void JsonExporter::Walk(const Terrix& profile, Json& sections, Json& dimensions) {
    Json described = {{"sections", Json::object()}};
    dimensions = Json::object();
    JsonExporter archive(described, EncodingOf(profile), &dimensions);
    if (profile.GetVersion() == Version::V4 || profile.GetVersion() == Version::V5)
        Terrix(profile).SerializeSections(archive);
    sections = std::move(described["sections"]);
}

Json DescribeProfile(const Terrix& profile) { return JsonExporter::DescribeProfile(profile); }

Json JsonExporter::DescribeProfile(const Terrix& profile) {
    const TextEncoding encoding = EncodingOf(profile);
    const Units::Runtime::UnitSystem& units = profile.GetUnitSystem();
    // The keys in the order of the dump; the walk fills the header, the
    // version of a known one and the sections.
    Json described = {{"version", static_cast<int>(profile.GetVersion())},
                      {"revision", static_cast<int>(profile.GetRevision())},
                      {"name", JsonText(profile.GetTerrixInputData().controlSection.profileName, encoding)},
                      {"header", nullptr},
                      {"encoding", EncodingName(encoding)},
                      {"units", {{"force", units.GetForceUnitName()}, {"length", units.GetLengthUnitName()}}},
                      {"sections", Json::object()}};
    JsonExporter archive(described, encoding);
    std::string header = profile.GetHeader();
    Terrix(profile).SerializeProfile(archive, header);
    return described;
}

Json DescribeFields(const Terrix& profile) { return JsonExporter::DescribeFields(profile); }

// The walk goes over a copy whose optional kinds of curve are all given, so
// that every section of the version is met.
Json JsonExporter::DescribeFields(const Terrix& profile) {
    Json fields = Json::object();
    if (profile.GetVersion() != Version::V4 && profile.GetVersion() != Version::V5) return fields;
    Terrix walked(profile);
    ControlSection& control = walked.GetTerrixInputData().controlSection;
    for (boost::optional<int>* count : {&control.NUMDM, &control.NUMBS, &control.NUMBM})
        if (!*count) *count = 0;
    Json described = {{"sections", Json::object()}};
    JsonExporter archive(described, EncodingOf(profile));
    archive.fields_ = &fields;
    walked.SerializeSections(archive);
    return fields;
}

Json DescribeSections(const Terrix& profile) {
    Json sections;
    JsonExporter::Walk(profile, sections);
    return sections;
}

std::vector<UnitBoundColumn> FindUnitBoundColumns(const Terrix& profile) {
    Json sections;
    return JsonExporter::Walk(profile, sections);
}

}  // namespace TerrixExchange
