"""TERRIX soil-profile input files in Python.

The TERRIX input file is the fixed-format text that feeds a soil-data
generator for offshore pile foundations. This module reads and writes it
with the exact C++ library TerrixExchange and hands out what the library
reads and answers: every section, every profile-wide parameter and every
layer with every per-layer answer, as Python values, numpy arrays, pandas
frames and matplotlib plots. Numbers are the library's own doubles in its
database units (N and m: stresses in Pa, unit weights in N/m3, angles in
radians); the few columns the format keeps as the numbers the file gives
(see docs/format-decisions.md) are those numbers.

Profiles are edited here too (Profile.set, Profile.set_table), made anew
(new, from_dict), written back over the text they were read from keeping
every line that holds nothing edited, and taken to and from Excel
workbooks (write_excel, read_excel).

    >>> import terrix
    >>> profile, = terrix.read("examples/offshore-v5.terrix")
    >>> profile.name, profile.units
    ('NS-MP07', ('kN', 'm'))
    >>> profile.set("SOIL SURFACE AND GROUND WATER SECTION", "SCRLOC", 2.0)
    >>> terrix.write(profile, "offshore-scour-2m.terrix")
"""

import io
from functools import cached_property

from . import _terrix
from ._terrix import CurveData, TerrixImportError

__all__ = ["read", "loads", "write", "dumps", "new", "from_dict", "write_excel", "read_excel", "Profile", "Layer", "CurveData", "TerrixImportError",
           "LAYER_ANSWERS", "CURVE_KINDS", "LEVEL_TABLES", "SCALAR_ANSWERS"]

# Each per-layer answer of the library under its Python name: the
# snake_case form of the query's name, which is its key in `terrix dump`.
LAYER_ANSWERS = {
    "soil_type": "SoilType",
    "phi": "Phi",
    "epsc": "Epsc",
    "over_consolidation_ratio": "OverConsolidationRatio",
    "api_j_factor": "APIJFactor",
    "open_gap": "OpenGap",
    "rp_ratio": "RPRatio",
    "tz_curve_z_displacement": "TZCurveZDisplacement",
    "layer_unit_weight": "LayerUnitWeight",
    "initial_modulus": "InitialModulus",
    "initial_soil_shear_modulus": "InitialSoilShearModulus",
    "ds_diameter_ratio": "DSDiameterRatio",
    "poisson_ratio": "PoissonRatio",
    "dt_diameter_ratio": "DTDiameterRatio",
    "su_z": "SUz",
    "skin_compression": "SkinCompression",
    "skin_tension": "SkinTension",
    "tip_resistance": "TipResistance",
    "py_data": "PyData",
    "tz_data": "TzData",
    "qz_data": "QzData",
    "mtheta_data": "MthetaData",
    "bsy_data": "BSyData",
    "bmtheta_data": "BMthetaData",
}

# The six kinds of curve data, by the names that curves_frame and
# plot_curves take: kind -> the name engineers give it.
CURVE_KINDS = {"py": "P-Y", "tz": "T-Z", "qz": "Q-Z", "mtheta": "M-theta", "bsy": "BS-Y", "bmtheta": "BM-theta"}

# The answers that are a table of stress against level, each an N x 2 array.
LEVEL_TABLES = ("su_z", "skin_compression", "skin_tension", "tip_resistance")

# The answers that are one value each: the columns of Profile.layers_frame.
SCALAR_ANSWERS = tuple(name for name in LAYER_ANSWERS
                       if name not in LEVEL_TABLES and not name.endswith("_data"))


def read(path, units=None):
    """The profiles of a TERRIX file: a path, or a binary or text file object.

    units=("kN", "m") names the units the file's values are written in;
    without it they are deduced for each profile from the unit weight of
    water and the atmospheric pressure of its control section. A file that
    is not what the format says raises TerrixImportError; units that cannot
    be deduced or are unknown raise RuntimeError.
    """
    if hasattr(path, "read"):
        return loads(path.read(), units)
    with open(path, "rb") as file:
        return loads(file.read(), units)


