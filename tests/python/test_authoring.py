"""Profiles edited, made and written in Python: an edit changes the lines
that hold what it changed and no other, the counts follow a table that
set_table replaces, profiles whose tables disagree are refused, a wrong
name or value changes nothing, and profiles made anew or from their dicts
are what the terrix tool makes and reads."""

import copy
import json
import math

import pytest

import terrix
from support import CASES, EXAMPLES, NORTH_SEA_V4, OFFSHORE, as_bytes, case_id, tool, tool_status

EDITS = sorted((CASES / "edits").glob("*.terrix"))
MAIN_LAYERS = "SOIL MAIN LAYERS AND PROPERTIES SECTION"
SKIN_FRICTION = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION"
CODES = "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION"


def patched(document, patch):
    """A dump with a JSON Patch applied (replace, add, remove)."""
    document = copy.deepcopy(document)
    for operation in patch:
        keys = [key.replace("~1", "/").replace("~0", "~") for key in operation["path"].split("/")[1:]]
        parent = document
        for key in keys[:-1]:
            parent = parent[int(key) if isinstance(parent, list) else key]
        last = keys[-1]
        if isinstance(parent, list):
            if operation["op"] == "remove":
                del parent[int(last)]
            elif last == "-":
                parent.append(operation["value"])
            else:
                parent[int(last)] = operation["value"]
        elif operation["op"] == "remove":
            del parent[last]
        else:
            parent[last] = operation["value"]
    return document


def edit_as_patched(profile, before, after):
    """The edits of Profile.set and set_table that turn the sections
    `before` into `after`: parameters first, then tables."""
    for title, section in after.items():
        for name, value in section.items():
            if name != "records" and before.get(title, {}).get(name) != value:
                profile.set(title, name, value)
    for title, section in after.items():
        if "records" in section and before.get(title, {}).get("records") != section["records"]:
            profile.set_table(title, section["records"])


# The edit cases of the library (a file, a JSON Patch on its dump, the text
# expected), made with set and set_table. A layout is not one value: the
# table's columns change with it, which Profile.set does not do.
@pytest.mark.parametrize("path", [path for path in EDITS if "layout" not in path.name], ids=case_id)
def test_set_and_set_table_write_the_edit_cases_as_the_library_does(path):
    original = path.read_bytes()
    profiles = terrix.loads(original)
    dump = json.loads(tool("dump", path))
    edited = patched(dump, json.loads(path.with_suffix(".patch").read_text()))
    for profile, before, after in zip(profiles, dump["profiles"], edited["profiles"]):
        edit_as_patched(profile, before["sections"], after["sections"])
    assert as_bytes(terrix.dumps(profiles)) == path.with_suffix(".expected").read_bytes()


def changed(value):
    if isinstance(value, int):
        return value + 1
    return value * 2.0 + 1.0 if math.isfinite(value) else 1.0


# Every number of a file with comments, changed alone, changes its own line
# alone; the rest of the text is the file's, byte for byte. (Counts and
# codes that make the profile read otherwise are passed over.)
@pytest.mark.parametrize("name", ["hand-written-v4.terrix", "hand-written-v5.terrix"])
def test_one_value_set_changes_its_line_alone(name):
    original = (CASES / "dump" / name).read_bytes()
    lines = original.splitlines(keepends=True)
    profile, = terrix.loads(original)
    edits = 0
    for title, section in profile.sections.items():
        places = [(key, None, None) for key, value in section.items() if isinstance(value, (int, float))]
        for record, row in enumerate(section.get("records", [])):
            places += [(None, record, column) for column, value in row.items() if isinstance(value, (int, float))]
        for key, record, column in places:
            edited, = terrix.loads(original)
            try:
                if key is not None:
                    edited.set(title, key, changed(section[key]))
                else:
                    rows = copy.deepcopy(section["records"])
                    rows[record][column] = changed(rows[record][column])
                    edited.set_table(title, rows)
            except ValueError:  # a count that its list gives
                continue
            if edited.inconsistencies() or (key is None and edited.sections["CONTROL SECTION"] !=
                                            profile.sections["CONTROL SECTION"]):
                continue  # not one value: a count follows
            if json.dumps(edited.sections) == json.dumps(profile.sections):
                continue  # NUMPNT, which its curve's lists give
            written = as_bytes(terrix.dumps(edited)).splitlines(keepends=True)
            assert len(written) == len(lines), (title, key, record, column)
            assert sum(a != b for a, b in zip(written, lines)) == 1, (title, key, record, column)
            edits += 1
    assert edits >= 60


