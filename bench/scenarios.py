#!/usr/bin/env python3
"""scenarios.py [BUILD]: 500 small tests of the receiver form, two at a time, as "zorva test" runs them.

Prints the time by the clock and by the processors, and ends with 1 if two idle processors could not do it in 20 s.
"""
import os
import resource
import subprocess
import sys
import tempfile
import time

TESTS = 500
GOAL = 20.0  # seconds on two processors

TREE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else os.path.join(TREE, "build", "release")

SMALL = """test("small %d", function(form) {
    form.enter("frequency", "%d MHz");
    form.expectValue("frequency", %d000000);
    form.choose("demodulation", "AM");
    form.expectEnabled("deemphasis", false);
});
"""

with tempfile.TemporaryDirectory() as folder:
    source = os.path.join(folder, "small.tests.js")
    with open(source, "w", encoding="utf-8") as file:
        file.write("".join(SMALL % (i, 100 + i, 100 + i) for i in range(TESTS)))
    began = time.monotonic()
    run = subprocess.run([os.path.join(BUILD, "bin", "zorva"), "test", "--jobs", "2",
                          os.path.join(TREE, "examples", "receiver.zorva"), source],
                         stdout=subprocess.PIPE, check=False)
    elapsed = time.monotonic() - began
used = resource.getrusage(resource.RUSAGE_CHILDREN)
processor = used.ru_utime + used.ru_stime
last = run.stdout.decode().strip().splitlines()[-1]
print(f"{TESTS} tests: {elapsed:.1f} s by the clock, {processor:.1f} s of processors, "
      f"{processor / 2:.1f} s on two idle ones (goal {GOAL:.0f} s); {last}")
sys.exit(0 if run.returncode == 0 and processor / 2 < GOAL else 1)
