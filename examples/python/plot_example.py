"""Draws a TERRIX file with the Python module terrix: for each profile its
soil column beside its properties against depth, and the manual curves of
every layer that has some, each kind in a PNG file of its own.

    PYTHONPATH=build/release/python /usr/bin/python3 examples/python/plot_example.py [FILE [OUTDIR]]

FILE is examples/offshore-v5.terrix unless given, OUTDIR the current
directory.
"""

import sys
from pathlib import Path

import matplotlib

matplotlib.use("Agg")  # no display needed

import terrix  # noqa: E402  (after the backend is chosen)


def main(source, out):
    out.mkdir(parents=True, exist_ok=True)
    for index, profile in enumerate(terrix.read(source)):
        stem = f"{source.stem}-{index}"
        written = [out / f"{stem}-profile.png"]
        profile.plot().savefig(written[-1], dpi=100)
        for layer in profile.layers():
            for kind in terrix.CURVE_KINDS:
                if getattr(layer, kind + "_data").manual_curves:
                    written.append(out / f"{stem}-{kind}-layer-{layer.first_layer}.png")
                    profile.plot_curves(kind, layer).savefig(written[-1], dpi=100)
        print(f"{profile!r}: " + ", ".join(path.name for path in written))


if __name__ == "__main__":
    here = Path(__file__).resolve().parent
    main(Path(sys.argv[1]) if len(sys.argv) > 1 else here.parent / "offshore-v5.terrix",
         Path(sys.argv[2]) if len(sys.argv) > 2 else Path("."))
