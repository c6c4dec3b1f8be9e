#!/usr/bin/python3
"""Holds the sample day against what the demo and the docs promise of it."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SAMPLES = pathlib.Path(__file__).resolve().parents[2] / "samples"


def lines(name):
    return (SAMPLES / name).read_bytes().decode("cp1252").split("\r\n")


def table(name):
    return [line.rstrip("\r").split("~") for line in lines(name)]


def payin_quantities():
    """What the sheet holds when the Pay In file is imported and summarised."""
    boid_of = {client: boid for _, boid, _, client in table("work/BO.txt")}
    isin_of = {scrip: isin for _, isin, _, scrip, _ in table("work/ISIN.txt")}
    quantities = {}
    for line in lines("import/payin_05-01-2010.txt"):
        fields = line.split("|")
        if len(fields) > 1 and fields[3] == "S":
            key = boid_of[fields[6]], isin_of[fields[1]]
            quantities[key] = quantities.get(key, 0) + int(fields[4])
    return quantities


def shortfalls(holding_file):
    """(insufficient, missing) rows, by the first line that names both codes."""
    insufficient, missing = 0, 0
    holdings = lines(holding_file)[8:]
    for (boid, isin), quantity in payin_quantities().items():
        line = next((h for h in holdings if boid in h and isin in h), None)
        if line is None:
            missing += 1
        elif quantity > int(line.split(" ")[-1]):
            insufficient += 1
    return insufficient, missing


class SamplesTest(unittest.TestCase):
    def test_the_script_writes_what_is_stored(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, str(SAMPLES / "make_samples.py"), folder], check=True)
            made = [p.relative_to(folder) for p in pathlib.Path(folder).rglob("*") if p.is_file()]
            self.assertEqual(len(made), 8)
            for name in made:
                self.assertEqual((folder / name).read_bytes(), (SAMPLES / name).read_bytes(), name)

    def test_the_first_holding_file_falls_short_and_the_corrected_one_does_not(self):
        self.assertEqual(shortfalls("import/11DPA6UX.TXT"), (1, 1))
        self.assertEqual(shortfalls("import/corrected/11DPA6UX.TXT"), (0, 0))


if __name__ == "__main__":
    unittest.main()
