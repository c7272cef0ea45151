#!/usr/bin/env python3
"""show.py BIN [--rows N] [--rounds N]

Times `zorva show` of a form beside a program of Qt's that grabs an empty window (both in the
folder BIN), in processor time. Ends with 1 if a picture of 50 rows takes more than 150 ms
longer, or if ten times the rows cost more than twelve times as much."""
import argparse
import os
import statistics
import sys
import tempfile

from check import timed, write

LARGEST_EXTRA = 0.150
LARGEST_GROWTH = 12.0


def median(command, rounds):
    times = []
    for _ in range(rounds):
        seconds, code = timed(command)
        if code != 0:
            sys.exit(f'{" ".join(command)} ended with {code}')
        times.append(seconds)
    return statistics.median(times)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('bin')
    parser.add_argument('--rows', type=int, default=50)
    parser.add_argument('--rounds', type=int, default=9)
    arguments = parser.parse_args()
    floor = median([os.path.join(arguments.bin, 'zorva-emptywindow')], arguments.rounds)
    wholes = []
    with tempfile.TemporaryDirectory() as folder:
        for rows in (arguments.rows, 10 * arguments.rows):
            form, = write(os.path.join(folder, str(rows)), 1, rows)
            command = [os.path.join(arguments.bin, 'zorva'), 'show', form, '-o', os.path.join(folder, 'form.png')]
            for fonts in ([], ['--fonts', 'bundled']):
                whole = median(command + fonts, arguments.rounds)
                wholes.append(whole)
                print(f'{rows} rows{" with bundled fonts" if fonts else ""}: zorva show {whole * 1000:.0f} ms, '
                      f'empty window {floor * 1000:.0f} ms, {(whole - floor) * 1000:.0f} ms more')
    growth = wholes[2] / wholes[0]
    print(f'growth at ten times the rows: {growth:.1f}')
    return 1 if max(wholes[:2]) - floor > LARGEST_EXTRA or growth > LARGEST_GROWTH else 0


if __name__ == '__main__':
    sys.exit(main())
