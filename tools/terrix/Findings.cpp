#include "Findings.h"

#include <algorithm>

#include <TerrixExchange/queries/LayerDivisionCheck.h>

namespace TerrixTool {

std::vector<Finding> FindingsOf(const FileProfiles& read, bool strict) {
    using TerrixExchange::SoundnessFinding;
    std::vector<Finding> findings;
    const auto told = [&](const Finding& found) {
        return std::any_of(findings.begin(), findings.end(), [&](const Finding& known) {
            return known.line == found.line && known.text == found.text;
        });
    };
    for (std::size_t i = 0; i < read.Profiles().size(); ++i) {
        if (const auto error = TerrixExchange::FindLayerDivisionError(read.Profiles()[i], read.lines[i])) {
            findings.push_back({i, error->line, true, error->text,
                                TerrixExchange::Mending{TerrixExchange::Mending::Kind::None, "", 0, 0, 0}});
        }
        if (!strict) continue;
        for (const SoundnessFinding& finding : TerrixExchange::FindUnsoundValues(read.Profiles()[i], read.lines[i])) {
            const Finding found{i, finding.line, finding.severity == SoundnessFinding::Severity::Error, finding.text,
                                finding.mending};
            if (!told(found)) findings.push_back(found);
        }
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    return findings;
}

}  // namespace TerrixTool
