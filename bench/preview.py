#!/usr/bin/env python3
"""preview.py BIN [--rows N] [--rounds N]

Times how long `zorva preview` (in the folder BIN) takes from the end of a save to the new form, offscreen: the time
the file takes to come to rest included. Ends with 1 if the median at 300 rows is beyond 200 ms. What counts is
processor time of the thread that shows the form, and the rest before it: other programs disturb that little. The
time on the wall stands beside it. The window says by itself when a form is up: ZORVA_PREVIEW_TIMES names a file that
gets a line for each."""
import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time

from check import write

LARGEST = 0.200
REST = 0.030  # without a change, until the window reads the file


def wait_for(path, lines):
    end = time.monotonic() + 20
    while time.monotonic() < end:
        if os.path.exists(path):
            with open(path) as file:
                times = file.read().split()
            if len(times) >= lines:
                return float(times[-1])
        time.sleep(0.005)
    sys.exit('the preview does not take the form up')


def processor_time(process):
    with open(f'/proc/{process}/task/{process}/schedstat', encoding='ascii') as file:
        return int(file.read().split()[0]) / 1e9


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('bin')
    parser.add_argument('--rows', type=int, default=300)
    parser.add_argument('--rounds', type=int, default=9)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        form, = write(os.path.join(folder, 'forms'), 1, arguments.rows)
        with open(form) as file:
            text = file.read()
        said = os.path.join(folder, 'times')
        environment = dict(os.environ, ZORVA_PREVIEW_TIMES=said)
        environment.setdefault('QT_QPA_PLATFORM', 'offscreen')
        preview = subprocess.Popen([os.path.join(arguments.bin, 'zorva'), 'preview', form], env=environment)
        try:
            wait_for(said, 1)
            walls, used = [], []
            for round_ in range(arguments.rounds):
                time.sleep(1.0)  # the problems of the last one are looked for aside
                before = processor_time(preview.pid)
                with open(form, 'w') as file:
                    file.write(text + f'<!-- {round_} -->\n')
                saved = time.time()
                walls.append(wait_for(said, round_ + 2) - saved)
                used.append(REST + processor_time(preview.pid) - before)
        finally:
            preview.terminate()
            preview.wait()
    median = statistics.median(used)
    print(f'{arguments.rows} rows: {median * 1000:.0f} ms from save to form (at most {max(used) * 1000:.0f} ms), '
          f'bound {LARGEST * 1000:.0f} ms; on the wall {statistics.median(walls) * 1000:.0f} ms')
    return 1 if arguments.rows <= 300 and median > LARGEST else 0


if __name__ == '__main__':
    sys.exit(main())
