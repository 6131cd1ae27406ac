"""Profiles in Excel workbooks (openpyxl), laid out for engineers to read
and type in, and read back exactly.

A sheet per profile, in order, named after the profile (version 5) or
"profile N" where the name will not do for a sheet. From the top:

    TERRIX
    version    5
    revision   0
    units      kN     m
    encoding   UTF-8
    header     the header lines, in one cell

then each section of the profile in file order, after an empty row: its
title; for its parameters a row "name, value, unit, comment" and one row
each (a vector, such as the pile diameters, one row per value under its
name); for its table a row of the file's column titles, a row of their
units and the records, one row each. A list in a record (the values of a
curve, the MISC values of a main layer) goes down its column, a value per
row, the record's other cells standing in its first row.

Values are in the units of the profile's file, which engineers type; the
columns the format keeps as written (their unit "as written") as they
stand; angles in degrees as the file writes them. A number is an Excel
number whenever that number reads back as exactly the library's double;
else the cell holds the text the library writes for it (NaN and the
infinities too, and the rare double that takes 17 digits), which reads
back exactly. Reading takes the tables' rows as they stand and sets the
counts from them, as Profile.set_table does.
"""

import math
import struct

from . import Profile, _terrix

TOP_KEYS = ("version", "revision", "units", "encoding", "header")
PARAMETER_HEADINGS = ["name", "value", "unit", "comment"]
AS_WRITTEN = "as written"
MAGIC = "TERRIX"

# Characters a sheet's name may not hold, and its longest length.
NOT_IN_SHEET_NAMES = set('[]:*?/\\')
LONGEST_SHEET_NAME = 31


def write_excel(profiles, path):
    """Writes `profiles` (a Profile or a list) to the workbook `path` (a path
    or a binary file object), a sheet per profile."""
    from openpyxl import Workbook

    if isinstance(profiles, Profile):
        profiles = [profiles]
    book = Workbook()
    book.remove(book.active)
    taken = set()
    for index, profile in enumerate(profiles, 1):
        name = sheet_name(profile.name, index, taken)
        taken.add(name.lower())
        _write_profile(book.create_sheet(name), profile)
    book.save(path)


def read_excel(path):
    """The profiles of the workbook `path`, a sheet each, in order. A cell
    that is not what its place asks for raises ValueError naming the sheet
    and the cell ("sheet 'NS-MP07', cell B12: expected a number, found
    'abc'"); what the profile's reader refuses raises ValueError naming the
    sheet and the library's message."""
    from openpyxl import load_workbook

    book = load_workbook(path, data_only=True)
    return [_read_sheet(sheet) for sheet in book.worksheets]


def sheet_name(name, index, taken):
    """The profile's name when Excel takes it for a sheet and no other sheet
    has it (case does not count), else "profile INDEX"."""
    fits = (name and len(name) <= LONGEST_SHEET_NAME and not NOT_IN_SHEET_NAMES & set(name)
            and name.strip() == name and not name.startswith("'"))
    if fits and name.lower() not in taken:
        return name
    candidate, more = f"profile {index}", 1
    while candidate.lower() in taken:
        more += 1
        candidate = f"profile {index}-{more}"
    return candidate


def unit_name(field, units):
    """The unit of a field's values in `units` (FORCE, LENGTH): "kN/m2",
    "m", "" for plain numbers, "as written" for the columns kept so."""
    if field["meaning"] != "converted":
        return AS_WRITTEN
    force, length = field["dimension"]
    name = ""
    if force:
        name = units[0] + _power(force)
    if length > 0:
        name += (" " if name else "") + units[1] + _power(length)
    elif length < 0:
        name += "/" + units[1] + _power(-length)
    return name


def _power(power):
    return "" if power == 1 else str(power)


# ---- Writing --------------------------------------------------------------

def _write_profile(sheet, profile):
    from openpyxl.styles import Alignment, Font

    bold, italic = Font(bold=True), Font(italic=True)
    described = profile.to_dict()
    fields = profile._core.fields()
    units = profile.units
    _append(sheet, [MAGIC], bold)
    _append(sheet, ["version", described["version"]])
    _append(sheet, ["revision", described["revision"]])
    _append(sheet, ["units", *units])
    _append(sheet, ["encoding", described["encoding"]])
    _append(sheet, ["header", described["header"]])
    sheet.cell(sheet.max_row, 2).alignment = Alignment(wrap_text=True, vertical="top")
    for title, values in described["sections"].items():
        section = fields[title]
        sheet.append([])
        _append(sheet, [title], bold)
        if section["parameters"]:
            _append(sheet, PARAMETER_HEADINGS, italic)
        for name, field in section["parameters"].items():
            unit, comment = unit_name(field, units), field.get("comment", "").strip()
            if field["kind"] == "numbers":
                cells = [_cell(value, field, units) for value in values[name]] or [None]
                for place, cell in enumerate(cells):
                    _append(sheet, [name, cell, unit, comment if place == 0 else None])
            else:
                _append(sheet, [name, _cell(values[name], field, units), unit, comment])
        columns = section["columns"]
        if columns:
            _append(sheet, list(columns), bold)
            _append(sheet, [unit_name(field, units) for field in columns.values()], italic)
            for record in values["records"]:
                for row in _record_rows(record, columns, units):
                    _append(sheet, row)
    sheet.column_dimensions["A"].width = 16


