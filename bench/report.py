"""The figures of a measurement as a table, and the bars they are held against."""

import math
import statistics

STEPS = ("lists", "import", "autofill", "summarize", "check", "save", "reload", "report", "whole")
# What a peer does between reading the lists and writing the rows.
ROWS = ("lists", "import", "autofill", "summarize", "save")
# What is timed in the real windows, and the milliseconds that it may take.
WINDOW = {
    "20,000 trades": {"import": 100, "autofill": 100, "summarize": 100, "check": 100, "save": 100,
                      "reload": 100, "report": 100},
    "1,000,000 rows": {"page": 16, "key": 16, "jump": 16, "search_miss": None},
    "100,000 accounts": {"list_open": 500, "list_search": 100, "list_key": 16},
}


class Rounds:
    """Figures of every round by name; asked for the median."""

    def __init__(self):
        self.taken = {}

    def add(self, found, prefix=""):
        for name, figure in found.items():
            self.taken.setdefault(prefix + name, []).append(figure)

    def __getitem__(self, name):
        return statistics.median(self.taken[name])


def line(name, took, note=""):
    print(f"{name:<34}{took * 1000:>10.1f} ms  {note}".rstrip())


def print_day(taken):
    for step in STEPS:
        held = taken[step + " kb"] * 1024 / taken["rows"]
        line(step, taken[step], f"100,000 trades: {taken['100k ' + step] * 1000:7.1f} ms   "
                                f"held after it: {held:6.1f} bytes a row")
    line("limit (plain reads and writes)", taken["limit"], f"{taken['bytes']:,.0f} bytes")
    print(f"{'peak memory':<34}{taken['peak_kb'] * 1024:>13,.0f} bytes\n")


def print_peers(taken):
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
    print()


def print_table(taken, rounds, micro):
    print(f"1,000,000 trades, 100,000 accounts, 2,000 securities, 500,000 holding lines; "
          f"{taken['rows']:,.0f} rows imported, {taken['summarized']:,.0f} after summarising; "
          f"medians of {rounds} rounds\n")
    print_day(taken)
    print_peers(taken)
    for size, works in WINDOW.items():
        print(f"in the window, under Wine, with {size}")
        for work in works:
            line(work, taken["window " + work])
    print()
    line("start to painted window", taken["start Tallyrun.frmMain"],
         f"{taken['start Tallyrun.frmMain'] / taken['start Notepad']:.2f} times notepad's")
    line("start to painted window, notepad", taken["start Notepad"])
    print(f"{'size of Tallyrun.exe':<34}{taken['exe bytes']:>13,.0f} bytes\n")
    print("the inner pieces, 100,000 trades, processor time of one call")
    for name, nanoseconds in micro.items():
        print(f"{name:<34}{nanoseconds:>13,.0f} ns")
    print()


def bar(name, measured, at_least=None, at_most=None, below=None):
    """One line. What is printed is rounded against us; what is compared is not rounded."""
    if at_least is not None:
        holds, asked = measured >= at_least, f"at least {at_least}"
        shown = math.floor(measured * 1000) / 1000
    elif at_most is not None:
        holds, asked = measured <= at_most, f"at most {at_most}"
        shown = math.ceil(measured * 1000) / 1000
    else:
        holds, asked = measured < below, f"below {below}"
        shown = math.ceil(measured * 1000) / 1000
    print(f"bar {name}: {shown:.3f} (asked {asked}) {'holds' if holds else 'falls short'}")


def print_bars(taken):
    bar("rows, times faster than mawk and sort", taken["mawk rows"] / taken["ours rows"],
        at_least=8)
    bar("rows, times faster than sqlite3", taken["sqlite rows"] / taken["ours rows"], at_least=12)
    bar("holding check, times faster than mawk", taken["mawk check"] / taken["check"], at_least=10)
    bar("whole day, times the limit", taken["whole"] / taken["limit"], at_most=14)
    bar("whole day, growth for ten times the trades", taken["whole"] / taken["100k whole"],
        at_most=12)
    bar("peak memory, times all inputs and outputs", taken["peak_kb"] * 1024 / taken["bytes"],
        at_most=2)
    for size, works in WINDOW.items():
        for work, milliseconds in works.items():
            if milliseconds:
                bar(f"{work} with {size}, ms", taken["window " + work] * 1000, below=milliseconds)
    bar("start to painted window, times notepad",
        taken["start Tallyrun.frmMain"] / taken["start Notepad"], at_most=1.5)
    bar("size of Tallyrun.exe, MB", taken["exe bytes"] / 1e6, at_most=1.5)
