// Writing edited profiles back over the text they were read from, so that
// the engineer gets the own file back with only the edited values changed:
// the header, every comment line, the blanks and the spelling of every
// number that was not touched stay as they stand.
//
// The original text is read again, noting its pieces (SourceMap): the
// header, the version line, each empty line, title, table header,
// parameter, record line and vector. The edited profiles are exported and
// that text is read the same way; so is the export of the profiles read
// from the original, which writes every piece as the exporter would. Both
// exports have the same layout, so a piece of the original is unchanged
// exactly when its exported text equals that of the edited profile. Pieces
// are matched by what they are (section, parameter, place in a record);
// records by their texts, from both ends of their table, so that a record
// added or removed in the middle does not move the others. Then:
// - an unchanged piece is copied as it stands in the original;
// - a changed one is written as the export writes it;
// - a new one (an added record, a section that an added count brings) is
//   written as the export writes it, where it stands in the export;
// - a removed one is left out;
// - everything between pieces (comment lines, what follows the last
//   profile, the lines between profiles) is copied as it stands.
// New lines take the line ends of the original. Realigning a text
// (LinesKept::AsExported) keeps a piece only when it stands exactly as the
// export writes it, so that every misaligned line is laid out anew while
// comment lines and the header stay. What is written is gathered as edits
// of the original's lines, which an editor applies as they are.

#include <algorithm>
#include <map>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <unordered_map>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

namespace TerrixExchange {

namespace {

using Kind = SourceMap::Kind;
using Units::Runtime::UnitSystem;

// The lines of a text, each with its line end (LF, CR LF or a lone CR, as
// the importer takes them); the last one may have none.
std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\n' && text[i] != '\r') continue;
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        lines.push_back(text.substr(start, i + 1 - start));
        start = i + 1;
    }
    if (start < text.size()) lines.push_back(text.substr(start));
    return lines;
}

std::string_view WithoutLineEnd(std::string_view line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
    return line;
}

// The line end a text uses first; LF when it has none.
std::string LineEndOf(std::string_view text) {
    const std::size_t at = text.find_first_of("\r\n");
    if (at == std::string_view::npos || text[at] == '\n') return "\n";
    return at + 1 < text.size() && text[at + 1] == '\n' ? "\r\n" : "\r";
}

// A text with the profiles read from it and the pieces of each.
struct Pieces {
    std::string_view text;
    std::vector<std::string_view> lines;
    std::vector<SourceMap> maps;

    // One piece of a profile, and what it is apart from its record.
    struct Placed {
        std::size_t profile;
        const SourceMap::Piece* piece;
        std::string slot;
        std::string table;
    };
    std::vector<Placed> placed;

    // The text of lines first to last, without their line ends.
    std::string Text(std::uint64_t first, std::uint64_t last) const {
        std::string text;
        for (std::uint64_t line = first; line <= last && line <= lines.size(); ++line)
            text.append(WithoutLineEnd(lines[line - 1])).append("\n");
        return text;
    }
    std::string Text(const Placed& p) const { return Text(p.piece->firstLine, p.piece->lastLine); }

    // Notes what every piece is, once the maps are read.
    void Place() {
        for (std::size_t profile = 0; profile < maps.size(); ++profile) {
            const SourceMap& map = maps[profile];
            for (const SourceMap::Piece& piece : map.GetPieces()) {
                const std::string section = piece.section == SourceMap::none ? "" : map.GetName(piece.section);
                const bool named = (piece.kind == Kind::Parameter || piece.kind == Kind::Vector) &&
                                   piece.name != SourceMap::none;
                const std::string name = named ? map.GetName(piece.name) : std::to_string(piece.name);
                const std::string table = std::to_string(profile) + "|" + section;
                placed.push_back(Placed{profile, &piece,
                                        table + "|" + std::to_string(static_cast<int>(piece.kind)) + "|" + name + "|" +
                                            std::to_string(piece.part),
                                        table});
            }
        }
    }
};

// For each record of a new table, the record of the old table it stands
// for: the unchanged records at the start and at the end pair up with
// theirs, those between by their places; a new record beyond the old ones
// in between stands for none (-1).
std::vector<long long> PairRecords(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    std::size_t head = 0;
    while (head < before.size() && head < after.size() && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < before.size() - head && tail < after.size() - head &&
           before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    std::vector<long long> pairs(after.size(), -1);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (i < head) pairs[i] = static_cast<long long>(i);
        else if (i >= after.size() - tail) pairs[i] = static_cast<long long>(i + before.size() - after.size());
        else if (i - head < before.size() - head - tail) pairs[i] = static_cast<long long>(i);
    }
    return pairs;
}

