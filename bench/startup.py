#!/usr/bin/env python3
"""Start-up: whole processes, ours and the bare minimum in turn, in processor time.

    bench/startup.py build/bench [--rounds 15]

The first line is from nothing to the first empty form, beside a process that makes what a form
stands on (application and script engine). The second is zorvashell with the minimal form up to
its first paint, beside a program of Qt's with the same caption and control by hand; a plugin of
the bench ends both there. What was not built is skipped with a note."""

import argparse
import os
import resource
import statistics
import subprocess
import sys
import tempfile

FORM = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "examples", "minimal.zorva")


def processor_seconds(command, environment):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, check=True, env=environment, stdout=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def line(title, theirs, ours, rounds, environment):
    timed = [(processor_seconds(theirs, environment), processor_seconds(ours, environment))
             for _ in range(rounds + 1)][1:]
    ratios = sorted(mine / other for other, mine in timed)
    print(f"| {title} "
          f"| {statistics.median(r[0] for r in timed) * 1e3:.1f} ms "
          f"| {statistics.median(r[1] for r in timed) * 1e3:.1f} ms "
          f"| {statistics.median(ratios):.2f} [{ratios[0]:.2f}, {ratios[-1]:.2f}] |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("build", help="a build folder of the project")
    parser.add_argument("--rounds", type=int, default=15)
    options = parser.parse_args()
    programs = os.path.join(options.build, "bin")
    plugins = os.path.join(options.build, "lib", "bench")
    with tempfile.TemporaryDirectory() as home:
        # A home of its own: what the shell keeps between its runs starts empty.
        bare = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=home, XDG_CONFIG_HOME=home,
                    XDG_DATA_HOME=home, XDG_CACHE_HOME=home, XDG_RUNTIME_DIR=home)
        watched = dict(bare, QT_PLUGIN_PATH=plugins, QT_QPA_GENERIC_PLUGINS="firstpaint")
        lines = [("process with an empty form / with QApplication and QScriptEngine",
                  [os.path.join(programs, "zorva-startup-floor")], [os.path.join(programs, "zorva-startup")], bare),
                 ("zorvashell with the minimal form to its first paint / its caption and control by hand",
                  [os.path.join(programs, "zorva-minimalwindow")], [os.path.join(programs, "zorvashell"), FORM],
                  watched)]
        print("| start-up | theirs | ours | ratio [min, max] |")
        print("|---|---|---|---|")
        for title, theirs, ours, environment in lines:
            missing = [command[0] for command in (theirs, ours) if not os.path.exists(command[0])]
            if missing:
                print(f"{missing[0]} was not built: skipped", file=sys.stderr)
            else:
                line(title, theirs, ours, options.rounds, environment)


if __name__ == "__main__":
    main()
