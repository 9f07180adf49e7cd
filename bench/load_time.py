#!/usr/bin/env python3
"""Loads the library, the library with 939 option names, an empty one and one that makes its names at load, in turn.

    bench/load_time.py build/bench/bin [--repetitions N] [--as-linked]

Microseconds are medians over fresh processes. Timing never makes it fail.

What is loaded are copies, as an installation makes them. A file that the linker has just written lies in the
system's cache in small pieces, and each page of it costs more to map: --as-linked shows by how much.
"""

import argparse
import pathlib
import shutil
import statistics
import subprocess
import tempfile

LIBRARIES = ["libempty-library.so", "libkova.so", "libkova-939-names.so", "libnames-at-load.so"]


def measure(program, directory, repetitions):
    times = {library: [] for library in LIBRARIES}
    for _ in range(repetitions):
        for library in LIBRARIES:
            output = subprocess.run([program, directory / library], check=True, stdout=subprocess.PIPE).stdout
            times[library].append(float(output))
    return {library: statistics.median(times[library]) for library in LIBRARIES}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("directory", type=pathlib.Path, help="where the benchmark programs are")
    parser.add_argument("--repetitions", type=int, default=200)
    parser.add_argument("--as-linked", action="store_true", help="load the linker's files, not copies")
    options = parser.parse_args()
    program = options.directory / "load-library"
    with tempfile.TemporaryDirectory() as copies:
        for library in LIBRARIES:
            shutil.copy(options.directory / library, copies)
        medians = measure(program, options.directory if options.as_linked else pathlib.Path(copies), options.repetitions)
    empty = medians[LIBRARIES[0]]
    print(f"{'loading':28} {'us':>9} {'ratio':>7} {'target':>7}")
    for library in LIBRARIES:
        median = medians[library]
        target = f"{2.5:7.2f}" if "939" in library else ""
        remark = "  above target" if "939" in library and median > 2.5 * empty else ""
        print(f"{library:28} {median:9.1f} {median / empty:7.2f} {target}{remark}")


if __name__ == "__main__":
    main()
