#!/usr/bin/env python3
"""Runs everything that is measured in turn, round after round, and prints what it took.

measure.py NATIVE WINDOWS DATA ROUNDS: NATIVE and WINDOWS are the build folders; DATA is an empty
folder for the files. What is compared is the median of all rounds. Every peer's files must be byte
for byte ours, or nothing is printed. A bar that falls short is said, and is no failure.
"""

import filecmp
import json
import os
import pathlib
import subprocess
import sys
import time

from report import ROWS, Rounds, print_bars, print_table

HERE = pathlib.Path(__file__).resolve().parent
WINE = HERE.parent / "scripts" / "wine.sh"
SEED = "1"
SIZES = {  # trades, accounts, securities, holding lines
    "100k": ("100000", "10000", "2000", "50000"),
    "1m": ("1000000", "100000", "2000", "500000"),
}
STARTS_PER_ROUND = "5"
# What takes a second or less is taken more often than the peers, as another load on the machine
# shows more in it.
DAYS_PER_ROUND = 3
ENTRIES = "05-Jan-2010_PI_410275.txt"
REPORT = "PAY-IN INSTRUCTIONS"


def run(*command, **environment):
    """What the command prints; the end of everything when it fails."""
    done = subprocess.run([str(part) for part in command], text=True, check=False,
                          env=os.environ | environment, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode != 0:
        sys.exit(f"measure: {' '.join(map(str, command))} failed: {done.returncode}\n"
                 f"{done.stdout[-4000:]}{done.stderr[-4000:]}")
    return done.stdout


def figures(text):
    """{name: first figure} of lines "NAME FIGURE...": seconds, or a count."""
    return {line.split()[0]: float(line.split()[1]) for line in text.splitlines()}


def day(native, work, out):
    """The day's figures, and what the process holds after each step as "STEP kb"."""
    text = run(native / "day", work, out)
    fields = [line.split() for line in text.splitlines()]
    return figures(text) | {f"{each[0]} kb": float(each[3]) for each in fields if len(each) > 3}


def limit(inputs, outputs):
    """What no program can do without: reading each input once and writing as much as each output.

    Plain reads and writes of a megabyte, which take as long as the same in C++."""
    piece = memoryview(bytearray(1 << 20))
    copies = {path.with_suffix(".limit"): path.stat().st_size for path in outputs}
    total = 0
    begin = time.perf_counter()
    for path in inputs:
        with open(path, "rb", buffering=0) as file:
            while count := file.readinto(piece):
                total += count
    for path, size in copies.items():
        with open(path, "wb", buffering=0) as file:
            for left in range(size, 0, -len(piece)):
                total += file.write(piece[:left])
    took = time.perf_counter() - begin
    for path in copies:
        path.unlink()
    return {"limit": took, "bytes": total}


def require_same(ours, theirs):
    for name in (ENTRIES, "holding.txt"):
        if not filecmp.cmp(ours / name, theirs / name, shallow=False):
            sys.exit(f"measure: {theirs.name} makes another {name} than we do")


class Day:
    """The day's work on generated files, ours, the peers' and plain reads and writes."""

    def __init__(self, native, data):
        self.native = native
        self.at = {name: data / name for name in (*SIZES, "out-1m", "out-100k", "mawk", "sqlite")}
        for folder in self.at.values():
            folder.mkdir()
        for name, size in SIZES.items():
            run(native / "generate", self.at[name], SEED, *size)

    def measure(self, taken, is_first):
        outputs = [self.at["out-1m"] / name for name in (ENTRIES, REPORT)]
        inputs = sorted(self.at["1m"].iterdir())
        for _ in range(DAYS_PER_ROUND):
            taken.add(day(self.native, self.at["1m"], self.at["out-1m"]))
            taken.add(day(self.native, self.at["100k"], self.at["out-100k"]), "100k ")
            taken.add(limit(inputs, outputs))
        for peer in ("mawk", "sqlite"):
            for part in ("rows", "check"):
                begin = time.perf_counter()
                run(HERE / f"peer_{peer}.sh", part, self.at["1m"], self.at[peer])
                taken.add({f"{peer} {part}": time.perf_counter() - begin})
            if is_first:
                require_same(self.at["out-1m"], self.at[peer])


class Windows:
    """The real windows under Wine, and the program's start."""

    def __init__(self, build, data):
        self.build = build
        self.place = data / "place"
        run(HERE.parent / "practice" / "workplace.sh", self.place, build / "Tallyrun.exe")

    def measure(self, taken):
        text = run(WINE, self.build / "bench" / "window_times.exe")
        marked = [line.split(" ", 1)[1] for line in text.splitlines() if line.startswith("figure ")]
        taken.add(figures("\n".join(marked)), "window ")
        program = "Z:" + str(self.place / "program" / "Tallyrun.exe").replace("/", "\\")
        starts = run(WINE, self.build / "bench" / "start_time.exe", STARTS_PER_ROUND,
                     program, "Tallyrun.frmMain", "C:\\windows\\notepad.exe", "Notepad")
        for line in starts.splitlines():
            taken.add(figures(line), "start ")


def micro(native):
    """{benchmark: nanoseconds a call}, each the median of five repetitions."""
    text = run(native / "micro", "--benchmark_format=json", "--benchmark_repetitions=5",
               "--benchmark_report_aggregates_only=true", "--benchmark_min_time=0.05")
    units = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    return {each["run_name"]: each["cpu_time"] * units[each["time_unit"]]
            for each in json.loads(text)["benchmarks"] if each["aggregate_name"] == "median"}


def main():
    native, windows, data = (pathlib.Path(each).resolve() for each in sys.argv[1:4])
    rounds = int(sys.argv[4])
    taken = Rounds()
    the_day = Day(native / "bench", data)
    the_windows = Windows(windows, data)
    for at in range(rounds):
        print(f"round {at + 1} of {rounds}", file=sys.stderr)
        the_day.measure(taken, at == 0)
        the_windows.measure(taken)
    taken.add({"ours rows": sum(taken[step] for step in ROWS),
               "exe bytes": (windows / "Tallyrun.exe").stat().st_size})
    print_table(taken, rounds, micro(native / "bench"))
    print_bars(taken)


if __name__ == "__main__":
    main()