def test_set_table_takes_a_frame_and_the_counts_follow_it(tmp_path):
    profile, = terrix.read(OFFSHORE)
    for title in (MAIN_LAYERS, SKIN_FRICTION, CODES):
        frame = profile.section_frame(title)
        last = frame.iloc[[-1]].copy()
        last["MAIN LAYER"] = 4
        last["ZBOTM" if "ZBOTM" in last else "CALC METH"] = 55.0 if "ZBOTM" in last else 0
        profile.set_table(title, frame._append(last, ignore_index=True))
    assert profile.sections["CONTROL SECTION"]["NUMLAYM"] == 4
    assert [layer.z_bottom for layer in profile.layers()] == [8.0, 22.0, 40.0, 55.0]
    assert profile.layers_frame()["z_bottom"].tolist() == [8.0, 22.0, 40.0, 55.0]
    terrix.write(profile, tmp_path / "four.terrix")
    assert tool_status("check", "--strict", tmp_path / "four.terrix")[0] == 0
    # A soil type removed in version 4: NUMTYP follows.
    v4, = terrix.read(NORTH_SEA_V4)
    types = v4.sections["SOIL TYPE AND PROPERTY SECTION"]["records"]
    v4.set_table("SOIL TYPE AND PROPERTY SECTION", types[:3])
    assert v4.sections["CONTROL SECTION"]["NUMTYP"] == 3
    # Curves of a kind the profile does not give yet: their count comes with them.
    curve = {"LAY": 5, "DIAM": 6.0, "NUMPNT": 2, "BS-VALUES": [0.0, 1000.0], "Y-VALUES": [0.0, 0.01]}
    profile.set_table("MANUAL BS-Y (BASE SHEAR) DATA SECTION", [curve])
    assert profile.sections["CONTROL SECTION"]["NUMBS"] == 1
    assert profile.sections["MANUAL BS-Y (BASE SHEAR) DATA SECTION"]["records"] == [curve]
    assert profile.sections["CONTROL SECTION"]["NUMDM"] is None


def test_edits_are_answered_by_sections_parameters_layers_frames_and_plots():
    profile, = terrix.read(OFFSHORE)
    profile.set("SOIL SURFACE AND GROUND WATER SECTION", "ZSURF", 1.5)
    rows = profile.sections[MAIN_LAYERS]["records"]
    rows[0]["PHI"] = 30.0
    profile.set_table(MAIN_LAYERS, rows)
    assert profile.sections["SOIL SURFACE AND GROUND WATER SECTION"]["ZSURF"] == 1.5
    assert profile.parameters["ZSeafloor"] == 1.5
    assert profile.layers()[0].z_top == 1.5
    assert profile.layers()[0].phi == math.radians(30.0)
    assert profile.layers_frame()["phi"].iloc[0] == math.radians(30.0)
    assert profile.section_frame(MAIN_LAYERS)["PHI"].tolist() == [30.0, 0.0, 38.0]
    assert profile.plot().axes[0].get_ylim() == (40.0, 1.5)


