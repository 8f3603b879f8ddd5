#!/usr/bin/env python3
"""Reads the same text tables with the CSV reader and with pandas.read_csv(engine="c") and prints both.

usage: csv_pandas.py BENCH_IMPORT [--rounds N]

BENCH_IMPORT is the built program bench_import; it makes the files. Time is the best of N rounds, memory the peak above
the idle process. A ratio above 1 means that the reader is faster, or smaller, than pandas.
"""
import argparse
import json
import os
import subprocess
import sys
import tempfile

FILES = {"readLong": "long.csv", "readWide": "wide.csv"}

PANDAS = """
import json, sys, time
import pandas

def status(key):
    with open("/proc/self/status") as lines:
        return next(int(line.split()[1]) for line in lines if line.startswith(key)) * 1024

pandas.read_csv(sys.argv[3], engine="c", header=None)  # what is loaded at the first call is no cost of a file
with open("/proc/self/clear_refs", "w") as reset:
    reset.write("5")
idle = status("VmRSS:")
best = float("inf")
peak = 0
for _ in range(int(sys.argv[2])):
    start = time.perf_counter()
    frame = pandas.read_csv(sys.argv[1], engine="c", header=None)
    best = min(best, time.perf_counter() - start)
    peak = peak or status("VmHWM:") - idle
    del frame
print(json.dumps({"version": pandas.__version__, "ms": best * 1e3, "peak": peak}))
"""


def run_reader(program, folder, rounds):
    command = [program, "--dir=" + folder, "--benchmark_filter=^read", "--benchmark_format=json",
               "--benchmark_repetitions=%d" % rounds]
    report = json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout)
    results = {}
    for run in report["benchmarks"]:
        if run["run_type"] == "iteration":
            ms, peak = run["real_time"], run["peak_MB"] * 1e6
            best = results.setdefault(run["run_name"], {"ms": ms, "peak": peak})
            best["ms"] = min(best["ms"], ms)
            best["peak"] = max(best["peak"], peak)
    return results


def run_pandas(path, rounds, folder):
    tiny = os.path.join(folder, "tiny.csv")
    with open(tiny, "w") as file:
        file.write("1.0,2.0\n" * 3)
    output = subprocess.run([sys.executable, "-c", PANDAS, path, str(rounds), tiny], check=True, stdout=subprocess.PIPE)
    return json.loads(output.stdout)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("bench_import")
    parser.add_argument("--rounds", type=int, default=7)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        ours = run_reader(arguments.bench_import, folder, arguments.rounds)
        print("%-10s %8s %10s %10s %7s %11s %11s %7s" %
              ("file", "MB", "reader ms", "pandas ms", "ratio", "reader/file", "pandas/file", "ratio"))
        slower = False
        for name, file in FILES.items():
            path = os.path.join(folder, file)
            size = os.path.getsize(path)
            theirs = run_pandas(path, arguments.rounds, folder)
            reader = ours[name]
            slower = slower or reader["ms"] > theirs["ms"] or reader["peak"] > 4 * size
            print("%-10s %8.1f %10.1f %10.1f %7.2f %11.2f %11.2f %7.2f" %
                  (file, size / 1e6, reader["ms"], theirs["ms"], theirs["ms"] / reader["ms"], reader["peak"] / size,
                   theirs["peak"] / size, theirs["peak"] / max(1, reader["peak"])))
        print("pandas %s" % theirs["version"])
    return 1 if slower else 0


if __name__ == "__main__":
    sys.exit(main())
