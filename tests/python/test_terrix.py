"""The Python module terrix, checked against the terrix tool: what it reads
and answers is what `terrix dump` prints, what it writes is what `terrix
convert` writes, and a file that does not import fails with the library's
own error. Run by CTest with the build tree's package (see
tests/CMakeLists.txt)."""

import io
import json
import math
import os
import subprocess
import sys

import numpy as np
import pytest

import terrix
from support import CASES, EXAMPLES, OFFSHORE, SOURCE, as_bytes, case_id, tool

DUMP_CASES = EXAMPLES + sorted((CASES / "dump").glob("*.terrix"))


def text_of(data):
    """Bytes as the library's texts are taken: UTF-8, else Latin-1."""
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return data.decode("latin-1")


def as_dump(value):
    """A value of the module as `terrix dump` writes it."""
    if isinstance(value, terrix.CurveData):
        data = {} if value.code is None else {"code": value.code}
        data["manualCurves"] = [{"diameter": d, "points": as_dump(p)} for d, p in value.manual_curves.items()]
        data["modifications"] = [{"diameter": d, "factors": as_dump(f)} for d, f in value.modifications.items()]
        return data
    if isinstance(value, np.ndarray):
        return as_dump(value.tolist())
    if isinstance(value, dict):
        return {key: as_dump(element) for key, element in value.items()}
    if isinstance(value, (list, tuple)):
        return [as_dump(element) for element in value]
    if isinstance(value, float) and not math.isfinite(value):
        return "NaN" if math.isnan(value) else "Infinity" if value > 0 else "-Infinity"
    return value


def layers_as_dump(profile, split):
    try:
        layers = profile.layers(split)
    except RuntimeError as error:
        return {"error": str(error)}
    dumped = []
    for layer in layers:
        answers = {"mainLayer": layer.main_layer, "firstLayer": layer.first_layer,
                   "layerCount": layer.layer_count, "zTop": layer.z_top, "zBottom": layer.z_bottom}
        for name, query in terrix.LAYER_ANSWERS.items():
            try:
                answers[query] = as_dump(getattr(layer, name))
            except RuntimeError as error:
                answers[query] = {"error": str(error)}
        dumped.append(answers)
    return dumped


@pytest.mark.parametrize("path", DUMP_CASES, ids=case_id)
@pytest.mark.parametrize("split", [True, False], ids=["split", "no-split"])
def test_every_value_is_the_dumps(path, split):
    expected = [{key: value for key, value in profile.items() if key not in ("revision", "encoding")}
                for profile in json.loads(tool("dump", *([] if split else ["--no-split"]), path))["profiles"]]
    actual = [{"version": p.version, "name": p.name, "header": p.header,
               "units": dict(zip(("force", "length"), p.units)),
               "sections": as_dump(p.sections), "parameters": as_dump(p.parameters),
               "layers": layers_as_dump(p, split)} for p in terrix.read(path)]
    assert actual == expected


def test_the_python_names_are_those_of_every_per_layer_query():
    assert list(terrix.LAYER_ANSWERS.values()) == terrix._terrix.layer_query_names()


@pytest.mark.parametrize("path", sorted((CASES / "import-errors").glob("*.terrix")), ids=case_id)
def test_a_broken_file_fails_with_the_librarys_error_and_its_parts(path):
    expected = text_of(path.with_suffix(".error").read_bytes()).removesuffix("\n")
    with pytest.raises((terrix.TerrixImportError, RuntimeError)) as caught:
        terrix.read(path)
    error = caught.value
    assert str(error) == expected
    if expected.startswith("Import error"):
        assert isinstance(error, ValueError)
        assert str(error) == (f"Import error in line {error.line}:\n{error.message}\n"
                              f"While importing section: '{error.section}'\nFound: '{error.found}'")


def test_import_error_attributes():
    with pytest.raises(terrix.TerrixImportError) as caught:
        terrix.loads("TERRIX\nheader\n\n       1.0 CONFR\n")
    error = caught.value
    assert (error.line, error.message, error.section, error.found) == (
        4, "Unable to find section", "CONTROL SECTION", "       1.0 CONFR")