# A wrong name or value: the error and its message, and nothing changed.
WRONG_EDITS = [
    ("set", ("CONTROL SECTIO", "GAMMAW", 1.0), KeyError, "the profile holds no section 'CONTROL SECTIO'; its version has: CONTROL SECTION, "),
    ("set", ("CONTROL SECTION", "GAMMAX", 1.0), KeyError, "section 'CONTROL SECTION' has no parameter 'GAMMAX' (its parameters: profileName, CONFRC, "),
    ("set", (MAIN_LAYERS, "records", []), KeyError, f"section '{MAIN_LAYERS}' has no parameter 'records' "),
    ("set", ("CONTROL SECTION", "GAMMAW", "10"), TypeError, "section 'CONTROL SECTION', parameter 'GAMMAW': expected a number, found '10'"),
    ("set", ("CONTROL SECTION", "GAMMAW", None), TypeError, "section 'CONTROL SECTION', parameter 'GAMMAW': expected a number, found None"),
    ("set", ("CONTROL SECTION", "NUMLAYM", True), TypeError, "section 'CONTROL SECTION', parameter 'NUMLAYM': expected a number, found True"),
    ("set", ("CONTROL SECTION", "profileName", 7), TypeError, "section 'CONTROL SECTION', parameter 'profileName': expected a text, found 7"),
    ("set", ("PILE DIAMETERS AND GROUP EFFECTS SECTION", "diameters", [6.0, "8"]), TypeError,
     "section 'PILE DIAMETERS AND GROUP EFFECTS SECTION', parameter 'diameters': expected a list of numbers, found [6.0, '8']"),
    ("set", ("CONTROL SECTION", "NUMLAYM", 3.5), ValueError, "profile, section 'CONTROL SECTION', parameter 'NUMLAYM': expected a whole number, found 3.5"),
    ("set", ("PILE DIAMETERS AND GROUP EFFECTS SECTION", "NUMDIA", 3), ValueError,
     "section 'PILE DIAMETERS AND GROUP EFFECTS SECTION', parameter 'NUMDIA': it counts the values of its list, which hold 2; set the list instead"),
    ("set", (MAIN_LAYERS, "layout", "with A K"), ValueError, f"profile, section '{MAIN_LAYERS}', 'layout': expected \"with AK\" or \"without AK\", found \"with A K\""),
    ("set_table", ("CONTROL SECTION", []), ValueError, "'CONTROL SECTION' is no table: it holds no records"),
    ("set_table", ("TABLE", []), KeyError, "the profile holds no section 'TABLE'; "),
    ("set_table", (MAIN_LAYERS, [{"MAIN LAYER": 1}]), KeyError, f"section '{MAIN_LAYERS}', record 1, column 'ZBOTM': missing"),
    ("set_table", (MAIN_LAYERS, "PHII"), TypeError, f"section '{MAIN_LAYERS}': expected a list of records, found 'PHII'"),
    ("set_table", (MAIN_LAYERS, [7]), TypeError, f"section '{MAIN_LAYERS}', record 1: expected a record (a dict keyed by the columns' titles), found 7"),
]


def with_record(change):
    profile, = terrix.read(OFFSHORE)
    rows = profile.sections[MAIN_LAYERS]["records"]
    change(rows[1])
    return rows


WRONG_EDITS += [
    ("set_table", (MAIN_LAYERS, with_record(lambda row: row.update({"PHII": 3.0}))), KeyError,
     f"section '{MAIN_LAYERS}', record 2: no column 'PHII' (its columns: MAIN LAYER, ZBOTM, "),
    ("set_table", (MAIN_LAYERS, with_record(lambda row: row.update({"PHI": "36"}))), TypeError,
     f"section '{MAIN_LAYERS}', record 2, column 'PHI': expected a number, found '36'"),
    ("set_table", (MAIN_LAYERS, with_record(lambda row: row.update({"IP": 2.5}))), ValueError,
     f"profile, section '{MAIN_LAYERS}', record 2, column 'IP': expected a whole number, found 2.5"),
]


@pytest.mark.parametrize("method, arguments, error, message", WRONG_EDITS,
                         ids=[f"{case[0]}-{i}" for i, case in enumerate(WRONG_EDITS)])
def test_a_wrong_name_or_value_raises_its_error_and_changes_nothing(method, arguments, error, message):
    profile, = terrix.read(OFFSHORE)
    sections, text = profile.sections, terrix.dumps(profile)
    with pytest.raises(error) as caught:
        getattr(profile, method)(*arguments)
    assert type(caught.value) is error
    shown = caught.value.args[0]
    assert shown == message or (message.endswith(" ") and shown.startswith(message))
    assert profile.sections == sections and terrix.dumps(profile) == text


def test_profiles_whose_tables_disagree_are_refused_with_every_disagreement(tmp_path):
    profiles = terrix.read(SOURCE_THREE)
    rows = profiles[1].sections[MAIN_LAYERS]["records"]
    profiles[1].set_table(MAIN_LAYERS, rows + [dict(rows[-1], **{"MAIN LAYER": 9})])
    profiles[2].set("CONTROL SECTION", "NUMDSP", 4)
    expected = ("The profiles would not read back as they are:\n"
                f"profile #1: NUMLAYM is 5 but '{SKIN_FRICTION}' holds 4 records\n"
                f"profile #1: NUMLAYM is 5 but '{CODES}' holds 4 records\n"
                "profile #2: NUMDSP is 4 but 'GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION' holds 1 record")
    for write in (lambda: terrix.dumps(profiles), lambda: terrix.dumps(profiles, keep_lines=False),
                  lambda: terrix.write(profiles, tmp_path / "refused.terrix")):
        with pytest.raises(ValueError) as caught:
            write()
        assert str(caught.value) == expected
    assert not (tmp_path / "refused.terrix").exists()
    assert profiles[2].inconsistencies() == [expected.split("profile #2: ")[1]]


