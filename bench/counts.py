#!/usr/bin/env python3
"""Counts what repeats of each step, ours and the bare minimum in one process, and writes it as
a Markdown table: instructions, blocks of memory that a first-level and a last-level cache do
not hold (simulated by valgrind), and blocks asked of the allocator, all for each row of the
form.

    bench/counts.py build/bench/bin/zorva-goals [--rows 100,1000] [--only parse,read] [--check]

--check ends with 1 if ours / theirs is above what is held, and leaves out what has no such
bound at these sizes. What is held is what the code has reached; a goal that is not reached yet
is told in the table and fails nothing."""

import argparse
import glob
import os
import re
import subprocess
import sys
import tempfile

# Instructions, ours / theirs: the goals.
GOALS = {
    "parse": 1.20,
    "values": 1.20,
    "write": 1.60,
    "write-modified": 0.010,
    "read": 1.70,
    "parse-flat": 1.3,
    "parse-perrow": 1.3,
    "read-flat": 1.3,
    "read-perrow": 1.25,
}

# What is held, ours / theirs at 100 rows and more: instructions, last-level misses,
# allocations. Misses move by a few per cent with where the linker puts things.
HELD = {
    "parse": (1.06, 0.90, 0.84),
    "values": (1.06, 1.20, 1.14),
    "write": (1.37, 3.1, 1.18),
    "write-protocol": (1.08, 1.3, 1.04),
    "write-modified": (0.048, 0.36, 0.06),
    "read": (1.48, 3.3, 1.63),
    "read-protocol": (1.07, 1.4, 0.90),
    "parse-flat": (1.03, 1.1, 1.02),
    "parse-perrow": (1.05, 1.2, 1.08),
    "read-flat": (0.97, 1.1, 1.02),
    "read-perrow": (1.46, 1.35, 1.02),
    "formular": (0.02, 0.10, 0.46),  # without an engine until something needs it
    "show": (0.66,),
    "arrange": (5.1,),
    "resize": (1.75,),  # in columns there is more to paint
    "overlay": (1.12, 1.25, 1.5),
    "get-values": (1.67, 1.9, 1.05),
    "refill": (1.37, 1.9, 1.28),
    "observers": (1.6, 1.5, 1.05),
}

# Numbers that are no ratios.
HELD_COUNTS = {
    "arrangements-per-resize": 1,
    "arrangements-per-group": 1,
}

# Ours may take this much more a row at ten times the rows. The steps that no goal names have
# the general bound: twelve times the cost.
GROWTH_FROM = 10000
GROWTH = 1.05
GROWTH_OF_OTHERS = 1.2
OTHERS = ["overlay", "get-values", "refill", "observers", "fan-out"]

# A cache as one core of a server has it for itself.
CACHE = ["--cache-sim=yes", "--I1=65536,8,64", "--D1=49152,12,64", "--LL=2097152,16,64"]

FIRST_LEVEL = ["I1mr", "D1mr", "D1mw"]
LAST_LEVEL = ["ILmr", "DLmr", "DLmw"]


class Step:
    """One comparison at one size; each figure is (theirs, ours)."""

    def __init__(self, rows):
        self.rows = rows
        self.figures = {}

    def put(self, what, side, number):
        self.figures.setdefault(what, [0, 0])[side] = number

    def ratio(self, what):
        theirs, ours = self.figures[what]
        return ours / theirs if theirs else float("inf") if ours else 1.0


def run(program, *arguments, prefix=()):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_HASH_SEED="0")
    done = subprocess.run([*prefix, program, *arguments], env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, errors="replace", check=False)
    if done.returncode != 0:
        sys.exit(f"{program} ends with {done.returncode}:\n{done.stderr}")
    return done.stdout


def choice(options):
    """What the program is asked for; nothing by name means all that it counts."""
    largest = max(map(int, options.rows.split(",")))
    # Below GROWTH_FROM only what is held can fail.
    held_alone = options.skip or (options.check and largest < GROWTH_FROM)
    chosen = options.only.split(",") if options.only else list(HELD) if held_alone else []
    chosen = [name for name in chosen if name not in options.skip.split(",")]
    return ["--rows", options.rows] + (["--only", ",".join(chosen)] if chosen else [])


