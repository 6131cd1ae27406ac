"""What the tests of the Python module share: where the sources and cases
are, and the terrix tool, against which the module is checked. CTest sets
the environment (see tests/CMakeLists.txt)."""

import os
import subprocess
from pathlib import Path

SOURCE = Path(os.environ["TERRIX_SOURCE_DIR"])
CASES = SOURCE / "tests" / "cases"
EXAMPLES = sorted((SOURCE / "examples").glob("*.terrix"))
OFFSHORE = SOURCE / "examples" / "offshore-v5.terrix"
NORTH_SEA_V4 = SOURCE / "examples" / "north-sea-v4.terrix"


def case_id(path):
    return f"{path.parent.name}/{path.name}"


def tool(*arguments):
    return subprocess.run([os.environ["TERRIX_TOOL"], *map(str, arguments)], check=True,
                          capture_output=True).stdout


def tool_status(*arguments):
    """The exit status and output of the tool, which may fail."""
    done = subprocess.run([os.environ["TERRIX_TOOL"], *map(str, arguments)], capture_output=True, text=True)
    return done.returncode, done.stdout + done.stderr


def as_bytes(text):
    """Text of terrix.dumps as the bytes it stands for."""
    return text.encode("utf-8", "surrogateescape")