SOURCE_THREE = [path for path in EXAMPLES if path.name == "three-profiles.terrix"][0]


@pytest.mark.parametrize("version, units, name", [(5, ("kN", "m"), "WF-A01"), (4, ("N", "mm"), ""), (5, ("lbf", "ft"), "")])
def test_new_profiles_are_those_terrix_new_writes_and_pass_the_strict_check(version, units, name, tmp_path):
    profile = terrix.new(version, units, name)
    assert (profile.version, profile.units, profile.name) == (version, units, name)
    expected = tool("new", "--version", version, "--units", *units, *(["--name", name] if name else []))
    assert as_bytes(terrix.dumps(profile)) == expected
    terrix.write(profile, tmp_path / "new.terrix")
    assert tool_status("check", "--strict", tmp_path / "new.terrix") == (
        0, f"{tmp_path / 'new.terrix'}: OK version {version}, 1 profile, units {' '.join(units)}\n")
    assert profile.layers() == []


@pytest.mark.parametrize("arguments, message", [
    ((6,), "version: 4 or 5, not 6"),
    ((4, ("kN", "m"), "A"), "name: a version 4 profile has no name"),
    ((5, ("kN", "m"), "ELEVENCHARS"), "name 'ELEVENCHARS': a profile name has at most 10 characters"),
])
def test_new_refuses_what_terrix_new_refuses(arguments, message):
    with pytest.raises(ValueError) as caught:
        terrix.new(*arguments)
    assert str(caught.value) == message


DICT_CASES = EXAMPLES + sorted((CASES / "dump").glob("*.terrix")) + sorted((CASES / "edits").glob("*.terrix"))


@pytest.mark.parametrize("path", DICT_CASES, ids=case_id)
def test_from_dict_of_to_dict_is_the_same_profile(path, tmp_path):
    profiles = terrix.read(path)
    back = [terrix.from_dict(profile.to_dict()) for profile in profiles]
    assert terrix.dumps(back) == terrix.dumps(profiles, keep_lines=False)
    assert json.dumps([p.to_dict() for p in back]) == json.dumps([p.to_dict() for p in profiles])
    terrix.write(back, tmp_path / "back.terrix")
    assert tool_status("diff", path, tmp_path / "back.terrix")[0] == 0


def test_to_dict_is_the_profile_of_terrix_dump_without_its_answers():
    dumped = json.loads(tool("dump", OFFSHORE))["profiles"][0]
    dumped.pop("parameters"), dumped.pop("layers")
    assert terrix.read(OFFSHORE)[0].to_dict() == dumped


@pytest.mark.parametrize("change, message", [
    (lambda d: d.update(version=6), "profile, 'version': expected 4 or 5, found 6"),
    (lambda d: d["sections"][MAIN_LAYERS]["records"][0].update(PHI="x"),
     f"profile, section '{MAIN_LAYERS}', record 1, column 'PHI': expected a number, found \"x\""),
    (lambda d: d["sections"][MAIN_LAYERS]["records"].pop(),
     f"profile, section '{MAIN_LAYERS}', 'records': expected 3 records, as the counts of the profile give, found 2"),
])
def test_from_dict_raises_the_errors_of_the_json_reader(change, message):
    profile = terrix.read(OFFSHORE)[0].to_dict()
    change(profile)
    with pytest.raises(ValueError) as caught:
        terrix.from_dict(profile)
    assert str(caught.value) == message


def test_a_frames_missing_cell_is_a_value_left_out_and_every_table_goes_back_unchanged():
    # hand-written-v4 leaves G0-SOIL out of some rows, which the frame shows
    # as NaN; set back, every table is the same and the text the file's.
    original = (CASES / "dump" / "hand-written-v4.terrix").read_bytes()
    profile, = terrix.loads(original)
    left_out = [row["G0-SOIL"] is None for row in profile.sections[SKIN_FRICTION]["records"]]
    assert any(left_out)
    for title, section in profile.sections.items():
        if "records" in section:
            profile.set_table(title, profile.section_frame(title))
    assert as_bytes(terrix.dumps(profile)) == original
    assert [row["G0-SOIL"] is None for row in profile.sections[SKIN_FRICTION]["records"]] == left_out
