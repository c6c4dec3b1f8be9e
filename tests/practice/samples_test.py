#!/usr/bin/python3
"""Holds the stored sample day against the script that makes it."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SAMPLES = pathlib.Path(__file__).resolve().parents[2] / "samples"


class SamplesTest(unittest.TestCase):
    def test_the_script_writes_what_is_stored(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, str(SAMPLES / "make_samples.py"), folder], check=True)
            made = [p.relative_to(folder) for p in pathlib.Path(folder).rglob("*") if p.is_file()]
            self.assertEqual(len(made), 8)
            for name in made:
                self.assertEqual((folder / name).read_bytes(), (SAMPLES / name).read_bytes(), name)


if __name__ == "__main__":
    unittest.main()
