// terrix: how an engineer uses TerrixExchange without writing C++. It checks
// that TERRIX files import, shows a profile for people, dumps what the
// library reads and answers as JSON, and writes files back, normalised or in
// other units.

#include <iostream>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include <TerrixExchange/document/LibraryVersion.h>

#include "Commands.h"
#include "ToolError.h"

namespace {

const char* const footer = R"(FILE may be - for standard input. A file may hold one profile or several,
separated by the line "### New soil profile". Every command also reads the
JSON that dump writes (a file whose first character other than a blank or a
line break is '{'): terrix dump F | terrix convert - writes what
terrix convert F writes. Its values are in N and m; its "units" are the units
the profile was read in, which --units replaces. Its "parameters" and
"layers", the answers of dump, are passed over. Bad JSON is one error that
says where (profile, section, record, column or parameter) and what was
expected and found.

Units
  FORCE is one of N kN MN GN mN lbf kipf kgf, LENGTH one of km m dm cm mm in ft.
  Without --units the units of each profile are deduced from the unit weight
  of water (GAMMAW) and the atmospheric pressure (ATMPRS) of its control
  section: the unit pair whose sizes lie within 5 per cent of what sea water
  (10.0518 kN/m3) and the air (101.3 kN/m2) give; when none does, the command
  fails with "Unable to deduce units" and you pass --units.

check
  Prints "FILE: OK" with the version, the number of profiles and the units
  for each file that imports; goes on with the next file after a failure.
  After the last profile a file may hold only empty lines, comment lines and
  the end line; any other text is an import error at its line.

check --strict
  Also reports what the format allows but no sound profile holds, each as
  "FILE:LINE: error|warning: TEXT" at the line of its record: layer
  divisions that run backwards, overlap or leave a gap; layer bottoms that
  do not grow downwards; version 4 level rows out of depth order (warning:
  lookups follow file order); pile diameters that do not increase; manual
  curves whose displacements do not increase; layers that a curve query
  finds no modification row for; counts that disagree with their tables;
  values that are NaN or infinite. A file with an error exits 1 and is not
  OK; one with warnings only is. JSON has no lines: its findings are
  "FILE: error|warning: TEXT".

show
  For each profile: its header, version, name and units; its profile-wide
  parameters; a table of its layers (the numbered layers they cover, levels,
  soil type, friction angle in degrees, unit weight, undrained shear strength
  Su at the levels the file gives it: 0 and 100 in version 4, the main
  layer's top and bottom in version 5) and a table of their curves (P-Y, T-Z
  and Q-Z codes, the manual curves of each kind, the kinds whose
  modification factors are not all 1). Values are in the units of the file;
  the unit weights and strengths that version 5 keeps as the numbers the
  file gives are shown as they stand. Numbers are shown with up to six
  significant digits (dump gives every digit). A query that fails shows
  "error" in place and its message under the layer.

dump
  JSON {"profiles": [...]}: version, name, header, units, the sections,
  "parameters" (every profile-wide query, e.g. "ZSeafloor") and "layers"
  (each layer with every per-layer query, e.g. "Phi", "SUz", "PyData") of
  each profile. Sections are keyed by their titles, parameters by their names
  and table columns by the titles of their header lines (two lines joined
  by a blank). Every number is the library's own value in N and m (stresses
  in Pa, unit weights in N/m3, angles in radians), written with the shortest
  text that reads back as the same double; NaN and infinities are the
  strings "NaN", "Infinity" and "-Infinity"; an absent optional is null; a
  query that fails is {"error": MESSAGE} in place of its answer. Maps from level or
  displacement are [key, value] pairs in ascending key order.

convert
  Writes the profiles back, each with its own header lines and, unless --to
  is given, in the units it was read in. With --to, the columns that the
  format keeps as plain numbers although they carry a dimension are not
  converted; each such column that holds a value other than 0 is named on
  standard error, and so is SU.Z=100 of version 4 (the strength at level 100
  in the length unit) when the length unit changes. Nothing is written when
  the input does not import.

report
  Writes one HTML page (FILE with .html, or -o OUT) that holds everything it
  shows, without script or anything fetched: for each profile its header,
  version, name, units and parameters; the soil column to scale (each layer
  coloured by soil type, the seafloor and the scour levels); unit weight,
  undrained shear strength, friction angle, skin friction and tip
  resistance against depth; the manual curves of each layer, one line per
  pile diameter, with their modification factors; and a table of every
  layer's answers. Values are in the units of the file; a query that fails
  shows its message in its place. It prints on A4.

