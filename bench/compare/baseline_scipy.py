#!/usr/bin/env python3
"""One iteration of arPLS with scipy.linalg.solveh_banded beside that of the program, on the same simulated spectra.

usage: baseline_scipy.py BENCH_PROCESSING

Prints nanoseconds a point, the least of some runs. The exit status is 1 when the program is not 5 times as fast at
100,000 points. Needs scipy.
"""
import json
import subprocess
import sys
import time

import numpy as np
from scipy.linalg import solveh_banded

ITERATIONS = 20
LAMBDA = 1e6


def spectrum(n):
    x = np.arange(n) / n
    y = 0.5 + 0.8 * x + 0.3 * np.sin(3.0 * x)
    for k in range(12):
        centre = (k + 0.5) / 12.0
        y += (0.2 + 0.1 * (k % 4)) * np.exp(-0.5 * ((x - centre) / (0.002 + 0.0005 * k)) ** 2)
    i = np.arange(n, dtype=np.uint64)
    noise = ((i * np.uint64(2654435761)) % np.uint64(4294967296)).astype(float) / 4294967296.0 - 0.5
    return y + 0.01 * noise


def penalty(n, lam):
    """D'D in the upper form of solveh_banded, times lambda."""
    bands = np.zeros((3, n))
    bands[0, 2:] = 1.0
    bands[1, 1:] = -4.0
    bands[1, [1, -1]] = -2.0
    bands[2] = 6.0
    bands[2, [1, -2]] = 5.0
    bands[2, [0, -1]] = 1.0
    return lam * bands


def arpls(y, lam, iterations):
    """Runs that many iterations; returns the seconds of the solves and of everything."""
    fixed = penalty(y.size, lam)
    w = np.ones_like(y)
    solving = 0.0
    start = time.perf_counter()
    for _ in range(iterations):
        bands = fixed.copy()
        bands[2] += w
        before = time.perf_counter()
        z = solveh_banded(bands, w * y, overwrite_ab=True, overwrite_b=True, check_finite=False)
        solving += time.perf_counter() - before
        d = y - z
        negative = d[d < 0]
        m, s = negative.mean(), negative.std(ddof=1)
        new = 1.0 / (1.0 + np.exp(np.minimum((d - (2 * s - m)) * 2 / s, 700.0)))
        np.linalg.norm(w - new) / np.linalg.norm(w)
        w = new
    return solving, time.perf_counter() - start


def own_times(program):
    """(benchmark, points) to nanoseconds a point and iteration."""
    command = [program, "--benchmark_filter=^(solve|arpls)/", "--benchmark_format=json",
               "--benchmark_repetitions=3"]
    report = json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout)
    times = {}
    for run in report["benchmarks"]:
        if run["run_type"] == "iteration":
            name, n = run["run_name"].split("/")[:2]
            key = (name, int(n))
            times[key] = min(times.get(key, float("inf")), 1e9 / run["items_per_second"])
    return times


def main():
    own = own_times(sys.argv[1])
    ratio = {}
    print("                  solve ns/point               iteration ns/point")
    print("      n    here   scipy   ratio        here   scipy   ratio")
    for n in (1000, 10000, 100000, 1000000):
        y = spectrum(n)
        runs = [arpls(y, LAMBDA, ITERATIONS) for _ in range(5)]
        solve, whole = (1e9 * min(run[k] for run in runs) / ITERATIONS / n for k in (0, 1))
        ratio[n] = whole / own["arpls", n]
        print("%7d %7.1f %7.1f %7.1f     %7.1f %7.1f %7.1f" %
              (n, own["solve", n], solve, solve / own["solve", n], own["arpls", n], whole, ratio[n]))
    return 0 if ratio[100000] >= 5.0 else 1


if __name__ == "__main__":
    sys.exit(main())
