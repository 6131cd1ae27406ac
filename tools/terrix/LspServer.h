#pragma once

// terrix lsp: a language server over standard input and output. It keeps
// the texts the editor opened, imports each through the library after every
// change, and answers with diagnostics, hovers, the outline, formatting and
// fixes. Nothing but protocol messages goes to standard output.

#include <istream>
#include <map>
#include <memory>
#include <ostream>
#include <string>

#include <boost/optional.hpp>

#include "Json.h"
#include "LspAnalysis.h"
#include "LspProtocol.h"
#include "LspText.h"
#include "Profiles.h"

namespace TerrixTool {

class LanguageServer {
public:
    // `units`: those of --units, which the editor's setting terrix.units
    // replaces.
    LanguageServer(std::istream& input, std::ostream& output, const boost::optional<UnitNames>& units);

    // Serves until the editor says exit, or the input ends; the exit status:
    // 0 after shutdown, 1 otherwise.
    int Run();

private:
    struct Document {
        DocumentText text;
        // Of the text as it is now; none until asked for after a change.
        std::unique_ptr<Analysis> analysis;
        bool diagnosed = false;
    };

    void Handle(const std::string& body);
    void HandleRequest(const Json& id, const std::string& method, const Json& params);
    void HandleNotification(const std::string& method, const Json& params);
    Json Initialize(const Json& params);
    void Configure(const Json& settings);
    // The document a request names; throws a RequestError when it was
    // never opened.
    Document& DocumentOf(const Json& params);
    const Analysis& AnalysisOf(Document& document);
    // Diagnostics for every document changed since its last ones.
    void PublishPendingDiagnostics();
    void Publish(const std::string& uri, const Json& diagnostics);
    void ShowMessage(int type, const std::string& message);
    void Send(const Json& message) { WriteMessage(output_, message); }

    MessageReader reader_;
    std::ostream& output_;
    boost::optional<UnitNames> commandLineUnits_;
    boost::optional<UnitNames> units_;
    PositionEncoding encoding_ = PositionEncoding::Utf16;
    bool initialized_ = false;
    bool shutDown_ = false;
    boost::optional<int> exitStatus_;
    std::map<std::string, Document> documents_;
};

}  // namespace TerrixTool
