"""The Python module's speed beside the library's, in one run on one machine:

    PYTHONPATH=build/release/python /usr/bin/python3 benchmarks/python_benchmark.py build/release

BUILD (a Release build with the benchmarks and the Python module) writes the
benchmark files and times the C++ import of the stream of 1,000 profiles
(terrix_python_benchmark_files); this script then times, best of five,
reading the same stream into Profile objects from its file and from bytes,
writing it back, and the layers_frame() of a profile of 2,000 layers. Beside
them, per byte, pandas' read_csv of the stream's tables alone (every line
that starts with a number), as a reader that checks nothing would take them.
"""

import io
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import pandas

import terrix


def best_milliseconds(function, runs=5):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        function()
        times.append(time.perf_counter() - start)
    return 1000 * min(times)


def main(build):
    with tempfile.TemporaryDirectory() as directory:
        program = Path(build) / "benchmarks" / "terrix_python_benchmark_files"
        measured = subprocess.run([program, directory], check=True, capture_output=True, text=True).stdout
        print(measured, end="")
        cpp_ms = float(dict(line.split() for line in measured.splitlines())["cpp_import_ms"])

        stream = Path(directory) / "stream.terrix"
        data = stream.read_bytes()
        read_ms = best_milliseconds(lambda: terrix.read(stream))
        profiles = terrix.read(stream)
        print(f"profiles {len(profiles)}")
        print(f"python_read_ms {read_ms:.1f}")
        print(f"python_loads_ms {best_milliseconds(lambda: terrix.loads(data)):.1f}")
        print(f"read_over_cpp_import {read_ms / cpp_ms:.2f}")

        number = re.compile(rb"^\s*[-+]?(\d|\.\d)")
        rows = [line for line in data.split(b"\n") if number.match(line)]
        tables = b"\n".join(rows)
        columns = range(max(len(row.split()) for row in rows))
        pandas_ms = best_milliseconds(
            lambda: pandas.read_csv(io.BytesIO(tables), sep=r"\s+", header=None, names=columns, engine="c"))
        print(f"pandas_tables_MB {len(tables) / 1e6:.1f}")
        print(f"pandas_read_csv_ms {pandas_ms:.1f}")
        print(f"loads_MB_per_s {len(data) / 1e3 / best_milliseconds(lambda: terrix.loads(data)):.1f}")
        print(f"pandas_MB_per_s {len(tables) / 1e3 / pandas_ms:.1f}")
        print(f"python_dumps_ms {best_milliseconds(lambda: terrix.dumps(profiles)):.1f}")

        profile, = terrix.read(Path(directory) / "layers-2000.terrix")
        print(f"layers_frame_rows {len(profile.layers_frame())}")
        print(f"layers_frame_ms {best_milliseconds(profile.layers_frame):.1f}")
        print(f"layers_ms {best_milliseconds(profile.layers):.1f}")


if __name__ == "__main__":
    main(sys.argv[1])
