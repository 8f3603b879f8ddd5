#!/usr/bin/env python3
"""Smooths with the program's methods and with scipy and scikit-image, and prints both.

usage: smoothing_scipy.py BENCH_PROCESSING [--rounds N]

BENCH_PROCESSING is the built program bench_processing. Savitzky-Golay: 1,000,000 points, degree 4, against
scipy.signal.savgol_filter with the ends repeated, as the program does it, and as scipy does it by itself. Pixelwise
non-local means: an image of 8 equal rows of 100,000 points against skimage.restoration.denoise_nl_means(fast_mode=True)
with the same radii, the noise known to both. Time is the best of N rounds; a ratio above 1 means that the program is
faster. The exit status is 1 when Savitzky-Golay of 21 points is not 3 times or the non-local means are not 5 times as
fast.
"""
import argparse
import json
import subprocess
import sys
import time

import numpy
import scipy
import skimage
from scipy.signal import savgol_filter
from skimage.restoration import denoise_nl_means

POINTS = 1000000
COLUMNS = 100000
NOISE = 0.02


def spectrum(n):
    i = numpy.arange(n)
    return numpy.exp(-0.5 * ((i % 200 - 100) / 20.0) ** 2) + numpy.random.default_rng(1).normal(0.0, NOISE, n)


def best_ms(rounds, function):
    best = float("inf")
    for _ in range(rounds):
        start = time.perf_counter()
        function()
        best = min(best, time.perf_counter() - start)
    return best * 1e3


def run_program(program, rounds):
    command = [program, "--benchmark_filter=savitzkyGolay/%d|nlmImage" % POINTS, "--benchmark_format=json",
               "--benchmark_min_time=0.05", "--benchmark_repetitions=%d" % rounds]
    report = json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout)
    times = {}
    for run in report["benchmarks"]:
        if run["run_type"] == "iteration":
            scale = {"ns": 1e-6, "us": 1e-3, "ms": 1.0}[run["time_unit"]]
            times[run["run_name"]] = min(times.get(run["run_name"], float("inf")), run["real_time"] * scale)
    return times


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--rounds", type=int, default=7)
    arguments = parser.parse_args()

    ours = run_program(arguments.program, arguments.rounds)
    y = spectrum(POINTS)
    image = numpy.tile(spectrum(COLUMNS).astype(numpy.float32), (8, 1))
    rows = []
    for window in (9, 21, 75):
        name = "savitzkyGolay/%d/%d" % (POINTS, window)
        needed = 3.0 if window == 21 else 0.0
        for mode in ("nearest", "interp"):
            other = best_ms(arguments.rounds, lambda: savgol_filter(y, window, 4, mode=mode))
            rows.append(("savgol_filter %d points, %s" % (window, mode), ours[name], other, needed))
    other = best_ms(min(3, arguments.rounds), lambda: denoise_nl_means(
        image, patch_size=7, patch_distance=3, h=1.7 * NOISE, sigma=NOISE, fast_mode=True))
    for method in ("full", "fast"):
        name = "nlmImage/%s/%d/real_time" % (method, COLUMNS)
        rows.append(("denoise_nl_means, %s here" % method, ours[name], other, 5.0))

    print("scipy %s, scikit-image %s, numpy %s" % (scipy.__version__, skimage.__version__, numpy.__version__))
    print("%-36s %10s %10s %7s %7s" % ("", "here ms", "there ms", "ratio", "needed"))
    for name, here, there, needed in rows:
        print("%-36s %10.2f %10.2f %7.1f %7s" % (name, here, there, there / here, "%.0f" % needed if needed else ""))
    return 1 if any(there / here < needed for _, here, there, needed in rows) else 0


if __name__ == "__main__":
    sys.exit(main())