// The texts of the records of each table: table -> record -> its pieces' text.
std::map<std::string, std::vector<std::string>> RecordTexts(const Pieces& pieces) {
    std::map<std::string, std::vector<std::string>> tables;
    for (const Pieces::Placed& p : pieces.placed) {
        if (p.piece->record == SourceMap::none) continue;
        std::vector<std::string>& records = tables[p.table];
        if (records.size() <= p.piece->record) records.resize(p.piece->record + 1);
        records[p.piece->record] += pieces.Text(p) + "\x1f";
    }
    return tables;
}

// The key of every piece: what it is and, in a table, the record of the old
// text it stands for (a record new to the table gets a key of its own).
std::vector<std::string> Keys(const Pieces& pieces, const std::map<std::string, std::vector<std::string>>* before) {
    std::map<std::string, std::vector<long long>> pairs;
    if (before) {
        const std::map<std::string, std::vector<std::string>> after = RecordTexts(pieces);
        static const std::vector<std::string> empty;
        for (const auto& table : after) {
            const auto old = before->find(table.first);
            pairs[table.first] = PairRecords(old == before->end() ? empty : old->second, table.second);
        }
    }
    std::vector<std::string> keys;
    keys.reserve(pieces.placed.size());
    for (const Pieces::Placed& p : pieces.placed) {
        std::string record;
        if (p.piece->record != SourceMap::none) {
            const long long paired = before ? pairs[p.table][p.piece->record] : p.piece->record;
            record = paired >= 0 ? std::to_string(paired) : "new " + std::to_string(p.piece->record);
        }
        keys.push_back(p.slot + "|" + record);
    }
    return keys;
}

}  // namespace

