#!/usr/bin/env python3
"""Scatter correction fits and quotient normalisation with NumPy, on data like those of bench/processing/ScatterBench."""
import time

import numpy as np

SPECTRA = 1000
POINTS = 2000


def timed(name, work):
    best = min(once(work) for _ in range(5))
    print(f"{name:24s} {best * 1e3:8.2f} ms")


def once(work):
    start = time.perf_counter()
    work()
    return time.perf_counter() - start


def stack():
    s = np.arange(SPECTRA)[:, None]
    noise = np.random.default_rng(1).random((SPECTRA, POINTS)) * 1e-2
    return 1e-3 * s + (1.0 + 1e-3 * s) * (2.0 + np.sin(0.01 * np.arange(POINTS))) + noise


def fit(y):
    design = np.column_stack([np.ones(POINTS), y.mean(axis=0)])
    return np.linalg.lstsq(design, y.T, rcond=None)[0]


def quotients(y, reference):
    return np.median(y / reference, axis=1)


y = stack()
timed("MSC, lstsq", lambda: fit(y))
timed("PQN of the mean", lambda: quotients(y, y.mean(axis=0)))
timed("PQN of the median", lambda: quotients(y, np.median(y, axis=0)))
