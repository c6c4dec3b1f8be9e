#!/usr/bin/env python3
"""Runs the day, the peers and the limit in turn on the same files and prints what they took.

measure.py PROGRAMS SCRIPTS DATA ROUNDS: PROGRAMS holds generate, day and limit, SCRIPTS the peers;
DATA is an empty folder for the files. What is compared is the median of all rounds. Every peer's
files must be byte for byte ours, or nothing is printed.
"""

import filecmp
import pathlib
import statistics
import subprocess
import sys
import time

SEED = "1"
SIZES = {  # trades, accounts, securities, holding lines
    "100k": ("100000", "10000", "2000", "50000"),
    "1m": ("1000000", "100000", "2000", "500000"),
}
ENTRIES = "05-Jan-2010_PI_410275.txt"
REPORT = "PAY-IN INSTRUCTIONS"
STEPS = ("lists", "import", "autofill", "summarize", "check", "save", "reload", "report", "whole")
# What a peer does between reading the lists and writing the rows.
ROWS = ("lists", "import", "autofill", "summarize", "save")


def run(*command):
    return subprocess.run([str(part) for part in command], check=True, text=True,
                          stdout=subprocess.PIPE).stdout


def figures(text):
    """{name: first figure} of lines "NAME FIGURE...": seconds, or a count."""
    return {line.split()[0]: float(line.split()[1]) for line in text.splitlines()}


def seconds(*command):
    begin = time.perf_counter()
    run(*command)
    return time.perf_counter() - begin


class Rounds:
    """Figures of every round by name; asked for the median."""

    def __init__(self):
        self.taken = {}

    def add(self, found, prefix=""):
        for name, figure in found.items():
            self.taken.setdefault(prefix + name, []).append(figure)

    def __getitem__(self, name):
        return statistics.median(self.taken[name])


def require_same(ours, theirs):
    for name in (ENTRIES, "holding.txt"):
        if not filecmp.cmp(ours / name, theirs / name, shallow=False):
            sys.exit(f"measure: {theirs.name} makes another {name} than we do")


def measure(programs, scripts, data, rounds):
    taken = Rounds()
    folders = {name: data / name for name in (*SIZES, "out-1m", "out-100k", "mawk", "sqlite")}
    for folder in folders.values():
        folder.mkdir()
    for name, size in SIZES.items():
        run(programs / "generate", data / name, SEED, *size)
    inputs = sorted(folders["1m"].iterdir())
    for at in range(rounds):
        taken.add(figures(run(programs / "day", folders["1m"], folders["out-1m"])))
        taken.add(figures(run(programs / "day", folders["100k"], folders["out-100k"])), "100k ")
        outputs = [folders["out-1m"] / name for name in (ENTRIES, REPORT)]
        taken.add(figures(run(programs / "limit", *inputs, "--", *outputs)))
        for peer in ("mawk", "sqlite"):
            for part in ("rows", "check"):
                took = seconds(scripts / f"peer_{peer}.sh", part, folders["1m"], folders[peer])
                taken.add({f"{peer} {part}": took})
            if at == 0:
                require_same(folders["out-1m"], folders[peer])
    taken.add({"ours rows": sum(taken[step] for step in ROWS)})
    return taken


def print_table(taken, rounds):
    def line(name, took, note=""):
        print(f"{name:<34}{took * 1000:>10.1f} ms  {note}".rstrip())

    print(f"1,000,000 trades, 100,000 accounts, 2,000 securities, 500,000 holding lines; "
          f"{taken['rows']:,.0f} rows imported, {taken['summarized']:,.0f} after summarising; "
          f"medians of {rounds} rounds\n")
    for step in STEPS:
        line(step, taken[step], f"100,000 trades: {taken['100k ' + step] * 1000:.1f} ms")
    line("limit (plain reads and writes)", taken["limit"], f"{taken['bytes']:,.0f} bytes")
    print()
    line("rows: " + " + ".join(ROWS), taken["ours rows"])
    for peer in ("mawk", "sqlite"):
        line(f"rows, {peer}", taken[f"{peer} rows"],
             f"{taken[f'{peer} rows'] / taken['ours rows']:.2f} times ours")
    line("check", taken["check"])
    for peer in ("mawk", "sqlite"):
        line(f"check, {peer}", taken[f"{peer} check"],
             f"{taken[f'{peer} check'] / taken['check']:.2f} times ours, "
             f"{taken[f'{peer} check'] / (taken['check'] + taken['reload']):.2f} times ours "
             "with the reading of the entry file")
    print(f"{'peak memory':<34}{taken['peak_kb'] * 1024:>13,.0f} bytes")
    print(f"{'sheet after import':<34}{taken['sheet_kb'] * 1024 / taken['rows']:>13.1f} bytes a row\n")


def print_bars(taken):
    def bar(name, measured, asked, at_least):
        holds = measured >= asked if at_least else measured <= asked
        # A figure that falls short is never printed as if it held.
        sign = "at least" if at_least else "at most"
        print(f"bar {name}: {measured:.3f} (asked {sign} {asked}) "
              f"{'holds' if holds else 'falls short'}")

    bar("rows, times faster than mawk and sort", taken["mawk rows"] / taken["ours rows"], 10, True)
    bar("rows, times faster than sqlite3", taken["sqlite rows"] / taken["ours rows"], 5, True)
    bar("holding check, times faster than mawk", taken["mawk check"] / taken["check"], 10, True)
    bar("whole day, times the limit", taken["whole"] / taken["limit"], 8, False)
    bar("whole day, growth for ten times the trades", taken["whole"] / taken["100k whole"], 12,
        False)
    bar("peak memory, times all inputs and outputs", taken["peak_kb"] * 1024 / taken["bytes"], 4,
        False)


def main():
    programs, scripts, data = (pathlib.Path(each).resolve() for each in sys.argv[1:4])
    rounds = int(sys.argv[4])
    taken = measure(programs, scripts, data, rounds)
    print_table(taken, rounds)
    print_bars(taken)


if __name__ == "__main__":
    main()
