#pragma once

// The wire of the Language Server Protocol: JSON-RPC 2.0 messages, each a
// header ("Content-Length: N", blank line) and N bytes of JSON, over
// standard input and output.

#include <cstddef>
#include <istream>
#include <ostream>
#include <string>

#include "Json.h"

namespace TerrixTool {

// JSON-RPC's error codes, and those the protocol adds.
namespace RpcError {
const int parseError = -32700;
const int invalidRequest = -32600;
const int methodNotFound = -32601;
const int invalidParams = -32602;
const int internalError = -32603;
const int serverNotInitialized = -32002;
const int requestFailed = -32803;
}  // namespace RpcError

// Reads one message after the other. A body larger than `maximumSize` is
// passed over without being kept, so that no message can take the memory.
class MessageReader {
public:
    enum class Result { Message, Malformed, End };

    explicit MessageReader(std::istream& input, std::size_t maximumSize = 64u << 20);

    // The next message's body; Malformed, with `problem` saying why, for a
    // header without a length or a body too large (reading goes on after
    // it); End at the end of the input.
    Result Read(std::string& body, std::string& problem);
    // Whether input is waiting, so that work for the editor can wait until
    // the messages already sent are read (a run of keystrokes is diagnosed
    // once). False where the platform cannot tell.
    bool HasMoreWaiting() const;

private:
    // One header line without its line end; false at the end of the input.
    bool ReadHeaderLine(std::string& line);

    std::istream& input_;
    std::size_t maximumSize_;
};

// A message with its header, written and flushed at once.
void WriteMessage(std::ostream& output, const Json& message);

// The messages the server sends.
Json ResultMessage(const Json& id, const Json& result);
Json ErrorMessage(const Json& id, int code, const std::string& message);
Json Notification(const std::string& method, const Json& params);

}  // namespace TerrixTool
