#include "LspServer.h"

#include <sstream>
#include <stdexcept>

#include "ToolError.h"

namespace TerrixTool {

namespace {

// A request that cannot be answered: the error the editor gets instead.
class RequestError : public std::runtime_error {
public:
    RequestError(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
    int Code() const { return code_; }

private:
    int code_;
};

const int errorMessageType = 1;
const int warningMessageType = 2;

const Json& Member(const Json& object, const char* key) {
    static const Json absent;
    return object.is_object() && object.contains(key) ? object[key] : absent;
}

std::string UriOf(const Json& params) {
    const Json& uri = Member(Member(params, "textDocument"), "uri");
    if (!uri.is_string()) throw RequestError(RpcError::invalidParams, "textDocument.uri is missing");
    return uri.get<std::string>();
}

// "kN m" as the setting names the units.
boost::optional<UnitNames> UnitsSetting(const Json& value) {
    if (!value.is_string() || value.get<std::string>().empty()) return boost::none;
    std::istringstream words(value.get<std::string>());
    std::vector<std::string> names;
    for (std::string word; words >> word;) names.push_back(word);
    if (names.size() != 2) throw Failure("terrix.units: '" + value.get<std::string>() + "' is not FORCE LENGTH, e.g. \"kN m\"");
    return ToUnitNames(names, "terrix.units");
}

}  // namespace

LanguageServer::LanguageServer(std::istream& input, std::ostream& output, const boost::optional<UnitNames>& units)
    : reader_(input), output_(output), commandLineUnits_(units), units_(units) {}

int LanguageServer::Run() {
    std::string body;
    std::string problem;
    for (;;) {
        switch (reader_.Read(body, problem)) {
        case MessageReader::Result::End:
            return shutDown_ ? 0 : 1;
        case MessageReader::Result::Malformed:
            Send(ErrorMessage(nullptr, RpcError::parseError, "Parse error: " + problem));
            break;
        case MessageReader::Result::Message:
            Handle(body);
            break;
        }
        if (exitStatus_) return *exitStatus_;
        // A run of changes is diagnosed once, after its last message.
        if (!reader_.HasMoreWaiting()) PublishPendingDiagnostics();
    }
}

void LanguageServer::Handle(const std::string& body) {
    Json message;
    try {
        message = Json::parse(body);
    } catch (const Json::parse_error& error) {
        Send(ErrorMessage(nullptr, RpcError::parseError,
                          "Parse error: the message is not JSON (at byte " + std::to_string(error.byte) + ")"));
        return;
    }
    const Json& id = Member(message, "id");
    const Json& method = Member(message, "method");
    const bool validId = id.is_null() || id.is_string() || id.is_number_integer();
    if (!message.is_object() || !validId || !method.is_string()) {
        // A response to a request of ours (we send none) is passed over.
        if (message.is_object() && !message.contains("method") && (message.contains("result") || message.contains("error")))
            return;
        Send(ErrorMessage(validId ? id : Json(nullptr), RpcError::invalidRequest,
                          "Invalid Request: a request or notification is a JSON object with a \"method\" text and, for a request, an \"id\" that is a number or a text"));
        return;
    }
    const Json& params = Member(message, "params");
    if (!message.contains("id")) {
        try {
            HandleNotification(method.get<std::string>(), params);
        } catch (const std::exception& error) {
            ShowMessage(errorMessageType, std::string("terrix lsp: ") + error.what());
        }
        return;
    }
    try {
        HandleRequest(id, method.get<std::string>(), params);
    } catch (const RequestError& error) {
        Send(ErrorMessage(id, error.Code(), error.what()));
    } catch (const std::exception& error) {
        Send(ErrorMessage(id, RpcError::internalError, error.what()));
    }
}

void LanguageServer::HandleRequest(const Json& id, const std::string& method, const Json& params) {
    if (method == "initialize") {
        if (initialized_) throw RequestError(RpcError::invalidRequest, "initialize was sent before");
        initialized_ = true;
        Send(ResultMessage(id, Initialize(params)));
        return;
    }
    if (!initialized_) throw RequestError(RpcError::serverNotInitialized, "The server is not initialized");
    if (shutDown_) throw RequestError(RpcError::invalidRequest, "The server is shut down");
    if (method == "shutdown") {
        shutDown_ = true;
        Send(ResultMessage(id, nullptr));
    } else if (method == "textDocument/hover") {
        Document& document = DocumentOf(params);
        Send(ResultMessage(id, AnalysisOf(document).Hover(Member(params, "position"))));
    } else if (method == "textDocument/documentSymbol") {
        Document& document = DocumentOf(params);
        Send(ResultMessage(id, AnalysisOf(document).Symbols()));
    } else if (method == "textDocument/formatting") {
        Document& document = DocumentOf(params);
        std::string problem;
        const Json edits = AnalysisOf(document).Formatting(problem);
        if (!problem.empty()) ShowMessage(warningMessageType, problem);
        Send(ResultMessage(id, edits));
    } else if (method == "textDocument/codeAction") {
        Document& document = DocumentOf(params);
        Send(ResultMessage(id, AnalysisOf(document).CodeActions(UriOf(params), Member(params, "range"))));
    } else {
        throw RequestError(RpcError::methodNotFound, "Method not found: " + method);
    }
}

void LanguageServer::HandleNotification(const std::string& method, const Json& params) {
    if (method == "exit") {
        exitStatus_ = shutDown_ ? 0 : 1;
        return;
    }
    if (!initialized_ || shutDown_) return;
    if (method == "textDocument/didOpen") {
        const Json& text = Member(Member(params, "textDocument"), "text");
        if (!text.is_string()) throw std::runtime_error("didOpen without the document's text");
        const std::string uri = UriOf(params);
        documents_.erase(uri);
        documents_.emplace(uri, Document{DocumentText(text.get<std::string>(), encoding_), nullptr, false});
    } else if (method == "textDocument/didChange") {
        const std::string uri = UriOf(params);
        const auto found = documents_.find(uri);
        if (found == documents_.end()) throw std::runtime_error("didChange of a document never opened: " + uri);
        Document& document = found->second;
        const Json& changes = Member(params, "contentChanges");
        if (!changes.is_array()) throw std::runtime_error("didChange without contentChanges");
        for (const Json& change : changes)
            if (!document.text.Apply(change)) throw std::runtime_error("didChange with a range outside the text");
        document.analysis.reset();
        document.diagnosed = false;
    } else if (method == "textDocument/didClose") {
        const std::string uri = UriOf(params);
        if (documents_.erase(uri) != 0) Publish(uri, Json::array());
    } else if (method == "workspace/didChangeConfiguration") {
        Configure(Member(Member(params, "settings"), "terrix"));
    }
    // Other notifications ($/cancelRequest, $/setTrace, didSave, ...) ask
    // nothing of this server.
}

Json LanguageServer::Initialize(const Json& params) {
    // UTF-8 positions when the editor offers them: the library counts bytes.
    const Json& encodings = Member(Member(Member(params, "capabilities"), "general"), "positionEncodings");
    if (encodings.is_array())
        for (const Json& encoding : encodings)
            if (encoding == "utf-8") encoding_ = PositionEncoding::Utf8;
    Configure(Member(params, "initializationOptions"));
    return Json{{"capabilities",
                 {{"positionEncoding", encoding_ == PositionEncoding::Utf8 ? "utf-8" : "utf-16"},
                  {"textDocumentSync", {{"openClose", true}, {"change", 2}}},
                  {"hoverProvider", true},
                  {"documentSymbolProvider", true},
                  {"documentFormattingProvider", true},
                  {"codeActionProvider", {{"codeActionKinds", Json::array({"quickfix"})}}}}},
                {"serverInfo", {{"name", "terrix"}, {"version", TERRIX_TOOL_VERSION}}}};
}

void LanguageServer::Configure(const Json& settings) {
    try {
        const boost::optional<UnitNames> units = UnitsSetting(Member(settings, "units"));
        units_ = units ? units : commandLineUnits_;
    } catch (const std::exception& error) {
        ShowMessage(errorMessageType, error.what());
        units_ = commandLineUnits_;
    }
    for (auto& entry : documents_) {
        entry.second.analysis.reset();
        entry.second.diagnosed = false;
    }
}

LanguageServer::Document& LanguageServer::DocumentOf(const Json& params) {
    const std::string uri = UriOf(params);
    const auto found = documents_.find(uri);
    if (found == documents_.end()) throw RequestError(RpcError::invalidParams, "Document not open: " + uri);
    return found->second;
}

const Analysis& LanguageServer::AnalysisOf(Document& document) {
    if (!document.analysis) document.analysis = std::make_unique<Analysis>(document.text, units_);
    return *document.analysis;
}

void LanguageServer::PublishPendingDiagnostics() {
    for (auto& entry : documents_) {
        if (entry.second.diagnosed) continue;
        Publish(entry.first, AnalysisOf(entry.second).Diagnostics());
        entry.second.diagnosed = true;
    }
}

void LanguageServer::Publish(const std::string& uri, const Json& diagnostics) {
    Send(Notification("textDocument/publishDiagnostics", {{"uri", uri}, {"diagnostics", diagnostics}}));
}

void LanguageServer::ShowMessage(int type, const std::string& message) {
    Send(Notification("window/showMessage", {{"type", type}, {"message", message}}));
}

}  // namespace TerrixTool
