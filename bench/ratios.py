#!/usr/bin/env python3
"""Runs the benchmark programs and prints one line a row: ours, peer, ratio, wanted ratio.

    bench/ratios.py build/bench/bin [--filter REGEX] [--repetitions N] [--min-time SECONDS]

Times are medians of processor time in nanoseconds. Timing never makes it fail.
"""

import argparse
import json
import pathlib
import statistics
import subprocess


def run(program, options):
    command = [
        str(program),
        "--benchmark_format=json",
        f"--benchmark_repetitions={options.repetitions}",
        f"--benchmark_min_time={options.min_time}",
        f"--benchmark_filter={options.filter}",
        # Both sides of a row see the same disturbances.
        "--benchmark_enable_random_interleaving=true",
    ]
    output = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout
    # A program in which no row matches prints nothing.
    return json.loads(output)["benchmarks"] if output else []


def print_rows(entries):
    times = {}
    facts = {}
    for entry in entries:
        if entry["run_type"] == "iteration":
            times.setdefault(entry["run_name"], []).append(entry["cpu_time"])
            facts[entry["run_name"]] = entry
    for run_name, ours in sorted(times.items(), key=lambda item: facts[item[0]]["family_index"]):
        name, side = run_name.rsplit("/", 1)
        peer = times.get(f"{name}/peer")
        if side != "ours" or not peer:
            continue
        our_time, peer_time = statistics.median(ours), statistics.median(peer)
        ratio, target = our_time / peer_time, facts[run_name]["target"]
        remark = "" if ratio <= target else "  above target"
        if "allocations" in facts[run_name]:
            remark += f"  allocations {facts[run_name]['allocations']:.2f}"
        print(f"{name:52} {our_time:9.1f} {peer_time:9.1f} {ratio:7.2f} {target:7.2f}{remark}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("directory", type=pathlib.Path, help="where the benchmark programs are")
    parser.add_argument("--filter", default=".", help="run only the rows that match")
    parser.add_argument("--repetitions", type=int, default=9)
    parser.add_argument("--min-time", type=float, default=0.05, help="seconds for each measurement")
    options = parser.parse_args()
    print(f"{'row':52} {'ours ns':>9} {'peer ns':>9} {'ratio':>7} {'target':>7}")
    for program in sorted(options.directory.glob("bench_*")):
        if program.is_file():
            print_rows(run(program, options))


if __name__ == "__main__":
    main()
