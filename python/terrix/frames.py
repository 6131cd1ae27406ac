"""pandas frames of a profile: its layers, its manual curves and its tables.

The frames hold the library's values as they are (database units, N and
m); they are laid out here, never worked out.
"""

import numpy as np
import pandas as pd

from . import CURVE_KINDS, LAYER_ANSWERS, SCALAR_ANSWERS

# The columns that come with each layer.
LAYER_COLUMNS = ("main_layer", "first_layer", "layer_count", "z_top", "z_bottom")

# The scalar answers that are not numbers: a text and a yes or no.
NOT_NUMBERS = ("soil_type", "open_gap")


def layers_frame(profile, split=True):
    """One row per layer of profile.layers(split): its counts and levels, and
    every answer that is one value. A query that fails is NaN in its column
    and "name: MESSAGE" in the column errors (None when nothing failed;
    several joined by "; "). An empty optional is NaN as well."""
    layers = profile.layers(split)
    queries = [LAYER_ANSWERS[name] for name in SCALAR_ANSWERS]
    columns = {name: [getattr(layer, name) for layer in layers] for name in LAYER_COLUMNS}
    answers = {name: [] for name in SCALAR_ANSWERS}
    errors = []
    # All layers in one call, which indexes the profile's sections once.
    every_answer = profile._core.layer_answers([layer._core for layer in layers], queries)
    for layer_answers in every_answer:
        failed = []
        for name, answer in zip(SCALAR_ANSWERS, layer_answers):
            if isinstance(answer, RuntimeError):
                failed.append(f"{name}: {answer}")
                answer = np.nan
            answers[name].append(answer)
        errors.append("; ".join(failed) if failed else None)
    for name, values in answers.items():
        columns[name] = values if name in NOT_NUMBERS else np.array(values, dtype=float)
    columns["errors"] = errors
    return pd.DataFrame(columns)


def curves_frame(profile, kind, split=True):
    """Every manual curve of one kind ("py", "tz", "qz", "mtheta", "bsy",
    "bmtheta") of every layer, in long format: one row per point, with the
    columns first_layer, diameter, displacement and resistance, layers from
    the top, diameters ascending, points in ascending displacement. A layer
    whose curve data fail raises RuntimeError."""
    attribute = _curve_attribute(kind)
    firsts, diameters, tables = [], [], []
    for layer in profile.layers(split):
        for diameter, points in getattr(layer, attribute).manual_curves.items():
            firsts.append(layer.first_layer)
            diameters.append(diameter)
            tables.append(points)
    counts = [len(points) for points in tables]
    points = np.concatenate(tables) if tables else np.zeros((0, 2))
    return pd.DataFrame({
        "first_layer": np.repeat(np.array(firsts, dtype=int), counts),
        "diameter": np.repeat(np.array(diameters, dtype=float), counts),
        "displacement": points[:, 0],
        "resistance": points[:, 1],
    })


def section_frame(profile, title):
    """The records of a table section, e.g. "SOIL MAIN LAYERS AND PROPERTIES
    SECTION": one row per record, one column per column title, in the order
    of the file's header line. A list in a record (a curve's values) stays
    one cell."""
    sections = profile.sections
    if title not in sections:
        raise KeyError(f"the profile holds no section '{title}'; it holds: " + ", ".join(sections))
    if "records" not in sections[title]:
        raise ValueError(f"'{title}' is no table: it holds no records")
    return pd.DataFrame.from_records(sections[title]["records"])


def _curve_attribute(kind):
    if kind not in CURVE_KINDS:
        raise ValueError(f"unknown curve kind '{kind}': one of " + ", ".join(CURVE_KINDS))
    return kind + "_data"
