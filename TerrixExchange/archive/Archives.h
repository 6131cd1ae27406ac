#pragma once

// Every archive that walks the sections' Serialize: the text importer (of a
// stream, and of a text in memory) and exporter, and the JSON exporter and
// importer. A section's source makes its
// Serialize for all of them at once:
//
//     #define INSTANTIATE(Archive) template void ControlSection::Serialize(Archive&);
//     TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
//     #undef INSTANTIATE
//
// so that an archive added here reaches every section without a line of
// the section changing.

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/archive/JsonImporter.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>

#define TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)    \
    INSTANTIATE(::TerrixExchange::Importer)      \
    INSTANTIATE(::TerrixExchange::TextImporter)  \
    INSTANTIATE(::TerrixExchange::Exporter)      \
    INSTANTIATE(::TerrixExchange::JsonExporter)  \
    INSTANTIATE(::TerrixExchange::JsonImporter)
