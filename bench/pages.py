#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how long a page of the preview table waits for 12 columns of EXIF and GPS: over photos
in folders of a thousand, each read anew, and next to it what exiftool needs for as many photos as a
page has.

    pages.py [--build build/release] [--photos 10000]
"""

import argparse
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

from photos import COLUMNS, make_photos

ROOT = Path(__file__).resolve().parent.parent
PAGE = 38  # rows of a window of 1920 by 1080 with its info pane, about


def make_folders(place, count):
    """A thousand photos that differ, and links to them: another path is another photo."""
    first = place / "0"
    first.mkdir()
    make_photos(first, min(count, 1000), None)
    for number in range(1, count // 1000):
        folder = place / str(number)
        folder.mkdir()
        for photo in first.iterdir():
            os.link(photo, folder / photo.name)


def exiftool_time(folder):
    photos = sorted(folder.iterdir())[:PAGE]
    begin = time.monotonic()
    subprocess.run(["exiftool", "-q", "-csv", *[f"-{tag}" for tag in COLUMNS.values()], *photos],
                   check=True, stdout=subprocess.DEVNULL)
    return (time.monotonic() - begin) * 1000


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=ROOT / "build/release")
    parser.add_argument("--photos", type=int, default=10_000)
    arguments = parser.parse_args()
    place = Path(tempfile.mkdtemp(prefix="marquell-bench-"))
    try:
        make_folders(place, arguments.photos)
        subprocess.run([arguments.build / "bin/marquell_pages_bench", place, "name", *COLUMNS],
                       env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, check=True)
        times = sorted(exiftool_time(place / "0") for _ in range(5))
        print(f"| {PAGE} photos by exiftool | 5 | {times[2]:.1f} ms | {times[-1]:.1f} ms |")
    finally:
        shutil.rmtree(place)


if __name__ == "__main__":
    main()
