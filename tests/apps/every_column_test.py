# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that each column has a value for some file, and each kind of file for some column.

Environment: MARQUELL_LIST is the program.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from image_values_test import PROGRAM, WRITTEN, our_values, small_jpeg

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))
import document_bytes  # noqa: E402
import id3_bytes  # noqa: E402
import pdf_bytes  # noqa: E402
import photo_bytes  # noqa: E402
import sound_bytes  # noqa: E402

# No column shows it.
STORED_ONLY = "layernames"

# The years of what some files hold; others have the dates of the file.
YEARS = {"photo.jpg": ("2024", "2024"), "film.mp4": ("2021", "2021"), "made.pdf": ("2022", "2023"),
         "made.docx": ("2024", "2024")}

ATTRIBUTES = {"user.xdg.comment": "findercomment", "user.xdg.tags": "tags",
              "user.xdg.origin.url": "wherefroms"}
OF_BIRTH = ("dateadded", "downloadDate")


def all_columns():
    done = subprocess.run([PROGRAM, "--list-columns"], capture_output=True, check=True, timeout=60)
    columns = [line.split("\t")[0] for line in done.stdout.decode().splitlines()[1:]]
    return [column for column in columns if column != STORED_ONLY]


def noted_photo():
    """Has the two fields that hold a text only by way of exception."""
    entries = photo_bytes.entries_of(1)
    entries[0x8769][1].update({0x927C: (photo_bytes.OPAQUE, b"A note of the maker"),
                               0xA40B: (photo_bytes.OPAQUE, b"Settings of the device")})
    return photo_bytes.jpeg(photo_bytes.exif_segment(photo_bytes.tiff(entries)),
                            photo_bytes.xmp_segment(photo_bytes.packet_of(1)))


def contents():
    """Name and bytes of a file of each kind; each has a title or a headline."""
    for extension, make in photo_bytes.PHOTOS.items():
        yield f"photo.{extension}", make(1)
    yield "noted.jpg", noted_photo()
    for version in (2, 3, 4):
        tag, _ = id3_bytes.full_tag(version)
        yield f"{version}.mp3", tag + 40 * (b"\xff\xfb\x90\0" + bytes(413))
    for extension, make in {**sound_bytes.FILES, **document_bytes.DOCUMENTS}.items():
        yield f"made.{extension}", make(1)[0]
    yield "made.pdf", pdf_bytes.pdf({"Title": "A title", "CreationDate": "D:20220506120000Z",
                                     "ModDate": "D:20230506120000Z"})


class EveryColumnTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="marquell-")).resolve()
        self.addCleanup(shutil.rmtree, self.folder)

    def write_tagged(self):
        """What other programs write."""
        photo = self.folder / "full.jpg"
        photo.write_bytes(small_jpeg())
        subprocess.run(["exiftool", "-q", "-q", "-n", "-m", "-overwrite_original", "-charset",
                        "iptc=UTF8", "-IPTC:CodedCharacterSet=UTF8", *(
                            f"-{tag}".replace("_", " ") for tag in WRITTEN), photo], check=True)
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=s=64x48:r=25:d=1",
                        "-f", "lavfi", "-i", "sine=d=1", "-c:v", "mpeg4", "-c:a", "aac",
                        "-metadata", "title=A film", "-metadata",
                        "creation_time=2021-06-17T12:00:00Z", self.folder / "film.mp4"], check=True)

    def attributes_are_set(self):
        try:
            for name, value in zip(ATTRIBUTES, (b"Mine", b"red,blue", b"http://a.example/")):
                os.setxattr(self.folder / "made.pdf", name, value)
        except OSError:
            return False
        return True

    def has_birth_time(self):
        return subprocess.check_output(["stat", "-c", "%W", self.folder / "made.pdf"]) > b"0\n"

    def test_each_column_has_a_value(self):
        for name, content in contents():
            folder = self.folder / ("inner" if name.endswith(".eml") else ".")
            folder.mkdir(exist_ok=True)
            (folder / name).write_bytes(content)
        self.write_tagged()
        excused = set()
        if not self.attributes_are_set():
            excused |= {*ATTRIBUTES.values(), "downloadDate"}
            print("not looked at, without extended attributes:", sorted(excused), file=sys.stderr)
        if not self.has_birth_time():
            excused |= set(OF_BIRTH)
            print("not looked at, without times of birth:", OF_BIRTH, file=sys.stderr)
        columns = all_columns()
        rows = our_values([str(self.folder)], columns).values()
        self.assertEqual([column for column in columns if column not in excused
                          and not any(row.get(column) for row in rows)], [])
        self.assertEqual({row["name"]: (row["contentcreationdate"][:4],
                                        row["contentmodificationdate"][:4])
                          for row in rows if row["name"] in YEARS}, YEARS)
        self.assertEqual([row["name"] for row in rows
                          if not row["title"] and not row["headline"] and row["extension"]], [])


if __name__ == "__main__":
    unittest.main()
