#!/usr/bin/env python3
"""Counts the instructions of the steps that have no window, ours and the bare minimum
in one process, and writes them as a Markdown table.

    bench/callgrind.py build/bench/bin/zorva-goals [--rows 100,1000] [--only parse,read] [--check]

With --check the exit code is 1 if a bar is missed. With --misses it counts what a cache of
2 MiB does not hold instead: that, not the instructions, is the time of a form of 10,000 rows."""

import argparse
import glob
import os
import re
import subprocess
import sys
import tempfile

# ours / theirs may be this at most
BARS = {
    "parse": 1.20,
    "write": 1.6,
    "read": 1.7,
    "parse-flat": 1.3,
    "parse-perrow": 1.3,
    "read-flat": 1.3,
    "read-perrow": 1.3,
    "values": 1.3,
}
# ours may take this many instructions a row at most
BARS_PER_ROW = {"values": 20000}
# Ours may take this much more a row at ten times the rows. The steps that no goal names have
# the general bound: twelve times the cost.
GROWTH = 1.05
GROWTH_OF_OTHERS = 1.2
OTHERS = ["overlay", "get-values", "refill", "observers", "fan-out"]

# A cache as one core of a server has it for itself.
CACHE = ["--cache-sim=yes", "--I1=65536,8,64", "--D1=49152,12,64", "--LL=2097152,16,64"]


def count(program, rows, only, folder, misses):
    command = [
        "valgrind", "--tool=callgrind", "--instr-atstart=no", "--dump-line=no",
        "--callgrind-out-file=" + os.path.join(folder, "out"),
        *(CACHE if misses else []),
        program, "--instructions", "--rows", rows,
    ]
    if only:
        command += ["--only", only]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                   env=dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_HASH_SEED="0"))


def read(folder, events):
    """{(name, rows): {"floor": number, "ours": number}} in the order of the dumps: the sum of `events`."""
    counts = {}
    dumps = glob.glob(os.path.join(folder, "out.*"))
    for dump in sorted(dumps, key=lambda name: int(name.rsplit(".", 1)[1])):
        with open(dump, encoding="utf-8", errors="replace") as lines:
            text = lines.read()
        trigger = re.search(r"^desc: Trigger: Client Request: (\S+) (\d+) (floor|ours)", text, re.M)
        names = re.search(r"^events: (.+)$", text, re.M)
        totals = re.search(r"^totals: (.+)$", text, re.M)
        if trigger and names and totals:
            key = trigger.group(1), int(trigger.group(2))
            numbers = dict(zip(names.group(1).split(), map(int, totals.group(1).split())))
            counts.setdefault(key, {})[trigger.group(3)] = sum(numbers[event] for event in events)
    return counts


def verdict(name, rows, pair):
    bar = BARS.get(name)
    per_row = BARS_PER_ROW.get(name)
    if bar is None and per_row is None:
        return "", ""
    kept = (bar is not None and pair["ours"] <= bar * pair["floor"]) or (
        per_row is not None and pair["ours"] <= per_row * rows)
    return str(bar) if per_row is None else f"{bar} or {per_row} a row", "must" if kept else "**missed**"


def miss_table(counts):
    lines = ["| step | rows | theirs, misses a row | ours, misses a row | ratio |", "|---|---|---|---|---|"]
    for (name, rows), pair in counts.items():
        lines.append(f"| {name} | {rows} | {pair['floor'] / rows:,.1f} | {pair['ours'] / rows:,.1f} "
                     f"| {pair['ours'] / pair['floor']:.2f} |")
    return "\n".join(lines)


def table(counts):
    lines = ["| step | rows | theirs, a row | ours, a row | ratio | bar | verdict | ours, growth a row |",
             "|---|---|---|---|---|---|---|---|"]
    for (name, rows), pair in counts.items():
        bar, result = verdict(name, rows, pair)
        less = counts.get((name, rows // 10))
        growth = ""
        if less:
            factor = pair["ours"] / less["ours"] / 10
            growth = f"{factor:.3f}"
            if rows >= 10000 and factor > (GROWTH_OF_OTHERS if name in OTHERS else GROWTH):
                growth += " **missed**"
        lines.append(f"| {name} | {rows} | {pair['floor'] / rows:,.0f} | {pair['ours'] / rows:,.0f} "
                     f"| {pair['ours'] / pair['floor']:.2f} | {bar} | {result} | {growth} |")
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--rows", default="100,1000")
    parser.add_argument("--only", default="")
    parser.add_argument("--keep", help="folder for callgrind's own files")
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--misses", action="store_true")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as scratch:
        folder = options.keep or scratch
        os.makedirs(folder, exist_ok=True)
        count(options.program, options.rows, options.only, folder, options.misses)
        if options.misses:
            text = miss_table(read(folder, ["DLmr", "DLmw"]))
        else:
            text = table(read(folder, ["Ir"]))
    print(text)
    return 1 if options.check and "**missed**" in text else 0


if __name__ == "__main__":
    sys.exit(main())