def test_other_failures_are_runtime_errors_with_the_librarys_message():
    with pytest.raises(RuntimeError, match=r"^Unknown force unit: 'KN'$"):
        terrix.read(OFFSHORE, units=("KN", "m"))
    v4 = (SOURCE / "examples" / "north-sea-v4.terrix").read_text()
    backwards = v4.replace("        10 NUMLAY", "         8 NUMLAY").replace(
        "         1         2         1       6.0", "         2         1         1       6.0")
    profile, = terrix.loads(backwards)
    for split in (True, False):
        with pytest.raises(RuntimeError) as caught:
            profile.layers(split)
        assert str(caught.value) == "line 88: layer division 2 1 runs backwards: LAYER2 is less than LAYER1"
    assert profile.parameters["DiameterCount"] == 2


ROUND_TRIP = DUMP_CASES + sorted((CASES / "round-trip").glob("*.terrix"))


@pytest.mark.parametrize("path", ROUND_TRIP, ids=case_id)
def test_profiles_read_are_written_back_as_their_text_or_as_terrix_convert_writes_them(path, tmp_path):
    profiles = terrix.read(path)
    written = tmp_path / "written.terrix"
    terrix.write(profiles, path=written)
    assert written.read_bytes() == path.read_bytes()
    assert as_bytes(terrix.dumps(profiles)) == path.read_bytes()
    assert as_bytes(terrix.dumps(profiles, keep_lines=False)) == tool("convert", path)
    assert as_bytes(terrix.dumps(profiles, units=("N", "mm"), end_line=False)) == tool(
        "convert", "--to", "N", "mm", "--no-end-line", path)
    assert terrix.dumps(terrix.loads(terrix.dumps(profiles))) == terrix.dumps(profiles)
    assert [p.units for p in profiles] == [p.units for p in terrix.read(path)]


def test_reading_from_file_objects_and_named_units():
    data = OFFSHORE.read_bytes()
    expected = terrix.dumps(terrix.read(OFFSHORE), keep_lines=False)
    assert terrix.dumps(terrix.read(io.BytesIO(data)), keep_lines=False) == expected
    assert terrix.dumps(terrix.read(io.StringIO(data.decode())), keep_lines=False) == expected
    assert terrix.dumps(terrix.read(OFFSHORE, units=("kN", "m")), keep_lines=False) == expected
    text = io.StringIO()
    terrix.write(terrix.read(OFFSHORE)[0], text, end_line=False, keep_lines=False)
    assert text.getvalue() + "\nEND OF TERRIX INPUT FILE\n" == expected


def test_a_latin_1_header_is_python_text_and_written_back_as_it_was():
    data = (CASES / "dump" / "south-02-header-in-latin-1.terrix").read_bytes()
    profile, = terrix.loads(data)
    assert "\u00d8rsted" in profile.header
    assert terrix.loads(terrix.dumps(profile))[0].header == profile.header


def test_layers_frame_has_a_row_per_layer_and_a_column_per_scalar_answer():
    profile, = terrix.read(OFFSHORE)
    frame = profile.layers_frame()
    assert list(frame.columns) == ["main_layer", "first_layer", "layer_count", "z_top", "z_bottom",
                                   *terrix.SCALAR_ANSWERS, "errors"]
    assert frame.shape == (3, 20)
    assert frame["phi"].tolist() == [layer.phi for layer in profile.layers()]
    assert frame["soil_type"].tolist() == ["Sand", "Clay", "Sand"]
    assert frame["errors"].isna().all()
    assert np.isnan(frame["over_consolidation_ratio"]).all()


def test_layers_frame_asks_all_layers_at_once_and_gets_each_layers_own_answers():
    # The frame asks every layer in one call; each layer asks for itself.
    def own(layer, name):
        try:
            answer = getattr(layer, name)
        except RuntimeError:
            return math.nan
        return math.nan if answer is None else answer

    for path in sorted((CASES / "dump").glob("*.terrix")):
        for profile in terrix.read(path):
            try:
                layers = profile.layers()
            except RuntimeError:
                continue
            frame = profile.layers_frame()
            for name in terrix.SCALAR_ANSWERS:
                expected = [own(layer, name) for layer in layers]
                assert [a if a == a else "NaN" for a in frame[name].tolist()] == \
                    [e if e == e else "NaN" for e in expected], f"{path.name}: {name}"


