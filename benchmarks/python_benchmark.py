"""The Python module's speed beside the library's, in one run on one machine:

    PYTHONPATH=build/release/python /usr/bin/python3 benchmarks/python_benchmark.py build/release

BUILD (a Release build with the benchmarks and the Python module) writes the
benchmark files and times the C++ import of the stream of 1,000 profiles
(terrix_python_benchmark_files); this script then times, best of five,
reading the same stream into Profile objects from its file and from bytes,
writing it back, and the layers_frame() of a profile of 2,000 layers.
"""

import subprocess
import sys
import tempfile
import time
from pathlib import Path

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
        print(f"python_dumps_ms {best_milliseconds(lambda: terrix.dumps(profiles)):.1f}")

        profile, = terrix.read(Path(directory) / "layers-2000.terrix")
        print(f"layers_frame_rows {len(profile.layers_frame())}")
        print(f"layers_frame_ms {best_milliseconds(profile.layers_frame):.1f}")
        print(f"layers_ms {best_milliseconds(profile.layers):.1f}")


if __name__ == "__main__":
    main(sys.argv[1])
