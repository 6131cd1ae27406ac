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

    >>> import terrix
    >>> profile, = terrix.read("examples/offshore-v5.terrix")
    >>> profile.name, profile.units
    ('NS-MP07', ('kN', 'm'))
"""

import io
from functools import cached_property

from . import _terrix
from ._terrix import CurveData, TerrixImportError

__all__ = ["read", "loads", "write", "dumps", "Profile", "Layer", "CurveData", "TerrixImportError",
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


def dumps(profiles, units=None, end_line=True):
    """The TERRIX text of a profile or a list of profiles, as terrix convert
    writes it: each profile with its own header lines, in `units` (FORCE,
    LENGTH) or in those it was read in, the end line last if `end_line`."""
    return _written(profiles, units, end_line).decode("utf-8", "surrogateescape")


def write(profiles, path, units=None, end_line=True):
    """Writes dumps(profiles, units, end_line) to `path`: a path, or a
    binary or text file object."""
    text = _written(profiles, units, end_line)
    if isinstance(path, io.TextIOBase):
        path.write(text.decode("utf-8", "surrogateescape"))
    elif hasattr(path, "write"):
        path.write(text)
    else:
        with open(path, "wb") as file:
            file.write(text)


def _units(units):
    return None if units is None else tuple(units)


def _written(profiles, units, end_line):
    if isinstance(profiles, Profile):
        profiles = [profiles]
    return _terrix.dumps([profile._core for profile in profiles], _units(units), bool(end_line))


class Profile:
    """One soil profile as the library read it.

    version, name, header and units are those of the file; sections and
    parameters are the dicts of `terrix dump` ("sections", "parameters"),
    a parameter whose query fails being {"error": MESSAGE}.
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