def loads(text, units=None):
    """The profiles of TERRIX text: bytes as they stand, or str (as UTF-8)."""
    if isinstance(text, str):
        text = text.encode("utf-8", "surrogateescape")
    return [Profile(core) for core in _terrix.loads(bytes(text), _units(units))]


def dumps(profiles, units=None, end_line=True, keep_lines=True):
    """The TERRIX text of a profile or a list of profiles.

    The profiles of one read, all of them in their order, are written over
    the text they were read from: every line that holds nothing edited stays
    as it was, byte for byte, the end line too. Any other profiles, those
    made in Python, those given `units` (FORCE, LENGTH) and all of them with
    keep_lines=False are written whole as terrix convert writes them: each
    with its own header lines, in `units` or in those it was read in, the
    end line last if `end_line`. Profiles whose tables disagree raise
    ValueError listing every disagreement, and nothing is written.
    """
    return _written(profiles, units, end_line, keep_lines).decode("utf-8", "surrogateescape")


def write(profiles, path, units=None, end_line=True, keep_lines=True):
    """Writes dumps(profiles, units, end_line, keep_lines) to `path`: a
    path, or a binary or text file object. Nothing is written (and no file
    made) when the profiles are refused."""
    text = _written(profiles, units, end_line, keep_lines)
    if isinstance(path, io.TextIOBase):
        path.write(text.decode("utf-8", "surrogateescape"))
    elif hasattr(path, "write"):
        path.write(text)
    else:
        with open(path, "wb") as file:
            file.write(text)


def new(version=5, units=("kN", "m"), name=""):
    """The profile that `terrix new` writes: every section of `version` (4
    or 5), no layers yet, in `units`, named `name` (version 5, at most 10
    characters)."""
    return Profile(_terrix.new(int(version), tuple(units), name))


def from_dict(profile):
    """A Profile from its object of `terrix dump`, as Profile.to_dict gives
    it: values in N and m, lists as long as their counts say. What the JSON
    reader refuses raises ValueError with its message, which says where."""
    return Profile(_terrix.from_dict(profile))


def write_excel(profiles, path):
    """Writes a profile or a list of profiles to an Excel workbook, a sheet
    per profile (see terrix.excel)."""
    from . import excel
    excel.write_excel(profiles, path)


def read_excel(path):
    """The profiles of a workbook that write_excel wrote, as an engineer
    may have edited it (see terrix.excel)."""
    from . import excel
    return excel.read_excel(path)


def _records(table):
    """The records of a DataFrame or a list of dicts as lists of dicts of
    Python values; a DataFrame's missing cells as None."""
    if hasattr(table, "to_dict") and hasattr(table, "columns"):
        import pandas as pd
        return [{column: None if _is_missing(pd, value) else value for column, value in row.items()}
                for row in table.to_dict("records")]
    return table


def _is_missing(pd, value):
    return not isinstance(value, (list, tuple)) and not hasattr(value, "__len__") and bool(pd.isna(value))


def _units(units):
    return None if units is None else tuple(units)


def _written(profiles, units, end_line, keep_lines):
    if isinstance(profiles, Profile):
        profiles = [profiles]
    return _terrix.dumps([profile._core for profile in profiles], _units(units), bool(end_line), bool(keep_lines))