bool TerrixMultipleSoilProfiles::ReadWithPieces(std::string_view text, const std::vector<Units::Runtime::UnitSystem>& units,
                                                TerrixMultipleSoilProfiles& profiles, std::vector<SourceMap>& maps) {
    Reading reading;
    reading.unitsOfEach = &units;
    reading.maps = &maps;
    try {
        profiles.ReadProfiles(text, reading);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

namespace {

// The edits of a text, gathered line by line in file order: lines kept as
// they stand, and between them what is written instead of the lines passed
// over (nothing, for lines left out).
class LineEdits {
public:
    explicit LineEdits(std::vector<LineEdit>& edits) : edits_(edits) {}

    // Lines first to last of the original stay; those before them that were
    // neither kept nor written over are left out.
    void Keep(std::uint64_t first, std::uint64_t last) {
        if (first > last) return;
        if (first > next_ || !text_.empty()) edits_.push_back(LineEdit{next_, first - next_, std::move(text_)});
        text_.clear();
        next_ = last + 1;
    }
    // Text written where the original stands now.
    void Write(std::string_view text) { text_.append(text); }
    // The end of the original, of `lineCount` lines.
    void End(std::uint64_t lineCount) { Keep(lineCount + 1, lineCount + 1); }

private:
    std::vector<LineEdit>& edits_;
    std::uint64_t next_ = 1;  // the first line of the original not yet passed
    std::string text_;
};

}  // namespace

std::string ApplyLineEdits(std::string_view original, const std::vector<LineEdit>& edits) {
    const std::vector<std::string_view> lines = SplitLines(original);
    std::string text;
    std::uint64_t next = 1;
    const auto copyTo = [&](std::uint64_t end) {
        for (; next < end && next <= lines.size(); ++next) text.append(lines[next - 1]);
        next = std::max(next, end);
    };
    for (const LineEdit& edit : edits) {
        copyTo(edit.firstLine);
        text.append(edit.text);
        next = edit.firstLine + edit.lineCount;
    }
    copyTo(lines.size() + 1);
    return text;
}

bool TerrixMultipleSoilProfiles::ExportKeepingLines(std::ostream& stream, std::string_view original,
                                                    LinesKept kept) {
    std::vector<LineEdit> edits;
    const bool lineByLine = EditKeepingLines(original, edits, kept);
    stream << ApplyLineEdits(original, edits);
    return lineByLine;
}

bool TerrixMultipleSoilProfiles::EditKeepingLines(std::string_view original, std::vector<LineEdit>& edits,
                                                  LinesKept kept) {
    CheckConsistency();
    edits.clear();

    std::vector<UnitSystem> units;
    for (const Terrix& profile : profiles_) units.push_back(profile.unitSystem_);
    const std::vector<std::string_view> originalLines = SplitLines(original);
    const auto wholeExport = [&] {
        std::ostringstream whole;
        ExportWithOwnHeaders(whole, true);
        edits.assign(1, LineEdit{1, originalLines.size(), whole.str()});
        return false;
    };

    // The original, the profiles read from it written by the exporter, and
    // the edited profiles so written.
    Pieces old;
    old.text = original;
    TerrixMultipleSoilProfiles read;
    if (!ReadWithPieces(original, units, read, old.maps) || read.profiles_.size() != profiles_.size())
        return wholeExport();
    for (std::size_t i = 0; i < profiles_.size(); ++i)
        if (read.profiles_[i].GetVersion() != profiles_[i].GetVersion()) return wholeExport();
    std::ostringstream oldExport, newExport;
    read.ExportWithOwnHeaders(oldExport, true);
    TerrixMultipleSoilProfiles(*this).ExportWithOwnHeaders(newExport, true);
    const std::string oldText = oldExport.str(), newText = newExport.str();
    Pieces written, edited;
    written.text = oldText;
    edited.text = newText;
    TerrixMultipleSoilProfiles readBack, readEdited;
    if (!ReadWithPieces(oldText, units, readBack, written.maps) || !ReadWithPieces(newText, units, readEdited, edited.maps))
        return wholeExport();
    for (Pieces* pieces : {&old, &written, &edited}) {
        pieces->lines = SplitLines(pieces->text);
        pieces->Place();
    }
    if (written.placed.size() != old.placed.size()) return wholeExport();
    for (std::size_t i = 0; i < old.placed.size(); ++i)
        if (written.placed[i].slot != old.placed[i].slot) return wholeExport();

    const std::map<std::string, std::vector<std::string>> oldRecords = RecordTexts(written);
    const std::vector<std::string> oldKeys = Keys(written, nullptr);
    const std::vector<std::string> newKeys = Keys(edited, &oldRecords);
    std::unordered_map<std::string, std::size_t> oldPlaces, newPlaces;
    for (std::size_t i = 0; i < oldKeys.size(); ++i) oldPlaces.emplace(oldKeys[i], i);
    for (std::size_t j = 0; j < newKeys.size(); ++j) newPlaces.emplace(newKeys[j], j);
    if (oldPlaces.size() != oldKeys.size() || newPlaces.size() != newKeys.size()) return wholeExport();

    // A piece of the original stays when its text is what the edited
    // profiles write there: unchanged from what the exporter wrote of the
    // original, or, realigning, the very text the exporter writes.
    const Pieces& reference = kept == LinesKept::Unchanged ? written : old;
    const std::string lineEnd = LineEndOf(original);
    LineEdits changes(edits);
    // Lines of the edited profiles' export, with the original's line ends.
    const auto write = [&](std::uint64_t first, std::uint64_t last) {
        for (std::uint64_t line = first; line <= last && line <= edited.lines.size(); ++line) {
            changes.Write(WithoutLineEnd(edited.lines[line - 1]));
            changes.Write(lineEnd);
        }
    };
    std::uint64_t oldEnd = 0;  // the last line of the original written or passed
    std::uint64_t newEnd = 0;  // the same of the export
    std::size_t i = 0, j = 0;
    while (i < oldKeys.size() || j < newKeys.size()) {
        const bool paired = i < oldKeys.size() && j < newKeys.size() && oldKeys[i] == newKeys[j];
        if (paired || (i < oldKeys.size() && newPlaces.count(oldKeys[i]) == 0)) {
            // The lines between the last piece and this one (comment lines).
            const SourceMap::Piece& piece = *old.placed[i].piece;
            changes.Keep(oldEnd + 1, piece.firstLine - 1);
            oldEnd = piece.lastLine;
            if (paired) {
                const SourceMap::Piece& now = *edited.placed[j].piece;
                if (reference.Text(reference.placed[i]) == edited.Text(edited.placed[j])) {
                    changes.Keep(piece.firstLine, piece.lastLine);
                } else {
                    write(now.firstLine, now.lastLine);
                    // Comment lines between the lines of a vector stay.
                    for (std::uint64_t line : old.maps[old.placed[i].profile].GetCommentLines())
                        if (line > piece.firstLine && line < piece.lastLine) changes.Keep(line, line);
                }
                newEnd = now.lastLine;
                ++j;
            }
            ++i;
        } else if (j < newKeys.size() && oldPlaces.count(newKeys[j]) == 0) {
            // A new piece, with what the export writes before it (the
            // comment lines of a new section).
            const SourceMap::Piece& now = *edited.placed[j].piece;
            write(newEnd + 1, now.lastLine);
            newEnd = now.lastLine;
            ++j;
        } else {
            edits.clear();
            return wholeExport();  // the pieces cross: no line-by-line edit
        }
    }
    changes.Keep(oldEnd + 1, originalLines.size());
    changes.End(originalLines.size());
    return true;
}

bool Terrix::ExportKeepingLines(std::ostream& stream, std::string_view original) {
    TerrixMultipleSoilProfiles one;
    one.AddSoilProfile(*this);
    const bool kept = one.ExportKeepingLines(stream, original);
    unitSystem_ = one.GetSoilProfiles()[0].unitSystem_;
    return kept;
}

}  // namespace TerrixExchange
