#!/usr/bin/env python3
"""Start-up of the library: processes from nothing to the first empty form, against
processes that make what the form stands on (application and script engine).

    bench/startup.py build/bench/bin [--rounds 15]"""

import argparse
import os
import resource
import statistics
import subprocess


def processor_seconds(program):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run([program], check=True, env=dict(os.environ, QT_QPA_PLATFORM="offscreen"))
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("folder")
    parser.add_argument("--rounds", type=int, default=15)
    options = parser.parse_args()
    floor = os.path.join(options.folder, "zorva-startup-floor")
    ours = os.path.join(options.folder, "zorva-startup")
    rounds = []
    for _ in range(options.rounds + 1):
        rounds.append((processor_seconds(floor), processor_seconds(ours)))
    rounds = rounds[1:]
    ratios = sorted(mine / theirs for theirs, mine in rounds)
    print("| start-up | theirs | ours | ratio [min, max] |")
    print("|---|---|---|---|")
    print(f"| process with an empty form / with QApplication and QScriptEngine "
          f"| {statistics.median(r[0] for r in rounds) * 1e3:.1f} ms "
          f"| {statistics.median(r[1] for r in rounds) * 1e3:.1f} ms "
          f"| {statistics.median(ratios):.2f} [{ratios[0]:.2f}, {ratios[-1]:.2f}] |")


if __name__ == "__main__":
    main()