class Profile:
    """One soil profile, as the library read or made it.

    version, name, header and units are those of the file; sections and
    parameters are the dicts of `terrix dump` ("sections", "parameters"),
    a parameter whose query fails being {"error": MESSAGE}. set and
    set_table edit it; everything asked afterwards answers from the edited
    profile.
    """

    def __init__(self, core):
        self._core = core

    version = property(lambda self: self._core.version, doc="4 or 5")
    name = property(lambda self: self._core.name, doc="The control section's profile name ('' in version 4)")
    header = property(lambda self: self._core.header, doc="The header lines of the file, joined by newlines")
    units = property(lambda self: self._core.units, doc="(force, length): the units the file was read in")

    @cached_property
    def sections(self):
        """Every section the profile holds, keyed by its title: parameters by
        their names in the file, tables as "records" keyed by column titles."""
        return self._core.sections()

    @cached_property
    def parameters(self):
        """Every profile-wide answer, keyed by the query's name without Get."""
        return self._core.parameters()

    def set(self, section_title, name, value):
        """Sets a parameter or a vector of a section, named as in `sections`
        ("CONTROL SECTION", "GAMMAW"), in the units the module gives values
        in (N and m; the columns kept as written as they stand). An unknown
        section or name raises KeyError, a value of the wrong kind TypeError,
        one the profile cannot hold ValueError; then nothing changes."""
        self._core.set(section_title, name, value)
        self._edited()

    def set_table(self, section_title, table):
        """Replaces the records of a table section with the rows of `table`:
        a DataFrame shaped as section_frame(section_title) gives it, or a
        list of dicts shaped as sections[section_title]["records"]. The
        counts that go with the table follow it. In a DataFrame a missing
        cell (NaN, None) is a value left out, as section_frame shows one.
        Errors as for set, naming the record (from 1) and the column."""
        self._core.set_table(section_title, _records(table))
        self._edited()

    def to_dict(self):
        """The profile's object of `terrix dump` (without the answers
        "parameters" and "layers"), which from_dict reads back."""
        return self._core.to_dict()

    def inconsistencies(self):
        """What would keep the profile from reading back as it is written:
        every count that disagrees with its table and every table that
        disagrees with another, as messages; empty when there is none."""
        return self._core.inconsistencies()

    def _edited(self):
        for cached in ("sections", "parameters"):
            self.__dict__.pop(cached, None)

    def layers(self, split=True):
        """The computational layers from the top. Version 4: with `split`
        its numbered layers, joined again where their curve data agree,
        else one per layer division. Version 5: one per main layer."""
        return [Layer(core) for core in self._core.layers(split)]

    def layers_frame(self, split=True):
        """pandas.DataFrame: one row per layer (see terrix.frames)."""
        from . import frames
        return frames.layers_frame(self, split)

    def curves_frame(self, kind, split=True):
        """pandas.DataFrame of every manual curve of one kind (see terrix.frames)."""
        from . import frames
        return frames.curves_frame(self, kind, split)

    def section_frame(self, title):
        """pandas.DataFrame of a table section's records (see terrix.frames)."""
        from . import frames
        return frames.section_frame(self, title)

    def plot(self, split=True):
        """matplotlib Figure of the soil column and its properties (see terrix.plots)."""
        from . import plots
        return plots.plot_profile(self, split)

    def plot_curves(self, kind, layer, split=True):
        """matplotlib Figure of a layer's manual curves (see terrix.plots)."""
        from . import plots
        return plots.plot_curves(self, kind, layer, split)

    def __repr__(self):
        name = f" '{self.name}'" if self.name else ""
        return f"<terrix.Profile{name}: version {self.version}, {self.units[0]} {self.units[1]}>"

    def _repr_html_(self):
        """The profile at a glance in a notebook: its name, version and
        units, the table of its layers and a small soil column."""
        from . import glance
        return glance.profile_html(self)


class Layer:
    """One computational layer and the library's answers for it.

    main_layer (the soil type in version 4, the main layer in version 5),
    first_layer and layer_count (the numbered layers it covers) and its
    levels z_top and z_bottom (depths, growing downwards) come with the
    layer. Every other attribute asks the library when it is read: a value,
    None for an empty optional, an N x 2 array of level and stress, or
    CurveData; a query that fails raises RuntimeError with its message.
    """

    def __init__(self, core):
        self._core = core

    main_layer = property(lambda self: self._core.main_layer)
    first_layer = property(lambda self: self._core.first_layer)
    layer_count = property(lambda self: self._core.layer_count)
    z_top = property(lambda self: self._core.z_top)
    z_bottom = property(lambda self: self._core.z_bottom)

    def covers(self, numbered_layer):
        """Whether the layer covers the numbered soil layer."""
        return self.first_layer <= numbered_layer < self.first_layer + self.layer_count

    def __repr__(self):
        return (f"<terrix.Layer {self.first_layer}+{self.layer_count}: main layer {self.main_layer},"
                f" {self.z_top:g} m to {self.z_bottom:g} m>")


def _answer_property(query):
    return property(lambda self: self._core.answer(query), doc=f"The library's {query} of the layer")


for _name, _query in LAYER_ANSWERS.items():
    setattr(Layer, _name, _answer_property(_query))
