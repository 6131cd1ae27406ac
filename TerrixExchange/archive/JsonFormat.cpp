#include <TerrixExchange/archive/JsonFormat.h>

#include <algorithm>
#include <cstdlib>
#include <cmath>
#include <limits>
#include <vector>

#include <TerrixExchange/archive/NumberText.h>
#include <TerrixExchange/archive/JsonImporter.h>

namespace TerrixExchange {

namespace {

// The shortest digits that read back as the same double (nlohmann's own
// writer does not promise them), in plain decimals unless that takes more
// than 21 characters and more than the scientific form (400000 rather than
// 4e+05), as std::to_chars writes them. The digits are the library's, which
// serve where the standard library has no floating-point to_chars. A JSON
// reader takes "-0" for the integer 0; "-0.0" keeps the sign.
std::string ShortestText(double value) {
    if (value == 0.0 && std::signbit(value)) return "-0.0";
    const std::string plain = ShortestDecimalText(value, DecimalForm::Plain);
    if (plain.size() <= 21) return plain;
    // The shorter of the two, plain decimals on a tie.
    const std::string scientific = ShortestDecimalText(value, DecimalForm::Scientific);
    return plain.size() <= scientific.size() ? plain : scientific;
}

void Write(const Json& value, int depth, std::string& text) {
    const std::string indent(2 * (depth + 1), ' ');
    const std::string closingIndent(2 * depth, ' ');
    switch (value.type()) {
        case Json::value_t::number_float: {
            const double number = value.get<double>();
            text += std::isfinite(number) ? ShortestText(number) : "\"" + NonFiniteText(number) + "\"";
            return;
        }
        case Json::value_t::array: {
            if (value.empty()) {
                text += "[]";
                return;
            }
            // A list of plain values (a vector, a pair of level and stress,
            // the factors of a row) stands on one line.
            if (std::none_of(value.begin(), value.end(), [](const Json& e) { return e.is_structured(); })) {
                text += "[";
                for (auto element = value.begin(); element != value.end(); ++element) {
                    if (element != value.begin()) text += ", ";
                    Write(*element, depth + 1, text);
                }
                text += "]";
                return;
            }
            text += "[\n";
            bool first = true;
            for (const Json& element : value) {
                if (!first) text += ",\n";
                first = false;
                text += indent;
                Write(element, depth + 1, text);
            }
            text += "\n" + closingIndent + "]";
            return;
        }
        case Json::value_t::object: {
            if (value.empty()) {
                text += "{}";
                return;
            }
            text += "{\n";
            bool first = true;
            for (auto member = value.begin(); member != value.end(); ++member) {
                if (!first) text += ",\n";
                first = false;
                text += indent + Json(member.key()).dump() + ": ";
                Write(member.value(), depth + 1, text);
            }
            text += "\n" + closingIndent + "}";
            return;
        }
        default:
            // Strings (escaped), integers, booleans and null as nlohmann
            // writes them; every string was made valid UTF-8 by JsonText.
            text += value.dump(-1, ' ', false, Json::error_handler_t::replace);
            return;
    }
}

// Where the parser stands, for the message of a key given twice: the keys
// and list places from the document down, and the keys of each open object.
class KeysGivenOnce {
public:
    bool operator()(int, Json::parse_event_t event, Json& parsed) {
        using Event = Json::parse_event_t;
        if ((event == Event::object_start || event == Event::array_start || event == Event::value) &&
            !open_.empty() && open_.back().isList)
            ++open_.back().place;
        if (event == Event::object_start || event == Event::array_start)
            open_.push_back(Open{event == Event::array_start, static_cast<std::size_t>(-1), "", {}});
        else if (event == Event::object_end || event == Event::array_end)
            open_.pop_back();
        else if (event == Event::key && !open_.empty())
            NoteKey(parsed.get<std::string>());
        return true;
    }

private:
    struct Open {
        bool isList;
        std::size_t place;
        std::string key;
        std::vector<std::string> keys;
    };

    void NoteKey(const std::string& key) {
        Open& object = open_.back();
        if (std::find(object.keys.begin(), object.keys.end(), key) != object.keys.end()) {
            std::string path;
            for (std::size_t i = 0; i + 1 < open_.size(); ++i)
                path += open_[i].isList ? "[" + std::to_string(open_[i].place) + "]" : "/" + open_[i].key;
            throw JsonImportError("Malformed JSON: the key \"" + key + "\" stands twice in one object (at " +
                                  (path.empty() ? std::string("the top") : path) + ")");
        }
        object.keys.push_back(key);
        object.key = key;
    }

    std::vector<Open> open_;
};

}  // namespace

bool IsJsonText(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && text[first] == '{';
}

Json ParseJson(std::string_view text) {
    try {
        return Json::parse(text.begin(), text.end(), KeysGivenOnce());
    } catch (const Json::exception& error) {
        // "[json.exception.parse_error.101] parse error at line 3, column 7:
        // syntax error ...": the line, the column and what is wrong; a
        // number too large for a double is told without them.
        std::string what = error.what();
        const std::string at = "parse error at ";
        const std::size_t start = what.find(at);
        if (start != std::string::npos) throw JsonImportError("Malformed JSON at " + what.substr(start + at.size()));
        throw JsonImportError("Malformed JSON: " + what.substr(what.find("] ") + 2));
    }
}

bool ReadNumber(const Json& value, double& number) {
    if (value.is_number()) {
        number = value.get<double>();
        return true;
    }
    if (!value.is_string()) return false;
    const std::string& text = value.get_ref<const std::string&>();
    for (double special : {std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity()}) {
        if (text == NonFiniteText(special)) {
            number = special;
            return true;
        }
    }
    return false;
}

std::string NonFiniteText(double value) {
    // A file may hold "-NaN": its sign is kept, as the text writer keeps it.
    if (std::isnan(value)) return std::signbit(value) ? "-NaN" : "NaN";
    return value > 0 ? "Infinity" : "-Infinity";
}

std::string WriteJson(const Json& value) {
    std::string text;
    Write(value, 0, text);
    return text + "\n";
}

}  // namespace TerrixExchange
