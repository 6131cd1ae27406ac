#include <TerrixExchange/archive/JsonArchive.h>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

namespace {

// Whether `text` is well-formed UTF-8 (no overlong forms, no surrogates).
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

}  // namespace

Json JsonText(const std::string& text) {
    if (IsUtf8(text)) return text;
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

JsonArchive::SectionGuard JsonArchive::BeginSection(const std::string& title) {
    title_ = title;
    section_ = &(sections_[title] = Json::object());
    return SectionGuard{};
}

void JsonArchive::MeetColumn(const char* name, ColumnMeaning meaning, bool nonZero) {
    for (MetColumn& met : columns_) {
        if (met.column.section == title_ && met.column.column == name) {
            met.nonZero = met.nonZero || nonZero;
            return;
        }
    }
    columns_.push_back(MetColumn{UnitBoundColumn{title_, name, meaning}, nonZero});
}

std::vector<UnitBoundColumn> JsonArchive::GetNonZeroColumns() const {
    std::vector<UnitBoundColumn> columns;
    for (const MetColumn& met : columns_)
        if (met.nonZero) columns.push_back(met.column);
    return columns;
}

// Serialize may settle what it walks (the layout of the main layer table),
// so the walk goes over a copy and the profile itself stays as it is. A
// profile of no known version has no sections to walk.
std::vector<UnitBoundColumn> JsonArchive::Walk(const Terrix& profile, Json& sections) {
    sections = Json::object();
    JsonArchive archive(sections);
    if (profile.GetVersion() == Version::V4 || profile.GetVersion() == Version::V5)
        Terrix(profile).SerializeSections(archive);
    return archive.GetNonZeroColumns();
}

void JsonArchive::Walk(const Terrix& profile, Json& sections, Json& dimensions) {
    sections = Json::object();
    dimensions = Json::object();
    JsonArchive archive(sections, &dimensions);
    if (profile.GetVersion() == Version::V4 || profile.GetVersion() == Version::V5)
        Terrix(profile).SerializeSections(archive);
}

Json DescribeSections(const Terrix& profile) {
    Json sections;
    JsonArchive::Walk(profile, sections);
    return sections;
}

std::vector<UnitBoundColumn> FindUnitBoundColumns(const Terrix& profile) {
    Json sections;
    return JsonArchive::Walk(profile, sections);
}

}  // namespace TerrixExchange
