"""A profile at a glance in a notebook (Profile._repr_html_): its name,
version and units, the table of its layers and a small soil column drawn
to scale, coloured by soil type as the plots colour it.

Levels are in m and grow downwards, as in the file; the friction angle is
shown in degrees, as the file writes it.
"""

import html
import math

from .plots import SOIL_COLOURS

# The soil column's size in pixels.
COLUMN_WIDTH = 70
COLUMN_HEIGHT = 220

# The columns of the table: layers_frame's name -> the heading shown.
TABLE_COLUMNS = {
    "first_layer": "layer",
    "layer_count": "layers",
    "z_top": "z top (m)",
    "z_bottom": "z bottom (m)",
    "soil_type": "soil",
    "phi": "phi (deg)",
    "layer_unit_weight": "unit weight",
}


def profile_html(profile):
    name = html.escape(profile.name) if profile.name else "(no name)"
    units = " ".join(profile.units)
    heading = (f"<b>TERRIX profile {name}</b>: version {profile.version}, {html.escape(units)}"
               f" ({len(profile.sections)} sections)")
    try:
        frame = profile.layers_frame()
    except RuntimeError as error:
        return f"<div>{heading}<br><i>layers: {html.escape(str(error))}</i></div>"
    if frame.empty:
        return f"<div>{heading}<br><i>no layers yet</i></div>"
    shown = frame[list(TABLE_COLUMNS)].rename(columns=TABLE_COLUMNS)
    shown["phi (deg)"] = [math.degrees(phi) if phi == phi else phi for phi in frame["phi"]]
    table = shown.to_html(index=False, float_format=lambda value: f"{value:g}", na_rep="-")
    return (f"<div>{heading}<div style=\"display: flex; gap: 1em; align-items: flex-start\">"
            f"{soil_column(frame)}{table}</div></div>")


def soil_column(frame):
    """An SVG of the layers from the top of the first to the bottom of the
    last, each a band in its soil's colour with its first numbered layer."""
    top, bottom = frame["z_top"].min(), frame["z_bottom"].max()
    scale = COLUMN_HEIGHT / (bottom - top) if bottom > top else 0.0
    bands = []
    for layer in frame.itertuples():
        y = (layer.z_top - top) * scale
        height = max((layer.z_bottom - layer.z_top) * scale, 0.0)
        colour = SOIL_COLOURS.get(layer.soil_type, "white")
        bands.append(f"<rect x=\"0\" y=\"{y:.1f}\" width=\"{COLUMN_WIDTH}\" height=\"{height:.1f}\" "
                     f"fill=\"{colour}\" stroke=\"black\" stroke-width=\"0.5\">"
                     f"<title>{html.escape(str(layer.soil_type))}, {layer.z_top:g} m to {layer.z_bottom:g} m"
                     f"</title></rect>")
        bands.append(f"<text x=\"4\" y=\"{y + 11:.1f}\" font-size=\"10\">{layer.first_layer}</text>")
    return (f"<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{COLUMN_WIDTH}\" height=\"{COLUMN_HEIGHT}\" "
            f"role=\"img\"><title>soil column, {top:g} m to {bottom:g} m</title>{''.join(bands)}</svg>")
