"""Profiles in Excel workbooks: laid out for engineers in the units of the
file, read back as the same profiles with every double exact, a bad cell
named by its sheet and cell, and a workbook typed by hand read as the
profile it says."""

import math
import struct

import openpyxl
import pytest

import terrix
from support import CASES, EXAMPLES, OFFSHORE, case_id, tool_status

MAIN_LAYERS = "SOIL MAIN LAYERS AND PROPERTIES SECTION"
ROUND_TRIP = EXAMPLES + sorted((CASES / "dump").glob("*.terrix"))


@pytest.mark.parametrize("units", [None, ("lbf", "ft")], ids=["own-units", "lbf-ft"])
@pytest.mark.parametrize("path", ROUND_TRIP, ids=case_id)
def test_a_workbook_reads_back_as_the_same_profiles(path, units, tmp_path):
    profiles = terrix.read(path, units)
    terrix.write_excel(profiles, tmp_path / "profiles.xlsx")
    back = terrix.read_excel(tmp_path / "profiles.xlsx")
    assert terrix.dumps(back) == terrix.dumps(profiles, keep_lines=False)
    if units is None:
        terrix.write(back, tmp_path / "back.terrix")
        assert tool_status("diff", path, tmp_path / "back.terrix")[0] == 0


def rows_of(sheet):
    return [[cell for cell in row] for row in sheet.iter_rows(values_only=True)]


def row_named(sheet, name, after=None):
    """The number of the first row whose first cell is `name` (below the row
    `after` if given)."""
    for row in sheet.iter_rows(min_row=1 if after is None else row_named(sheet, after) + 1):
        if row[0].value == name:
            return row[0].row
    raise LookupError(name)


def test_the_workbook_holds_parameters_and_tables_in_the_units_of_the_file(tmp_path):
    profile, = terrix.read(OFFSHORE)
    terrix.write_excel(profile, tmp_path / "offshore.xlsx")
    book = openpyxl.load_workbook(tmp_path / "offshore.xlsx")
    assert book.sheetnames == ["NS-MP07"]
    sheet = book["NS-MP07"]
    rows = rows_of(sheet)
    assert [row[:3] for row in rows[:5]] == [["TERRIX", None, None], ["version", 5, None], ["revision", 0, None],
                                             ["units", "kN", "m"], ["encoding", "UTF-8", None]]
    assert rows[5][1] == profile.header
    gammaw = row_named(sheet, "GAMMAW")
    assert rows[gammaw - 1][:4] == ["GAMMAW", 10.0518, "kN/m3", "UNIT WEIGHT OF WATER (9.81 KN/M3 IN SI-UNITS)"]
    assert rows[row_named(sheet, "diameters") - 1][:3] == ["diameters", 6, "m"]
    assert rows[row_named(sheet, "diameters")][:3] == ["diameters", 8, "m"]
    titles = row_named(sheet, "MAIN LAYER", after=MAIN_LAYERS)
    assert rows[titles - 1][:8] == ["MAIN LAYER", "ZBOTM", "GAMTOT", "CPTTOP", "CPTBOT", "PHI", "DR", "SUTOP"]
    assert rows[titles][:8] == [None, "m", "as written", "as written", "as written", None, None, "as written"]
    assert rows[titles + 2][:9] == [2, 22, 19.5, 1.5, 2.5, 0, 0, 80, 140]
    # A curve's values go down their columns, a point per row.
    curves = row_named(sheet, "LAY", after="MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION")
    assert rows[curves][:5] == [None, "m", None, "kN/m2", "m"]
    assert [row[:5] for row in rows[curves + 1:curves + 4]] == [[5, 6, 5, 0, 0], [None, None, None, 180, 0.006],
                                                                 [None, None, None, 310, 0.03]]


def test_every_double_comes_back_exact_and_a_number_excel_cannot_hold_stays_text(tmp_path):
    profile, = terrix.read(OFFSHORE)
    awkward = {"GAMMAW": 0.1 + 0.2, "ATMPRS": math.nan, "ZCYCL": -0.0, "SUSTIF": math.inf}
    for name, value in awkward.items():
        profile.set("CONTROL SECTION", name, value)
    profile.set("PILE DIAMETERS AND GROUP EFFECTS SECTION", "diameters", [5e-324, 1e300, 2 / 3])
    terrix.write_excel(profile, tmp_path / "awkward.xlsx")
    back, = terrix.read_excel(tmp_path / "awkward.xlsx")

    def bits(value):
        return struct.pack("<d", value)

    for name, value in awkward.items():
        assert bits(back.sections["CONTROL SECTION"][name]) == bits(value), name
    assert [bits(d) for d in back.sections["PILE DIAMETERS AND GROUP EFFECTS SECTION"]["diameters"]] == \
        [bits(d) for d in (5e-324, 1e300, 2 / 3)]
    sheet = openpyxl.load_workbook(tmp_path / "awkward.xlsx").active
    cells = {name: sheet.cell(row_named(sheet, name), 2).value for name in awkward}
    assert cells == {"GAMMAW": "0.00030000000000000004", "ATMPRS": "NaN", "ZCYCL": "-0.0", "SUSTIF": "Inf"}


