#!/usr/bin/env python3
"""scipy.signal.find_peaks with prominences on the data of bench/processing/PeakBench."""
import time

import numpy as np
from scipy.signal import find_peaks

POINTS = 1000000


def lines(amplitude):
    i = np.arange(POINTS)
    offset = (i % 500 - 250) / 20.0
    noise = np.random.default_rng(1).random(POINTS) - 0.5
    return 1e-3 * i + 1e3 / (1.0 + offset**2) + amplitude * noise


for name, amplitude in (("smooth", 0.0), ("noisy", 10.0)):
    y = lines(amplitude)
    best = float("inf")
    for _ in range(3):
        start = time.perf_counter()
        peaks, _ = find_peaks(y, prominence=100.0, width=0, rel_height=0.5)
        best = min(best, time.perf_counter() - start)
    plain = float("inf")
    for _ in range(3):
        start = time.perf_counter()
        find_peaks(y, prominence=100.0)
        plain = min(plain, time.perf_counter() - start)
    print(f"{name:8s} {plain * 1e3:8.2f} ms, with widths {best * 1e3:8.2f} ms, {len(peaks)} peaks")
