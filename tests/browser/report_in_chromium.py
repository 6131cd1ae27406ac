"""terrix report as a reader sees it: every bundled example is turned into
its HTML page and rendered by headless Chromium, to its DOM and to a
screenshot 1280 pixels wide. The page must log nothing to the console, hold
one soil column and five depth plots per profile and one chart per kind of
manual curve of each layer that has some (counted from terrix dump, the
same answers), and look like something: a screenshot of many colours.

    report_in_chromium.py TERRIX EXAMPLES_DIR WORK_DIR

Exit 77 (skipped) only when no chromium is installed."""

import glob
import json
import os
import shutil
import struct
import subprocess
import sys
import zlib

SKIPPED = 77


def chromium():
    for name in ("chromium", "chromium-browser"):
        path = shutil.which(name)
        if path:
            return path
    return None


def run_chromium(browser, page, *arguments):
    command = [browser, "--headless", "--disable-gpu", "--no-sandbox", "--enable-logging=stderr", "--v=0",
               *arguments, "file://" + os.path.abspath(page)]
    return subprocess.run(command, capture_output=True, text=True, timeout=120)


def expected_plots(terrix, example):
    dump = json.loads(subprocess.run([terrix, "dump", example], capture_output=True, text=True, check=True).stdout)
    depth, curves = 0, 0
    for profile in dump["profiles"]:
        layers = profile["layers"]
        if isinstance(layers, dict) or not layers:
            continue
        depth += 6
        for layer in layers:
            for answer in layer.values():
                if isinstance(answer, dict) and answer.get("manualCurves"):
                    curves += 1
    return depth, curves


def png_colours(path):
    """The number of distinct pixel colours of an 8-bit RGB or RGBA PNG."""
    with open(path, "rb") as file:
        data = file.read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", path + ": not a PNG"
    at, idat, width, height, channels = 8, b"", 0, 0, 0
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
            assert depth == 8 and colour in (2, 6), "unexpected PNG layout"
            channels = 3 if colour == 2 else 4
        elif kind == b"IDAT":
            idat += body
        at += 12 + length
    raw = zlib.decompress(idat)
    stride = width * channels
    previous = bytearray(stride)
    colours = set()
    for row in range(height):
        kind = raw[row * (stride + 1)]
        line = bytearray(raw[row * (stride + 1) + 1:(row + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - channels] if i >= channels else 0
            b = previous[i]
            c = previous[i - channels] if i >= channels else 0
            if kind == 1:
                line[i] = (line[i] + a) & 255
            elif kind == 2:
                line[i] = (line[i] + b) & 255
            elif kind == 3:
                line[i] = (line[i] + (a + b) // 2) & 255
            elif kind == 4:
                p = a + b - c
                pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                line[i] = (line[i] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        if row % 8 == 0:
            colours.update(bytes(line[i:i + 3]) for i in range(0, stride, channels * 4))
        previous = line
    return len(colours)


def main():
    terrix, examples, work = sys.argv[1:4]
    browser = chromium()
    if browser is None:
        print("SKIPPED: chromium is not installed (scripts/install-dependencies installs it)")
        return SKIPPED
    os.makedirs(work, exist_ok=True)
    failures = []
    for example in sorted(glob.glob(os.path.join(examples, "*.terrix"))):
        name = os.path.splitext(os.path.basename(example))[0]
        page = os.path.join(work, name + ".html")
        subprocess.run([terrix, "report", "-o", page, example], check=True)
        dom = run_chromium(browser, page, "--dump-dom")
        console = [line for line in dom.stderr.splitlines() if ":CONSOLE" in line]
        if console:
            failures.append(f"{name}: console messages: {console}")
        depth, curves = expected_plots(terrix, example)
        found_depth = dom.stdout.count('<svg class="plot depth')
        found_curves = dom.stdout.count('<svg class="plot curve')
        if (found_depth, found_curves) != (depth, curves):
            failures.append(f"{name}: {found_depth} depth plots and {found_curves} curve charts rendered, "
                            f"expected {depth} and {curves}")
        shot = os.path.join(work, name + ".png")
        run_chromium(browser, page, "--screenshot=" + shot, "--window-size=1280,1600", "--hide-scrollbars")
        if not os.path.exists(shot):
            failures.append(f"{name}: no screenshot")
        elif png_colours(shot) < 20:
            failures.append(f"{name}: the screenshot is blank")
        print(f"{name}: {found_depth} depth plots, {found_curves} curve charts")
    for failure in failures:
        print("FAILED " + failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