def _record_rows(record, columns, units):
    lists = [len(record[name]) for name, field in columns.items() if field["kind"] == "numbers"]
    rows = []
    for place in range(max([1, *lists])):
        row = []
        for name, field in columns.items():
            if field["kind"] == "numbers":
                values = record[name]
                row.append(_cell(values[place], field, units) if place < len(values) else None)
            else:
                row.append(_cell(record[name], field, units) if place == 0 else None)
        rows.append(row)
    return rows


def _append(sheet, values, font=None):
    sheet.append(values)
    for cell in sheet[sheet.max_row]:
        # A text that starts with "=" is text, not a formula.
        if isinstance(cell.value, str) and cell.value.startswith("="):
            cell.data_type = "s"
        if font is not None:
            cell.font = font


def _cell(value, field, units):
    """A value of the profile as its cell holds it."""
    if value is None or field["kind"] not in ("number", "numbers"):
        return value
    return file_number(value, field, units)


def file_number(value, field, units):
    """A number of the profile (database units) as a cell holds it in the
    file's units: an Excel number when it reads back as exactly `value`,
    else the text the library writes for it."""
    dimension = _dimension(field)
    nearest, text = _terrix.to_file_number(value, dimension, *units)
    if math.isfinite(nearest):
        stored = _as_stored(nearest)
        if _same_double(_terrix.from_file_number(stored, dimension, *units), value):
            return nearest
    return text


def _dimension(field):
    return field["dimension"] if field["meaning"] == "converted" else [0, 0]


def _as_stored(number):
    """A number as openpyxl writes it to the workbook and reads it back."""
    from openpyxl.compat.strings import safe_string
    from openpyxl.worksheet._reader import _cast_number
    return _cast_number(safe_string(number))


def _same_double(a, b):
    return struct.pack("<d", a) == struct.pack("<d", b)


# ---- Reading --------------------------------------------------------------

class _Sheet:
    """What reading a sheet needs at hand: its name, units and the fields of
    the sections of its version."""

    def __init__(self, sheet):
        self.sheet = sheet
        self.units = None
        self.fields = None

    def fail(self, cell, text):
        raise ValueError(f"sheet '{self.sheet.title}', cell {cell.coordinate}: {text}")

    def expect(self, cell, expected):
        found = "nothing" if cell.value is None else repr(cell.value)
        self.fail(cell, f"expected {expected}, found {found}")


def _read_sheet(sheet):
    reading = _Sheet(sheet)
    every = list(sheet.iter_rows())
    rows = [row for row in every if not _blank(row)]
    if not rows or rows[0][0].value != MAGIC:
        first = rows[0][0] if rows else sheet["A1"]
        reading.expect(first, f"'{MAGIC}', the first cell of a profile's sheet")
    profile = {"sections": {}}
    place = 1
    while place < len(rows) and rows[place][0].value in TOP_KEYS:
        _read_top(reading, rows[place], profile)
        place += 1
    for key in ("version", "units"):
        if key not in profile:
            reading.fail(rows[min(place, len(rows) - 1)][0], f"the row '{key}' is missing above the sections")
    section = None
    # A table's row of units is read even when none of its columns has one.
    for row in every[rows[place - 1][0].row:]:
        if _blank(row) and (section is None or section.state != "units"):
            continue
        title = row[0].value
        if isinstance(title, str) and title in reading.fields and _blank(row[1:]):
            section = _Section(reading, title, profile["sections"].setdefault(title, {}))
        elif section is None:
            reading.expect(row[0], "the title of a section")
        else:
            section.read(row)
    try:
        return Profile(_terrix.from_edited_dict(profile))
    except ValueError as error:
        raise ValueError(f"sheet '{sheet.title}': {error}") from None