def test_a_layer_table_typed_into_a_new_profiles_workbook_is_a_profile(tmp_path):
    started = terrix.new(5, ("kN", "m"), "WF-A01")
    terrix.write_excel(started, tmp_path / "new.xlsx")
    book = openpyxl.load_workbook(tmp_path / "new.xlsx")
    sheet = book.active
    layers = [(1, 10.0, 19.0, 34.0, 0.0, 0.0), (2, 25.0, 18.0, 0.0, 60.0, 110.0)]
    for title, row in ((MAIN_LAYERS, lambda n, z, g, phi, su1, su2: [n, z, g, 0, 0, phi, 0, su1, su2, 0, 0, 0, 0]),
                       ("SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION",
                        lambda n, *_: [n, 0, 0, 0, 0, 0, 0, 0, 1, 0.9, 0.01]),
                       ("MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION",
                        lambda n, z, *_: [n, z, 4, 287, 293, 293, 0])):
        at = row_named(sheet, "MAIN LAYER", after=title) + 2
        sheet.insert_rows(at, len(layers))
        for offset, layer in enumerate(layers):
            for column, value in enumerate(row(*layer), 1):
                sheet.cell(at + offset, column, value)
    sheet.cell(row_named(sheet, "ZCYCL"), 2, "12.5")  # typed as text
    book.save(tmp_path / "typed.xlsx")
    profile, = terrix.read_excel(tmp_path / "typed.xlsx")
    assert profile.sections["CONTROL SECTION"]["NUMLAYM"] == 2
    assert profile.sections["CONTROL SECTION"]["ZCYCL"] == 12.5
    assert profile.layers_frame()["z_bottom"].tolist() == [10.0, 25.0]
    assert profile.section_frame(MAIN_LAYERS)["SUBOT"].tolist() == [0.0, 110.0]
    terrix.write(profile, tmp_path / "wf-a01.terrix")
    assert tool_status("check", "--strict", tmp_path / "wf-a01.terrix")[0] == 0


# A bad cell: where it is (a row's first cell, and below which row to look
# for it), the column, what is typed there, and the message.
BAD_CELLS = [
    ("GAMMAW", None, 2, "abc", "cell B15: expected a number, found 'abc'"),
    ("GAMMAW", None, 2, None, "cell B15: expected a number, found nothing"),
    ("NUMLAYM", None, 2, 2.5, "cell B13: expected a whole number, found 2.5"),
    ("version", None, 2, 6, "cell B2: expected 4 or 5, found 6"),
    ("GAMMAW", None, 1, "GAMMAX", "cell A15: expected a parameter of section 'CONTROL SECTION', found 'GAMMAX'"),
    ("layout", None, 2, "with A K", "cell B65: expected 'with AK' or 'without AK', found 'with A K'"),
    ("MAIN LAYER", MAIN_LAYERS, 6, "PHII", f"cell F66: expected a column of section '{MAIN_LAYERS}', found 'PHII'"),
    ("MAIN LAYER", MAIN_LAYERS, 6, None, f"cell F66: expected a column of section '{MAIN_LAYERS}', found nothing"),
    ("TERRIX", None, 1, "TERRIKS", "cell A1: expected 'TERRIX', the first cell of a profile's sheet, found 'TERRIKS'"),
]


@pytest.mark.parametrize("name, after, column, typed, message", BAD_CELLS,
                         ids=[f"{case[0]}-{case[3]}" for case in BAD_CELLS])
def test_a_bad_cell_is_named_by_its_sheet_and_cell(name, after, column, typed, message, tmp_path):
    terrix.write_excel(terrix.read(OFFSHORE), tmp_path / "offshore.xlsx")
    book = openpyxl.load_workbook(tmp_path / "offshore.xlsx")
    sheet = book.active
    at = row_named(sheet, name, after)
    if name == "MAIN LAYER":
        at += 2  # a record's row, below the titles and units
        sheet.cell(at - 2, column).value = typed
        message = message.replace("F66", f"F{at - 2}")
    else:
        sheet.cell(at, column).value = typed
    book.save(tmp_path / "bad.xlsx")
    with pytest.raises(ValueError) as caught:
        terrix.read_excel(tmp_path / "bad.xlsx")
    assert str(caught.value) == "sheet 'NS-MP07', " + message


def test_what_the_profile_reader_refuses_names_the_sheet(tmp_path):
    profiles = terrix.read(EXAMPLES[3])
    terrix.write_excel(profiles, tmp_path / "three.xlsx")
    book = openpyxl.load_workbook(tmp_path / "three.xlsx")
    assert book.sheetnames == [p.name for p in profiles]
    book.worksheets[1]["B5"] = "UTF-9"
    book.save(tmp_path / "bad.xlsx")
    with pytest.raises(ValueError) as caught:
        terrix.read_excel(tmp_path / "bad.xlsx")
    assert str(caught.value) == (f"sheet '{profiles[1].name}': profile, 'encoding': "
                                 "expected \"UTF-8\" or \"Latin-1\", found \"UTF-9\"")


def test_sheets_are_named_after_profiles_where_excel_takes_the_name():
    taken = set()
    names = []
    for index, name in enumerate(["NS-MP07", "", "ns-mp07", "A/B", "x" * 32], 1):
        names.append(terrix.excel.sheet_name(name, index, taken))
        taken.add(names[-1].lower())
    assert names == ["NS-MP07", "profile 2", "profile 3", "profile 4", "profile 5"]
