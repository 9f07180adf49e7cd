#!/usr/bin/env python3
"""Runs the sample translator and the hand-written converter on the same models, one row a direction.

    bench/conversions.py build/bench/bin build/bench/bin/kova-translate [--triangles N] [--repetitions N]

Seconds are medians of processor time, megabytes the most that was resident. "growth" is the translator's time
for the whole model over that for half of it: 2 where time grows as the file does. Neither time nor memory makes
it fail; triangles that differ do.
"""

import argparse
import pathlib
import statistics
import struct
import subprocess
import sys
import tempfile

# Name, input, output, options.
DIRECTIONS = [
    ("binary STL to OBJ", "binary.stl", "out.obj", []),
    ("ASCII STL to OBJ", "ascii.stl", "out.obj", []),
    ("OBJ to binary STL", "model.obj", "out.stl", []),
    ("OBJ to ASCII STL", "model.obj", "out.stl", ["--ascii"]),
    ("binary to ASCII STL", "binary.stl", "out.stl", ["--ascii"]),
    ("ASCII to binary STL", "ascii.stl", "out.stl", []),
]


def measured(command):
    """Processor seconds and peak megabytes of a program; the first word says what measures it."""
    result = subprocess.run([str(word) for word in command], capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit(f"{' '.join(result.args)} ended with {result.returncode}:\n{result.stderr}")
    seconds, kilobytes = result.stdout.split()
    return float(seconds), int(kilobytes) / 1024


def single(text):
    """The nearest number of 32 bits."""
    return struct.unpack("<f", struct.pack("<f", float(text)))[0]


def triangles(path):
    """Nine coordinates for each triangle of a file."""
    data = path.read_bytes()
    if path.suffix == ".obj":
        lines = [line.split() for line in data.splitlines()]
        vertices = [tuple(map(single, words[1:4])) for words in lines if words[0] == b"v"]
        return [sum((vertices[int(i) - 1] for i in words[1:4]), ()) for words in lines if words[0] == b"f"]
    if data.startswith(b"solid"):
        corners = [tuple(map(single, line.split()[1:])) for line in data.splitlines() if b"vertex" in line]
        return [sum(corners[i : i + 3], ()) for i in range(0, len(corners), 3)]
    return [struct.unpack_from("<9f", data, 84 + 50 * i + 12) for i in range(struct.unpack_from("<I", data, 80)[0])]


class Models:
    """The same model in each format."""

    def __init__(self, folder, directory, count):
        self.folder = folder
        self.measure = directory / "run-measured"
        self.hand = directory / "hand-converter"
        folder.mkdir()
        measured([self.measure, self.hand, "--generate", count, folder / "binary.stl"])
        measured([self.measure, self.hand, folder / "binary.stl", folder / "ascii.stl", "--ascii"])
        measured([self.measure, self.hand, folder / "binary.stl", folder / "model.obj"])

    def run(self, program, direction):
        _, source, target, options = direction
        return measured([self.measure, program, self.folder / source, self.folder / target, *options])

    def check(self, translator):
        wanted = triangles(self.folder / "binary.stl")
        for direction in DIRECTIONS:
            for program in translator, self.hand:
                self.run(program, direction)
                if triangles(self.folder / direction[2]) != wanted:
                    sys.exit(f"{program}: {direction[0]} changes the triangles")


def medians(runs):
    return [statistics.median(column) for column in zip(*runs)]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("directory", type=pathlib.Path, help="where hand-converter and run-measured are")
    parser.add_argument("translator", type=pathlib.Path)
    parser.add_argument("--triangles", type=int, default=2000000)
    parser.add_argument("--repetitions", type=int, default=5)
    options = parser.parse_args()
    # Beside the programs: the models take more than a gigabyte, which not every folder for such things has.
    with tempfile.TemporaryDirectory(dir=options.directory) as name:
        folder = pathlib.Path(name)
        Models(folder / "small", options.directory, 5000).check(options.translator)
        whole = Models(folder / "whole", options.directory, options.triangles)
        half = Models(folder / "half", options.directory, options.triangles // 2)
        print(f"{f'{options.triangles} triangles':24} {'ours s':>8} {'by hand':>8} {'ratio':>6}", end="")
        print(f" {'ours MB':>8} {'by hand':>8} {'ratio':>6} {'growth':>7}")
        for direction in DIRECTIONS:
            runs = [
                whole.run(options.translator, direction)
                + whole.run(whole.hand, direction)
                + half.run(options.translator, direction)
                for _ in range(options.repetitions)
            ]
            ours, our_peak, peer, peer_peak, ours_half, _ = medians(runs)
            print(f"{direction[0]:24} {ours:8.3f} {peer:8.3f} {ours / peer:6.2f}", end="")
            print(f" {our_peak:8.1f} {peer_peak:8.1f} {our_peak / peer_peak:6.2f} {ours / max(ours_half, 1e-9):7.2f}")


if __name__ == "__main__":
    main()