new
  Writes a complete profile of --version 4 or 5 (default 5) with no layers
  yet, in --units (default kN m), named --name (version 5, at most 10
  characters): every section there, the optional M-theta, BS-Y and
  BM-theta sections with counts of 0; the unit weight of sea water
  (10.0518 kN/m3) and the atmospheric pressure (101.3 kN/m2) in those
  units, so that they deduce; conversion factors and material coefficients
  of 1; in each modification section one row of factors 1 for every layer
  and pile diameter. check --strict finds nothing in it.

lsp
  A language server over standard input and output (Language Server
  Protocol): an editor starts it and shows the import error or the findings
  of check --strict at their lines, a hover on any value (its section,
  parameter or column, the value in the file's units and in N and m), the
  outline of the sections, formatting as the exporter lays lines out
  (values, comment lines and the header kept) and fixes of a count that
  disagrees with its table or of layers no modification row covers. Units
  are deduced, or named by --units or the editor's setting terrix.units
  ("kN m"). editors/ holds the VS Code extension and the lines for Neovim
  and Emacs.

--profile NAME picks the first profile of that name, #INDEX the profile at
that place, counted from #0. --no-split (show, dump) gives the layers as
the layer divisions of the file give them; without it, a version 4 division
is cut into its numbered layers and neighbours whose curve data agree are
joined again (version 5 layers are its main layers either way).

Layer divisions
  A version 4 layer division that runs backwards (LAYER2 less than LAYER1),
  or divisions that cover more than 1000000 numbered layers, cannot be split
  into layers: check reports them as "FILE:LINE: error: TEXT", show and dump
  give the layers as that error.

Exit status
  0 success; 1 a file could not be read, imported, converted or written, a
  layer division cannot be split, or a unit name is unknown; 2 wrong usage,
  also a --profile that the file does not hold. Errors go to standard error:
  "terrix: FILE: cannot import", then the library's error text (for an import
  error its four lines: the line number, the message, the section and the
  line found), control characters shown as escapes (\x00) and a line found
  longer than 200 characters cut. convert writes nothing for a profile that
  would not read back as it is, and names what disagrees.)";

// Help as CLI11 writes it, but an option of two values shows its two names
// ("--units FORCE LENGTH") without CLI11's count ("x 2").
class Formatter : public CLI::Formatter {
public:
    std::string make_option_opts(const CLI::Option* option) const override {
        std::string text = CLI::Formatter::make_option_opts(option);
        const std::string count = " x 2";
        if (text.size() > count.size() && text.compare(text.size() - count.size(), count.size(), count) == 0)
            text.erase(text.size() - count.size());
        return text;
    }
};

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("terrix: check, show, dump, convert, report, diff and make TERRIX soil-data input files", "terrix");
    app.set_version_flag("--version", std::string("terrix ") + TERRIX_TOOL_VERSION + ", TerrixExchange library " +
                                          TerrixExchange::GetLibraryVersion(),
                         "The version of the tool and the library");
    auto formatter = std::make_shared<Formatter>();
    // Narrow option columns keep every line of the help within 80 columns.
    formatter->column_width(22);
    app.formatter(formatter);
    app.footer(footer);
    app.require_subcommand(1);

    TerrixTool::CommandRun run;
    TerrixTool::AddCheckCommand(app, run);
    TerrixTool::AddShowCommand(app, run);
    TerrixTool::AddDumpCommand(app, run);
    TerrixTool::AddConvertCommand(app, run);
    TerrixTool::AddReportCommand(app, run);
    TerrixTool::AddDiffCommand(app, run);
    TerrixTool::AddNewCommand(app, run);
    TerrixTool::AddLspCommand(app, run);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);  // --help, --version
        std::cerr << "terrix: " << error.what() << "\nRun 'terrix --help' for the commands and their options."
                  << std::endl;
        return 2;
    }

    try {
        return run();
    } catch (const TerrixTool::UsageError& error) {
        std::cerr << "terrix: " << error.what() << std::endl;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "terrix: " << error.what() << std::endl;
        return 1;
    }
}
