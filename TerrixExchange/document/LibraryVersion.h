#pragma once

namespace TerrixExchange {

// The version of the library a program runs with ("1.1.0"), which may be
// newer than the headers it was built with.
const char* GetLibraryVersion();

}  // namespace TerrixExchange