def _read_top(reading, row, profile):
    key, cells = row[0].value, row[1:]
    if key == "version":
        version = _whole_number(reading, _at(row, 1))
        if version not in (4, 5):
            reading.expect(_at(row, 1), "4 or 5")
        profile["version"] = version
        reading.fields = Profile(_terrix.new(version, ("kN", "m"), ""))._core.fields()
    elif key == "revision":
        profile["revision"] = _whole_number(reading, _at(row, 1))
    elif key == "units":
        force, length = _text(reading, _at(row, 1)), _text(reading, _at(row, 2))
        profile["units"] = {"force": force, "length": length}
        reading.units = (force, length)
    else:
        value = cells[0].value if cells else None
        profile[key] = "" if value is None else _text(reading, _at(row, 1))


class _Section:
    """The rows of one section as they come: parameters, then the table's
    titles, units and records."""

    def __init__(self, reading, title, values):
        self.reading = reading
        self.title = title
        self.fields = reading.fields[title]
        self.values = values
        self.state = "parameters"
        self.columns = []  # (place in the row, name, field) of the table's titles
        self.record = None

    def read(self, row):
        first = row[0].value
        if self.state == "parameters":
            table = list(self.fields["columns"])
            if table and first == table[0]:
                self._read_titles(row)
            elif [cell.value for cell in row[:4]] == PARAMETER_HEADINGS:
                pass
            elif isinstance(first, str) and first in self.fields["parameters"]:
                self._read_parameter(first, self.fields["parameters"][first], row)
            else:
                self.reading.expect(row[0], f"a parameter of section '{self.title}'")
        elif self.state == "units":
            self.state = "records"
        else:
            self._read_record(row)

    def _read_parameter(self, name, field, row):
        cell = _at(row, 1)
        if field["kind"] == "numbers":
            values = self.values.setdefault(name, [])
            if cell.value not in (None, ""):
                values.append(_value(self.reading, cell, field))
        else:
            self.values[name] = _value(self.reading, cell, field)

    def _read_titles(self, row):
        last = max(cell.column for cell in row if cell.value not in (None, ""))
        for cell in row[:last]:
            if cell.value not in self.fields["columns"]:
                self.reading.expect(cell, f"a column of section '{self.title}'")
            self.columns.append((cell.column - 1, cell.value, self.fields["columns"][cell.value]))
        self.values["records"] = []
        self.state = "units"

    def _read_record(self, row):
        scalars = [(place, name, field) for place, name, field in self.columns if field["kind"] != "numbers"]
        lists = [(place, name, field) for place, name, field in self.columns if field["kind"] == "numbers"]
        goes_on = lists and _blank([_at(row, place) for place, _, _ in scalars])
        if goes_on and self.record is None:
            self.reading.expect(row[0], "a record's first row")
        if not goes_on:
            self.record = {name: _value(self.reading, _at(row, place), field) for place, name, field in scalars}
            self.record.update({name: [] for _, name, _ in lists})
            self.ended = set()
            self.values["records"].append(self.record)
        for place, name, field in lists:
            cell = _at(row, place)
            if cell.value in (None, ""):
                self.ended.add(name)
            elif name in self.ended:
                self.reading.expect(cell, f"no value after the end of the list '{name}'")
            else:
                self.record[name].append(_value(self.reading, cell, field))


def _at(row, place):
    """The cell at `place` (from 0) of a row, an empty one past its end."""
    if place < len(row):
        return row[place]
    return row[0].parent.cell(row[0].row, place + 1)


def _blank(cells):
    return all(cell.value in (None, "") for cell in cells)


def _value(reading, cell, field):
    """A cell's value as the profile's object holds it (database units)."""
    value = cell.value
    if value in (None, ""):
        if field["optional"]:
            return None
        value = None
    kind = field["kind"]
    if kind == "whole number":
        return _whole_number(reading, cell)
    if kind == "text":
        return "" if value is None else _text(reading, cell)
    if kind == "layout":
        if value not in field["layouts"]:
            reading.expect(cell, " or ".join(repr(name) for name in field["layouts"]))
        return value
    if value is None or isinstance(value, bool) or not isinstance(value, (int, float, str)):
        reading.expect(cell, "a number")
    try:
        return _terrix.from_file_number(value.strip() if isinstance(value, str) else value, _dimension(field),
                                        *reading.units)
    except ValueError as error:
        reading.fail(cell, str(error))


def _whole_number(reading, cell):
    value = cell.value
    if isinstance(value, float) and value.is_integer():
        value = int(value)
    if not isinstance(value, int) or isinstance(value, bool):
        reading.expect(cell, "a whole number")
    return value


def _text(reading, cell):
    if not isinstance(cell.value, str):
        reading.expect(cell, "a text")
    return cell.value