def read_dump(path, steps):
    with open(path, encoding="utf-8", errors="replace") as lines:
        text = lines.read()
    trigger = re.search(r"^desc: Trigger: Client Request: (\S+) (\d+) (floor|ours)", text, re.M)
    names = re.search(r"^events: (.+)$", text, re.M)
    totals = re.search(r"^totals: (.+)$", text, re.M)
    if not (trigger and names and totals):
        return
    numbers = dict(zip(names.group(1).split(), map(int, totals.group(1).split())))
    rows = int(trigger.group(2))
    step = steps.setdefault((trigger.group(1), rows), Step(rows))
    side = int(trigger.group(3) == "ours")
    step.put("instructions", side, numbers["Ir"])
    step.put("first", side, sum(numbers[event] for event in FIRST_LEVEL))
    step.put("last", side, sum(numbers[event] for event in LAST_LEVEL))


def count_instructions(options, folder):
    """{(name, rows): Step} in the order of the dumps."""
    valgrind = ["valgrind", "--tool=callgrind", "--instr-atstart=no", "--dump-line=no",
                "--callgrind-out-file=" + os.path.join(folder, "out.%p"), *CACHE]
    run(options.program, "--instructions", *choice(options), prefix=valgrind)
    steps = {}
    for dump in sorted(glob.glob(os.path.join(folder, "out.*")), key=lambda name: os.stat(name).st_mtime_ns):
        read_dump(dump, steps)
    return steps


def count_allocations(options, steps):
    for line in run(options.program, "--allocations", *choice(options)).splitlines():
        name, rows, theirs, ours = line.split()
        step = steps[name, int(rows)]
        step.put("allocations", 0, int(theirs))
        step.put("allocations", 1, int(ours))


def count_arrangements(options):
    return {name: int(number) for name, number in
            (line.split() for line in run(options.program, "--counts").splitlines())}


def growth_of(steps, name, rows):
    less = steps.get((name, rows // 10))
    if not less:
        return None
    return steps[name, rows].figures["instructions"][1] / less.figures["instructions"][1] / 10


def failures(steps, counts):
    """What --check ends with 1 for, in words."""
    for (name, rows), step in steps.items():
        for what, held in zip(("instructions", "last", "allocations"), HELD.get(name, ())):
            if rows >= 100 and step.ratio(what) > held:
                yield f"{name} at {rows} rows: {what} {step.ratio(what):.3f} of theirs, {held} is held"
        growth = growth_of(steps, name, rows)
        if growth and rows >= GROWTH_FROM and growth > (GROWTH_OF_OTHERS if name in OTHERS else GROWTH):
            yield f"{name} at {rows} rows: {growth:.3f} of the instructions a row at a tenth of the rows"
    for name, held in HELD_COUNTS.items():
        if counts.get(name, 0) > held:
            yield f"{name}: {counts[name]}, {held} is held"


def cell(step, what):
    theirs, ours = (number / step.rows for number in step.figures[what])
    form = ",.0f" if what == "instructions" else ",.1f"
    return f"{theirs:{form}} | {ours:{form}} | {step.ratio(what):.2f}"


def row(steps, name, rows):
    step = steps[name, rows]
    goal = GOALS.get(name)
    verdict = ""
    if goal:
        verdict = f"{goal}" if step.ratio("instructions") <= goal else f"{goal} **missed**"
    growth = growth_of(steps, name, rows)
    cells = " | ".join(cell(step, what) for what in ("instructions", "first", "last", "allocations"))
    return f"| {name} | {rows} | {cells} | {verdict} | {f'{growth:.3f}' if growth else ''} |"


def table(steps, counts):
    head = "".join(f" {what}: theirs | ours | ratio |" for what in
                   ("instructions a row", "first-level misses", "last-level misses", "allocations"))
    lines = [f"| step | rows |{head} goal, instructions | growth a row |", "|---" * 16 + "|"]
    lines += [row(steps, name, rows) for name, rows in steps]
    lines += ["", "| count | measured | held |", "|---|---|---|"]
    lines += [f"| {name} | {number} | {HELD_COUNTS.get(name, '')} |" for name, number in counts.items()]
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--rows", default="10,30,100,1000")
    parser.add_argument("--only", default="", help="comparisons by name, with commas between")
    parser.add_argument("--skip", default="", help="what is held but for these")
    parser.add_argument("--keep", help="folder for callgrind's own files")
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as scratch:
        folder = options.keep or scratch
        os.makedirs(folder, exist_ok=True)
        steps = count_instructions(options, folder)
    count_allocations(options, steps)
    counts = count_arrangements(options)
    print(table(steps, counts))
    broken = list(failures(steps, counts)) if options.check else []
    for line in broken:
        print(line, file=sys.stderr)
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
