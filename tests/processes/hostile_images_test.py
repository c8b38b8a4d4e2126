# SPDX-License-Identifier: GPL-3.0-or-later
"""Lists good photos among hostile and among randomly damaged ones.

    hostile_images_test.py               as a test, with photos made on the spot
    hostile_images_test.py FOLDER...     damages copies of the photos below these folders, prints
                                         what became of them and keeps those that were given up

Environment: MARQUELL_LIST is the program, MARQUELL_RUNS how many photos are damaged.
"""

import ctypes
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))
import hostile_images  # noqa: E402
from photo_bytes import PHOTOS  # noqa: E402

PROGRAM = os.environ.get("MARQUELL_LIST", "")
SANITIZED = bool(os.environ.get("MARQUELL_SANITIZE"))
RUNS = int(os.environ.get("MARQUELL_RUNS", 40 if SANITIZED else 500))
COLUMNS = "name,@BasicImage,@EXIF,@GPS,@IPTCCommonUsage,@IPTCContactInfo,@IPTCIISLegacy"
PATIENCE = 250  # seconds until the test gives up
MOST_MEMORY = 150_000  # KB of the program itself, whatever the files are
FEWEST_VALUES = 45  # of a good photo
GOOD_EVERY = 8  # files, as many as are under way at a time
PR_SET_CHILD_SUBREAPER = 36
SEED = 20240229


class Listing:
    """What the program made of a folder, with the helpers' ends waited for."""

    def __init__(self, folder, columns=COLUMNS):
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            begin = time.monotonic()
            program = subprocess.Popen(
                [PROGRAM, "-q", "-f", "json", "-c", columns, "--", folder],
                stdout=output, stderr=errors)
            self.peak = self.peak_until_end(program, begin)
            self.seconds = time.monotonic() - begin
            self.status = program.returncode
            self.orphans_ended = wait_for_orphans()
            output.seek(0)
            errors.seek(0)
            self.rows = {row["name"]: row for row in json.load(output)}
            self.messages = errors.read().decode().splitlines()
        named = [re.match(r'marquell-list: "(.*?)": (.*)', line) for line in self.messages]
        self.failed = {match[1].rpartition("/")[2]: match[2] for match in named if match}

    @staticmethod
    def peak_until_end(program, begin):
        """KB; of the program without its helpers, whose usage the system adds to it."""
        peak = 0
        while program.returncode is None:
            if time.monotonic() - begin > PATIENCE:
                program.kill()
            status = Path(f"/proc/{program.pid}/status").read_text()
            peak = max([peak, *map(int, re.findall(r"VmHWM:\s*(\d+)", status))])
            try:
                program.wait(0.01)
            except subprocess.TimeoutExpired:
                pass
        return peak

    def given_up(self):
        return {name for name, why in self.failed.items() if "given up" in why}


def wait_for_orphans():
    """Whether all processes that the program left have ended within seconds."""
    def stop(*_):
        raise TimeoutError
    signal.signal(signal.SIGALRM, stop)
    signal.alarm(20)
    try:
        while True:
            os.wait()
    except ChildProcessError:
        return True
    except TimeoutError:
        return False
    finally:
        signal.alarm(0)


