"""The module in Jupyter: a profile at a glance (Profile._repr_html_), and
the example notebook run headless through nbconvert and a real kernel
(Debian's jupyter-nbconvert and python3-ipykernel), its outputs and the
files it writes checked."""

import json
import os
import re
import shutil
import subprocess
import sys

import terrix
from support import NORTH_SEA_V4, OFFSHORE, SOURCE

NOTEBOOK = SOURCE / "examples" / "python" / "estimates.ipynb"
MAIN_LAYERS = "SOIL MAIN LAYERS AND PROPERTIES SECTION"


def test_a_profile_at_a_glance_has_its_name_units_layers_and_soil_column():
    profile, = terrix.read(OFFSHORE)
    shown = profile._repr_html_()
    assert shown.startswith("<div><b>TERRIX profile NS-MP07</b>: version 5, kN m (15 sections)")
    rows = [re.findall(r"<td>([^<]*)</td>", row) for row in re.findall(r"<tr>(.*?)</tr>", shown, re.S)]
    assert rows == [["1", "4", "0", "8", "Sand", "36", "20"], ["5", "2", "8", "22", "Clay", "0", "19.5"],
                        ["7", "6", "22", "40", "Sand", "38", "20.5"]]
    bands = re.findall(r'<rect x="0" y="([\d.]+)" width="70" height="([\d.]+)" fill="(#\w+)"', shown)
    assert bands == [("0.0", "44.0", "#e8d38a"), ("44.0", "77.0", "#a0522d"), ("121.0", "99.0", "#e8d38a")]
    # A profile without layers, and one whose layers cannot be made.
    assert "<i>no layers yet</i>" in terrix.new()._repr_html_()
    v4 = NORTH_SEA_V4.read_text().replace("        10 NUMLAY", "         8 NUMLAY").replace(
        "         1         2         1       6.0", "         2         1         1       6.0")
    broken, = terrix.loads(v4)
    assert "<i>layers: line 88: layer division 2 1 runs backwards" in broken._repr_html_()


def test_the_estimates_notebook_runs_in_a_jupyter_kernel(tmp_path):
    # The notebook reads ../offshore-v5.terrix and writes into estimates/.
    (tmp_path / "python").mkdir()
    shutil.copy(NOTEBOOK, tmp_path / "python")
    shutil.copy(OFFSHORE, tmp_path)
    environment = dict(os.environ, JUPYTER_RUNTIME_DIR=str(tmp_path / "runtime"),
                       IPYTHONDIR=str(tmp_path / "ipython"), JUPYTER_PLATFORM_DIRS="1")
    subprocess.run([sys.executable, "-m", "nbconvert", "--to", "notebook", "--execute",
                    "--ExecutePreprocessor.kernel_name=python3", "--ExecutePreprocessor.timeout=300",
                    "--output", "executed.ipynb", tmp_path / "python" / "estimates.ipynb"],
                   env=environment, check=True, capture_output=True)
    cells = json.loads((tmp_path / "python" / "executed.ipynb").read_text())["cells"]
    outputs = [output for cell in cells if cell["cell_type"] == "code" for output in cell["outputs"]]
    assert [output["output_type"] for output in outputs] == ["execute_result", "stream", "execute_result",
                                                             "execute_result"]
    assert "<b>TERRIX profile NS-MP07</b>" in "".join(outputs[0]["data"]["text/html"])
    assert "".join(outputs[1]["text"]) == (
        "lower  PHI [34.0, 0.0, 36.0]  SUTOP [0.0, 64.0, 0.0]  SUBOT [0.0, 112.0, 0.0]\n"
        "best   PHI [36.0, 0.0, 38.0]  SUTOP [0.0, 80.0, 0.0]  SUBOT [0.0, 140.0, 0.0]\n"
        "upper  PHI [38.0, 0.0, 40.0]  SUTOP [0.0, 96.0, 0.0]  SUBOT [0.0, 168.0, 0.0]\n")
    assert outputs[2]["data"]["image/png"]
    written = tmp_path / "python" / "estimates"
    assert sorted(path.name for path in written.iterdir()) == [
        "offshore-v5-best.terrix", "offshore-v5-lower.terrix", "offshore-v5-upper.terrix"]
    # The best estimate is the file itself; the others differ in the lines
    # of the values changed alone.
    original = OFFSHORE.read_bytes()
    assert (written / "offshore-v5-best.terrix").read_bytes() == original
    for name, phi, strengths in (("lower", [34.0, 0.0, 36.0], [64.0, 112.0]), ("upper", [38.0, 0.0, 40.0], [96.0, 168.0])):
        text = (written / f"offshore-v5-{name}.terrix").read_bytes()
        changed = [a != b for a, b in zip(text.splitlines(), original.splitlines())]
        assert len(text.splitlines()) == len(original.splitlines()) and sum(changed) == 4
        table = terrix.loads(text)[0].section_frame(MAIN_LAYERS)
        assert table["PHI"].tolist() == phi and [table["SUTOP"][1], table["SUBOT"][1]] == strengths
