"""matplotlib figures of a profile: its soil column beside its properties
against depth, and the manual curves of a layer.

Levels are depths that grow downwards, as in the file, so the depth axis
points down. Values are drawn as the library gives them: in N and m, but
for the columns the format keeps as the numbers the file gives, which are
labelled "as written". The figures are made without pyplot, so they work
headless (Agg) and leave no state behind; a notebook shows them as they are
returned.
"""

from matplotlib.figure import Figure
from matplotlib.patches import Rectangle
from matplotlib.transforms import blended_transform_factory

from . import CURVE_KINDS

SOIL_COLOURS = {"Sand": "#e8d38a", "Clay": "#a0522d", "Undefined": "#c8c8c8"}

# A curve's axes: displacement, then resistance, with their units. P, T and
# Q are forces per area; M is a moment per length of pile, a force.
CURVE_AXES = {
    "py": ("y (m)", "p (Pa)"),
    "tz": ("z (m)", "t (Pa)"),
    "qz": ("z (m)", "q (Pa)"),
    "mtheta": ("theta (rad)", "M (N m/m)"),
    "bsy": ("y (m)", "BS (N)"),
    "bmtheta": ("theta (rad)", "BM (N m)"),
}

AS_WRITTEN = "as written"


def plot_profile(profile, split=True):
    """The soil column (layers coloured by soil type, their levels, the
    seafloor and the scour) beside the unit weight, the undrained shear
    strength, the friction angle and the skin friction and tip resistance,
    all against depth. Answers that fail are left out."""
    layers = profile.layers(split)
    figure = Figure(figsize=(14, 7), layout="constrained")
    column, weight, strength, friction, axial = figure.subplots(
        1, 5, sharey=True, gridspec_kw={"width_ratios": [0.7, 1, 1, 1, 1.2]})
    version5 = profile.version == 5
    _draw_column(column, profile, layers)
    for layer in layers:
        top, bottom = layer.z_top, layer.z_bottom
        for axes, name in ((weight, "layer_unit_weight"), (friction, "phi")):
            value = _answer(layer, name)
            if value is not None:
                axes.plot([value, value], [top, bottom], color="black")
        for axes, name, colour in ((strength, "su_z", "tab:red"),
                                   (axial, "skin_compression", "tab:blue"),
                                   (axial, "skin_tension", "tab:orange"),
                                   (axial, "tip_resistance", "tab:green")):
            table = _answer(layer, name)
            if table is not None and len(table):
                line, = axes.plot(table[:, 1], table[:, 0], color=colour, marker=".",
                                  label=name.replace("_", " "))
                _clip_to_layer(axes, line, top, bottom)
    weight.set_xlabel("unit weight\n(" + (AS_WRITTEN if version5 else "N/m3") + ")")
    strength.set_xlabel("undrained shear strength\n(" + (AS_WRITTEN if version5 else "Pa") + ")")
    friction.set_xlabel("friction angle\n(rad)")
    axial.set_xlabel("skin friction, tip resistance\n(" + AS_WRITTEN + ")")
    handles, labels = axial.get_legend_handles_labels()
    unique = dict(zip(labels, handles))
    if unique:
        axial.legend(unique.values(), unique.keys(), fontsize="small")
    for axes in (weight, strength, friction, axial):
        axes.grid(True, alpha=0.3)
    # The soil column's depth, though a strength line runs further.
    if layers:
        column.set_ylim(max(layer.z_bottom for layer in layers), min(layer.z_top for layer in layers))
    else:
        column.invert_yaxis()
    column.set_ylabel("level (m, downwards)")
    name = f" '{profile.name}'" if profile.name else ""
    figure.suptitle(f"Profile{name}: TERRIX version {profile.version}, read in {' '.join(profile.units)}")
    return figure


def plot_curves(profile, kind, layer, split=True):
    """The manual curves of one kind ("py", "tz", "qz", "mtheta", "bsy",
    "bmtheta") of a layer, one line per pile diameter. `layer` is a Layer
    or the number of a numbered soil layer, whose layer of
    profile.layers(split) is drawn. The curve data's failure raises
    RuntimeError."""
    if kind not in CURVE_KINDS:
        raise ValueError(f"unknown curve kind '{kind}': one of " + ", ".join(CURVE_KINDS))
    if isinstance(layer, int):
        layer = _layer_covering(profile.layers(split), layer)
    data = getattr(layer, kind + "_data")
    figure = Figure(figsize=(7, 5), layout="constrained")
    axes = figure.subplots()
    for diameter, points in data.manual_curves.items():
        axes.plot(points[:, 0], points[:, 1], marker="o", label=f"diameter {diameter:g} m")
    if data.manual_curves:
        axes.legend()
    else:
        axes.text(0.5, 0.5, "no manual curves", transform=axes.transAxes, ha="center")
    displacement, resistance = CURVE_AXES[kind]
    axes.set_xlabel(displacement)
    axes.set_ylabel(resistance)
    axes.grid(True, alpha=0.3)
    code = "" if data.code is None else f", code {data.code:03d}"
    last = layer.first_layer + layer.layer_count - 1
    numbered = f"{layer.first_layer}" if last == layer.first_layer else f"{layer.first_layer}-{last}"
    axes.set_title(f"{CURVE_KINDS[kind]} curves of layer {numbered}{code}")
    return figure


def _draw_column(axes, profile, layers):
    for layer in layers:
        soil = _answer(layer, "soil_type")
        axes.axhspan(layer.z_top, layer.z_bottom, facecolor=SOIL_COLOURS.get(soil, "white"),
                     edgecolor="black", linewidth=0.5)
        axes.text(0.05, layer.z_top, f"{layer.first_layer}", va="top", fontsize="small",
                  transform=blended_transform_factory(axes.transAxes, axes.transData))
    parameters = profile.parameters
    seafloor = parameters["ZSeafloor"]
    if isinstance(seafloor, float):
        axes.axhline(seafloor, color="tab:blue", linewidth=2, label="seafloor")
        for name, hatch in (("DepthOfScour", "//"), ("DepthOfLocalScour", "\\\\")):
            depth = parameters[name]
            if isinstance(depth, float) and depth > 0:
                axes.axhspan(seafloor, seafloor + depth, facecolor="none", hatch=hatch,
                             edgecolor="tab:blue", linewidth=0, label=_scour_label(name))
    for soil, colour in SOIL_COLOURS.items():
        axes.bar(0, 0, color=colour, label=soil)
    axes.legend(loc="lower center", fontsize="small")
    axes.set_xticks([])
    axes.set_xlabel("soil column\n(numbered layers)")


def _scour_label(name):
    return "general scour" if name == "DepthOfScour" else "local scour"


def _answer(layer, name):
    try:
        return getattr(layer, name)
    except RuntimeError:
        return None


# A line drawn over the whole depth (a strength given at levels 0 and 100)
# is shown only over the layer it belongs to.
def _clip_to_layer(axes, line, top, bottom):
    band = Rectangle((0, top), 1, bottom - top,
                     transform=blended_transform_factory(axes.transAxes, axes.transData))
    line.set_clip_path(band)


def _layer_covering(layers, numbered_layer):
    for layer in layers:
        if layer.covers(numbered_layer):
            return layer
    raise ValueError(f"no layer covers numbered layer {numbered_layer}")