def write_among_good(files, folder, alone):
    """Numbers the files in their order, with a good photo in front of every few."""
    for number, (name, content) in enumerate(files):
        if number % GOOD_EVERY == 0:
            kinds = list(PHOTOS)
            extension = kinds[number // GOOD_EVERY % len(kinds)]
            good = PHOTOS[extension](number)
            for place in (folder, alone):
                (place / f"{number:05} good.{extension}").write_bytes(good)
        (folder / f"{number:05} {name}").write_bytes(content)


def damaged(content, chance):
    """A copy with some bytes changed, moved, put in or lost; mostly in front, where the values
    are."""
    photo = bytearray(content)
    for _ in range(chance.choice((1, 2, 5, 20))):
        size = max(1, len(photo))
        place = chance.randrange(min(size, chance.choice((256, 4096, 65536, size))))
        length = chance.choice((1, 2, 4, 16, 256))
        how = chance.randrange(6)
        if how == 0:
            photo[place:place + 1] = bytes([chance.randrange(256)])
        elif how == 1:
            photo[place:place + length] = chance.randbytes(length)
        elif how == 2:
            photo[place:place + 4] = chance.choice(
                (b"\xff\xff\xff\xff", bytes(4), b"\x7f\xff\xff\xff", b"\xff\xff\xff\x7f"))
        elif how == 3:
            source = chance.randrange(size)
            photo[place:place + length] = photo[source:source + length]
        elif how == 4:
            photo[place:place] = chance.randbytes(length)
        else:
            del photo[place:place + length]
    if chance.randrange(20) == 0:
        del photo[chance.randrange(max(1, len(photo))):]
    return bytes(photo)


def damaged_photos(photos, count):
    """Damaged ones of the (extension, content) that the photos are."""
    chance = random.Random(SEED)
    for number in range(count):
        extension, content = photos[number % len(photos)]
        yield f"damaged.{extension}", damaged(content, chance)


class HostileImagesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)

    def setUp(self):
        self.place = Path(tempfile.mkdtemp(prefix="marquell-"))
        self.addCleanup(shutil.rmtree, self.place)
        self.folder, self.alone = self.place / "mixed", self.place / "alone"
        self.folder.mkdir()
        self.alone.mkdir()

    def check(self, listing):
        alone = Listing(self.alone)
        self.assertEqual((alone.status, alone.messages), (0, []))
        names = [os.fsencode(name).decode(errors="replace") for name in os.listdir(self.folder)]
        self.assertEqual(sorted(listing.rows), sorted(names))
        for name, row in alone.rows.items():
            self.assertGreater(len([value for value in row.values() if value]), FEWEST_VALUES)
            self.assertIn(f"Model {int(name[:5])}", row.values())
            self.assertEqual(listing.rows[name], row)
        self.assertEqual(listing.status, 1 if listing.failed else 0)
        self.assertEqual(len(listing.failed), len(listing.messages), listing.messages)
        self.assertTrue(listing.orphans_ended)
        # What a sanitizer finds in a helper shows here, too.
        self.assertEqual(listing.given_up(), set())
        if not SANITIZED:
            self.assertLess(listing.peak, MOST_MEMORY)

    def test_good_photos_among_hostile_images(self):
        # The sanitizers are asked about the structures; what is merely large takes them minutes.
        limit = 100_000 if SANITIZED else 2**40
        write_among_good(((name, content) for kind in hostile_images.KINDS
                          for name, content in kind() if len(content) < limit),
                         self.folder, self.alone)
        if not SANITIZED:
            hostile_images.write_special_files(self.folder)
        listing = Listing(self.folder)
        self.check(listing)
        if not SANITIZED:
            self.assertEqual(set(listing.failed) - listing.given_up(), {"loop.jpg"})
            self.assertEqual(listing.rows["photo \ufffd\ufffd\ufffd.jpg"]["exif_model"], "Model 1")
            self.assertNotIn("Model 1", listing.rows["past the end of TIFF.tif"].values())

    def test_good_photos_among_damaged_ones(self):
        photos = [(extension, photo(number)) for number, (extension, photo)
                  in enumerate(PHOTOS.items())]
        write_among_good(damaged_photos(photos, RUNS), self.folder, self.alone)
        listing = Listing(self.folder)
        self.check(listing)
        with_values = [row for row in listing.rows.values()
                       if len([value for value in row.values() if value]) > 1]
        self.assertGreater(len(with_values), len(listing.rows) // 2)


def report(folders):
    """Damages the photos below the folders and prints what the program makes of them."""
    photos = [(path.suffix[1:].lower(), path.read_bytes()) for folder in folders
              for path in sorted(Path(folder).rglob("*")) if path.is_file()]
    place = Path(tempfile.mkdtemp(prefix="marquell-"))
    folder, alone = place / "mixed", place / "alone"
    folder.mkdir()
    alone.mkdir()
    write_among_good(damaged_photos(photos, RUNS), folder, alone)
    expected, listing = Listing(alone).rows, Listing(folder)
    with_values = sum(len([value for value in row.values() if value]) > 1
                      for name, row in listing.rows.items() if name not in expected)
    wrong = [name for name, row in expected.items() if listing.rows.get(name) != row]
    print(f"{RUNS} damaged photos: {with_values} with values, {len(listing.given_up())} given up, "
          f"status {listing.status}, {listing.seconds:.1f} s, {listing.peak / 1000:.0f} MB")
    print(f"{len(expected)} good photos between them: {len(wrong)} wrong {wrong[:9]}")
    for path in folder.iterdir():
        if path.name not in listing.given_up():
            path.unlink()
    for path in sorted(folder.iterdir()):
        print(f"{path}: {path.stat().st_size} bytes, {Listing(path).seconds:.1f} s alone")
    shutil.rmtree(place if not listing.given_up() else alone)


if __name__ == "__main__":
    if len(sys.argv) > 1 and os.path.isdir(sys.argv[-1]):
        report(sys.argv[1:])
    else:
        unittest.main()