def test_a_failing_answer_is_nan_in_the_frame_and_its_message_in_errors():
    profile, = terrix.read(CASES / "dump" / "north-sea-v4-without-soil-type-4.terrix")
    frame = profile.layers_frame(split=False)
    failed = frame[frame["errors"].notna()]
    assert len(failed) > 0
    assert failed["phi"].isna().all()
    assert failed["errors"].iloc[0].startswith("soil_type: Unknown layer; phi: Unknown layer")
    unknown, = terrix.read(CASES / "dump" / "manual-code-without-its-curves-v4.terrix")
    with pytest.raises(RuntimeError, match="^Manual PY curve not defined$"):
        unknown.curves_frame("py", split=False)


def test_curves_and_section_frames():
    profile, = terrix.read(OFFSHORE)
    curves = profile.curves_frame("py")
    assert list(curves.columns) == ["first_layer", "diameter", "displacement", "resistance"]
    assert curves.shape == (10, 4)
    assert curves["diameter"].tolist() == [6.0] * 5 + [8.0] * 5
    assert curves["resistance"].tolist()[:2] == [0.0, 180000.0]
    assert profile.curves_frame("bsy").shape == (0, 4)
    with pytest.raises(ValueError, match="unknown curve kind 'p-y'"):
        profile.curves_frame("p-y")
    title = "SOIL MAIN LAYERS AND PROPERTIES SECTION"
    table = profile.section_frame(title)
    assert list(table.columns) == list(profile.sections[title]["records"][0])
    assert table.shape == (3, 13)
    with pytest.raises(ValueError, match="'CONTROL SECTION' is no table"):
        profile.section_frame("CONTROL SECTION")


def test_plots_are_saved_as_png_with_units_on_their_axes(tmp_path):
    profile, = terrix.read(OFFSHORE)
    figure = profile.plot()
    labels = [axes.get_xlabel() for axes in figure.axes]
    assert labels[2] == "undrained shear strength\n(as written)" and labels[3] == "friction angle\n(rad)"
    assert figure.axes[0].get_ylabel() == "level (m, downwards)"
    curves = profile.plot_curves("py", 5)
    assert (curves.axes[0].get_xlabel(), curves.axes[0].get_ylabel()) == ("y (m)", "p (Pa)")
    assert len(curves.axes[0].lines) == 2
    for name, drawn in (("profile.png", figure), ("curves.png", curves)):
        drawn.savefig(tmp_path / name)
        assert (tmp_path / name).read_bytes().startswith(b"\x89PNG\r\n\x1a\n")


def test_the_installed_package_imports(tmp_path):
    subprocess.run([os.environ["CMAKE_COMMAND"], "--install", os.environ["TERRIX_BUILD_DIR"],
                    "--component", "python", "--prefix", tmp_path], check=True, capture_output=True)
    environment = dict(os.environ, PYTHONPATH=str(tmp_path / os.environ["TERRIX_PYTHON_INSTALL_DIR"]))
    names = subprocess.run([sys.executable, "-c", "import sys, terrix; print(terrix.__file__); "
                            "print(terrix.read(sys.argv[1])[0].name)", OFFSHORE],
                           env=environment, check=True, capture_output=True, text=True).stdout.split()
    assert names == [str(tmp_path / os.environ["TERRIX_PYTHON_INSTALL_DIR"] / "terrix" / "__init__.py"), "NS-MP07"]


def test_the_example_script_writes_the_plots_of_an_example(tmp_path):
    subprocess.run([sys.executable, SOURCE / "examples" / "python" / "plot_example.py", OFFSHORE, tmp_path],
                   check=True, capture_output=True)
    assert sorted(path.name for path in tmp_path.iterdir()) == ["offshore-v5-0-profile.png",
                                                                "offshore-v5-0-py-layer-5.png"]
