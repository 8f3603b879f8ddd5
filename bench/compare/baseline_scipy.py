#!/usr/bin/env python3
"""Time per iteration of arPLS built on scipy.linalg.solveh_banded, to hold bench_processing's arpls against.

Prints nanoseconds a point and iteration for the solve alone and for the whole iteration. Needs scipy; run it with
the same simulated spectrum as bench/processing/BaselineBench.cpp.
"""
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


def main():
    print("      n   solve ns/point   iteration ns/point")
    for n in (1000, 10000, 100000, 1000000):
        y = spectrum(n)
        best = min((arpls(y, LAMBDA, ITERATIONS) for _ in range(3)), key=lambda times: times[1])
        print("%7d   %14.1f   %18.1f" % (n, *(1e9 * t / ITERATIONS / n for t in best)))


if __name__ == "__main__":
    main()
