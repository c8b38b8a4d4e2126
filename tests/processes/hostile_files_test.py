# SPDX-License-Identifier: GPL-3.0-or-later
"""Lists good sound, films and documents among hostile and among randomly damaged ones.

Environment: MARQUELL_LIST is the program, MARQUELL_RUNS how many files are damaged.
"""

import ctypes
import os
import random
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

import hostile_images_test as images

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))
import hostile_documents  # noqa: E402
import hostile_sound  # noqa: E402
import hostile_streams  # noqa: E402
import pdf_bytes  # noqa: E402
from document_bytes import DOCUMENTS  # noqa: E402
from id3_bytes import full_tag  # noqa: E402
from sound_bytes import FILES as SOUNDS  # noqa: E402

COLUMNS = "name,@AudioVisualCommon,@ID3,@Spotlight"
FEWEST_VALUES = 4  # of a good file
SECRET = 987_654_321  # in the values of the file that playlists lead to


def tagged_sound(number):
    return full_tag(2 + number % 3)[0] + b"\xff\xfb\x90\0" * 1000


def pdf(number):
    return pdf_bytes.pdf({"Title": f"Größe {number}", "Author": "Ann; Bob", "Keywords": "red"},
                         {"dc:description": f"About {number}", "dc:rights": "©"})


def first_of(make):
    return lambda number: make(number)[0]


GOOD = {"mp3": tagged_sound, "pdf": pdf,
        **{extension: first_of(make) for extension, make in (SOUNDS | DOCUMENTS).items()}}
KINDS = list(GOOD)


def write_among_good(files, folder, alone):
    """Numbers the files in their order, with a good one in front of every few."""
    for number, (name, content) in enumerate(files):
        if number % images.GOOD_EVERY == 0:
            extension = KINDS[number // images.GOOD_EVERY % len(KINDS)]
            for place in (folder, alone):
                (place / f"{number:05} good.{extension}").write_bytes(GOOD[extension](number))
        (folder / f"{number:05} {name}").write_bytes(content)


def cut_files():
    for extension, make in GOOD.items():
        content = make(1)
        for length in range(0, len(content), 101):
            yield f"cut at {length}.{extension}", content[:length]


def noise():
    chance = random.Random(images.SEED)
    for extension in KINDS:
        yield f"noise.{extension}", chance.randbytes(4096)


def hostile_files():
    yield from hostile_streams.hostile()
    yield from hostile_sound.hostile()
    for kind in hostile_documents.KINDS:
        yield from kind()
    for name, content in pdf_bytes.hostile():
        yield f"{name}.pdf", content
    yield from cut_files()
    yield from noise()


def damaged_files(count):
    chance = random.Random(images.SEED)
    for number in range(count):
        extension = KINDS[number % len(KINDS)]
        yield f"damaged.{extension}", images.damaged(GOOD[extension](number), chance)


def write_special_files(folder):
    """What is no regular file, a file of a terabyte for each kind, and what playlists lead to."""
    os.mkfifo(folder / "pipe.mp3")
    (folder / "folder.mp4").mkdir()
    (folder / "nowhere.pdf").symlink_to("nothing.pdf")
    (folder / "zero.docx").symlink_to("/dev/zero")
    hostile_streams.write_sparse(folder)
    for extension, make in GOOD.items():
        with open(folder / f"sparse.{extension}", "wb") as file:
            file.write(make(1))
            file.truncate(2**40)
    (folder / hostile_streams.SECRET).write_bytes(SOUNDS["wav"](SECRET)[0])


class HostileFilesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        ctypes.CDLL(None).prctl(images.PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)

    def setUp(self):
        place = Path(tempfile.mkdtemp(prefix="marquell-"))
        self.addCleanup(shutil.rmtree, place)
        self.folder, self.alone = place / "mixed", place / "alone"
        self.folder.mkdir()
        self.alone.mkdir()

    def check(self, listing):
        alone = images.Listing(self.alone, COLUMNS)
        self.assertEqual((alone.status, alone.messages), (0, []))
        self.assertEqual(sorted(listing.rows), sorted(os.listdir(self.folder)))
        for name, row in alone.rows.items():
            self.assertGreater(len(own_values(row)), FEWEST_VALUES, name)
            self.assertEqual(own_values(listing.rows[name]), own_values(row))
        self.assertEqual(listing.status, 1 if listing.failed else 0)
        self.assertEqual(len(listing.failed), len(listing.messages), listing.messages)
        self.assertTrue(listing.orphans_ended)
        # What a sanitizer finds in a helper shows here, too.
        self.assertEqual(listing.given_up(), set())
        if not images.SANITIZED:
            self.assertLess(listing.peak, images.MOST_MEMORY)

    def test_good_files_among_hostile_ones(self):
        # The sanitizers are asked about the structures; what is merely large takes them minutes.
        limit = 100_000 if images.SANITIZED else 2**40
        write_among_good(((name, content) for name, content in hostile_files()
                          if len(content) < limit
                          and not (images.SANITIZED and "unpacks" in name)),
                         self.folder, self.alone)
        if not images.SANITIZED:
            write_special_files(self.folder)
        listing = images.Listing(self.folder, COLUMNS)
        self.check(listing)
        if not images.SANITIZED:
            holders = [name for name, row in listing.rows.items()
                       if any(str(SECRET) in str(value) for value in row.values())]
            self.assertEqual(holders, [hostile_streams.SECRET])

    def test_good_files_among_damaged_ones(self):
        write_among_good(damaged_files(images.RUNS), self.folder, self.alone)
        listing = images.Listing(self.folder, COLUMNS)
        self.check(listing)
        with_values = [row for row in listing.rows.values() if own_values(row)]
        self.assertGreater(len(with_values), len(listing.rows) // 2)


def own_values(row):
    """What the content of a file gives, whenever the file was written."""
    return {column: value for column, value in row.items() if value not in ("", None)
            and column not in ("name", "contenttype", "contentcreationdate",
                               "contentmodificationdate", "dateadded", "timestamp")}


if __name__ == "__main__":
    unittest.main()
