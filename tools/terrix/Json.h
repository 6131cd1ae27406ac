#pragma once

// The JSON of terrix dump, as the library writes and reads it. Objects keep
// their keys in the order they are added, so a section's parameters stand in
// the order of the file.

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/archive/JsonFormat.h>

namespace TerrixTool {

using TerrixExchange::Json;
using TerrixExchange::JsonNumber;
using TerrixExchange::JsonNumbers;
using TerrixExchange::JsonText;
using TerrixExchange::NonFiniteText;
using TerrixExchange::WriteJson;

}  // namespace TerrixTool
