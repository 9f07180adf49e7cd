#!/usr/bin/env python3
"""Loads the library, the library with 939 option names, an empty one and one that makes its names at load, in turn.

    bench/load_time.py build/bench/bin [--repetitions N]

Microseconds are medians over fresh processes. Timing never makes it fail.
"""

import argparse
import pathlib
import statistics
import subprocess

LIBRARIES = ["libempty-library.so", "libkova.so", "libkova-939-names.so", "libnames-at-load.so"]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("directory", type=pathlib.Path, help="where the benchmark programs are")
    parser.add_argument("--repetitions", type=int, default=200)
    options = parser.parse_args()
    times = {library: [] for library in LIBRARIES}
    for _ in range(options.repetitions):
        for library in LIBRARIES:
            command = [options.directory / "load-library", options.directory / library]
            times[library].append(float(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout))
    empty = statistics.median(times[LIBRARIES[0]])
    print(f"{'loading':28} {'us':>9} {'ratio':>7} {'target':>7}")
    for library in LIBRARIES:
        median = statistics.median(times[library])
        target = f"{2.5:7.2f}" if "939" in library else ""
        remark = "  above target" if "939" in library and median > 2.5 * empty else ""
        print(f"{library:28} {median:9.1f} {median / empty:7.2f} {target}{remark}")


if __name__ == "__main__":
    main()
