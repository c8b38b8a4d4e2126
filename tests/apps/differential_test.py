# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs marquell-list on random trees with random settings and compares whole lists with oracle.py.

Environment: MARQUELL_LIST is the program, MARQUELL_RUNS (150) the number of runs, MARQUELL_SEED (1)
the seed of the first. A failure tells its seed; with MARQUELL_RUNS=1 that seed repeats it.
"""

import os
import random
import re
import shutil
import subprocess
import tempfile
import unicodedata
import unittest
from zoneinfo import ZoneInfo

import oracle
from hostile_tree import HostileTree
from random_run import DEFAULTS, Run

PROGRAM = os.path.abspath(os.environ["MARQUELL_LIST"])
FIRST_SEED = int(os.environ.get("MARQUELL_SEED", "1"))
RUNS = int(os.environ.get("MARQUELL_RUNS", "150"))
RUNS_PER_TREE = 3
# Columns that cannot have a value may be announced as such.
NOTICE = re.compile(r"marquell-list: no values yet [^\n]*\n")


def first_difference(expected, actual):
    """The row where two lists part, for a reader."""
    rows = list(zip(expected.splitlines(True) + [b"(end)"], actual.splitlines(True) + [b"(end)"]))
    number = next(at for at, (a, b) in enumerate(rows) if a != b)
    return f"line {number + 1}:\n  expected {rows[number][0]}\n  actual   {rows[number][1]}"


class DifferentialTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        lines = subprocess.check_output([PROGRAM, "--list-columns"], text=True).splitlines()
        cls.catalogue = [line.split("\t") for line in lines[1:]]
        cls.titles = {row[0]: (row[3] or row[0], row[4]) for row in cls.catalogue}

    def make_place(self):
        """An empty folder for one test."""
        place = os.path.realpath(os.fsencode(tempfile.mkdtemp(prefix="marquell-")))
        self.addCleanup(shutil.rmtree, place)
        return place

    def make_tree(self, seed, items=120):
        return HostileTree(random.Random(f"tree {seed}"), self.make_place(), items)

    def check_diagnostics(self, run, tree, process):
        """The missing sources and nothing else are named, no name forges a line or steers a
        terminal, and they alone decide the status."""
        told = NOTICE.sub("", process.stderr.decode())
        missing = set(tree.missing).intersection(run.sources)
        # A source that is a link to nothing may count as missing or not.
        if missing or all(map(os.path.exists, run.sources)):
            self.assertEqual(process.returncode, 1 if missing else 0, told)
            self.assertEqual(bool(told), bool(missing), told)
        for path in missing:
            self.assertIn(os.path.basename(path).split(b"\n")[0].decode(), told)
        raw = [c for c in told if unicodedata.category(c) in ("Cc", "Cf") and c != "\n"]
        self.assertEqual(raw, [], told)

    def test_random_lists(self):
        tree = None
        for seed in range(FIRST_SEED, FIRST_SEED + RUNS):
            if tree is None or seed % RUNS_PER_TREE == 0:
                tree = self.make_tree(seed // RUNS_PER_TREE)
            run = Run(random.Random(f"run {seed}"), PROGRAM, tree, self.titles)
            with self.subTest(seed=seed, run=str(run)):
                text, process = run.perform()
                if text != run.expected:
                    self.fail(f"{first_difference(run.expected, text)}\n{process.stderr}")
                self.check_diagnostics(run, tree, process)

    def test_number_of_workers_does_not_show(self):
        tree = self.make_tree(f"large {FIRST_SEED}", items=1500)
        columns = oracle.BASIC + oracle.SIZE
        for first, second in ((8, 9), (10, 1), (6, 13)):  # in 8 and 9 all items tie
            settings = {**DEFAULTS, "firstSortMode": first, "secondSortMode": second}
            expected = oracle.csv_list([tree.root], columns, settings,
                                       oracle.Locale(ZoneInfo("UTC"), ".", ""), self.titles)
            options = [f"firstSortMode={first}", "-s", f"secondSortMode={second}", "-c",
                       ",".join(columns)]
            for jobs in ("1", "7"):
                text = subprocess.check_output([PROGRAM, "--jobs", jobs, "-s", *options, tree.root],
                                               env={**os.environ, "TZ": "UTC", "LC_ALL": "C"})
                if text != expected:
                    self.fail(f"{jobs} jobs, {options}, {first_difference(expected, text)}")

    def test_list_of_columns(self):
        self.assertEqual({len(row) for row in self.catalogue}, {5})
        ids = [row[0] for row in self.catalogue]
        self.assertEqual((len(ids), len(set(ids))), (329, 329))
        self.assertEqual(ids[326:], ["size", "layernames", "iptc_star_rating"])
        self.assertEqual(ids[:16], oracle.BASIC + oracle.SIZE)
        self.assertEqual(self.titles["exif_make"], ("Camera Make", "EXIF"))

    @unittest.skipIf(os.geteuid() == 0, "nothing is closed to the superuser")
    def test_closed_folder(self):
        place = self.make_place()
        closed = os.path.join(place, b"closed")
        os.makedirs(os.path.join(closed, b"unseen"))
        os.chmod(closed, 0)
        self.addCleanup(os.chmod, closed, 0o700)
        process = subprocess.run([PROGRAM, "-c", "name", place], capture_output=True)
        self.assertEqual((process.stdout, process.returncode), (b'"closed"\n', 1))
        self.assertIn(closed, process.stderr)


if __name__ == "__main__":
    unittest.main()
