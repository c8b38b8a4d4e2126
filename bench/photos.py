#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs marquell-list and exiftool in turn over the same photos for twelve EXIF and GPS fields and
prints how they compare, in the manner of compare.py. The photos were just written, so none is read
from disk. The memory is that of the program without its helpers. With --in-process FILE, which is
the built marquell_read_in_process, it also prints what a photo costs with and without helpers.

    cmake --build --preset release && bench/photos.py
"""

import argparse
import ctypes
import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

from compare import compare

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/support"))
import photo_bytes  # noqa: E402

COLUMNS = {
    "exif_make": "Make", "exif_model": "Model", "exif_date_time_original": "DateTimeOriginal",
    "exif_exposure_time": "ExposureTime", "exif_f_number": "FNumber",
    "exif_iso_speed_ratings": "ISO", "exif_focal_length": "FocalLength",
    "exif_lens_model": "LensModel", "exif_flash": "Flash", "gps_latitude": "GPSLatitude",
    "gps_longitude": "GPSLongitude", "gps_altitude": "GPSAltitude"}
READ, UNREAD = f"-c absolute_path,{','.join(COLUMNS)}", "-c absolute_path"
PR_SET_CHILD_SUBREAPER = 36
MAKER_NOTE = (photo_bytes.OPAQUE, bytes(range(256)) * 8)
PACKET_SIZE = 3000
PROFILE_SIZE = 3000
IMAGE_SIZE = 200_000


def photo(number):
    """What a camera writes, with as much beside the fields."""
    entries = photo_bytes.entries_of(number)
    kind, exif = entries[0x8769]
    entries[0x8769] = (kind, {**exif, 0x927C: MAKER_NOTE})
    xmp = photo_bytes.packet(b"<photoshop:Headline>Headline</photoshop:Headline>", PACKET_SIZE)
    profile = photo_bytes.profile()
    profile += bytes(PROFILE_SIZE - len(profile))
    return photo_bytes.jpeg(
        photo_bytes.exif_segment(photo_bytes.tiff(entries)), photo_bytes.xmp_segment(xmp),
        photo_bytes.profile_segment(profile), image=b"\x55" * IMAGE_SIZE)


def make_photos(folder, count, original):
    """Made ones, or copies of the given one."""
    for number in range(count):
        content = photo(number) if original is None else original.read_bytes()
        (folder / f"IMG_{number:05}.jpg").write_bytes(content)


def cpu_time(command):
    """Seconds, with those of helpers that outlive the program by a moment."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, shell=True, check=True, stdout=subprocess.DEVNULL)
    try:
        while True:
            os.wait()
    except ChildProcessError:
        pass
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def measure_isolation(ours, folder, in_process, count, runs):
    """Prints the CPU time for a photo: read by a process for that purpose, and by the same readers
    in a plain loop. The former has the walk and the list's text in it, so that is taken off."""
    if ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
        raise SystemExit("the time of helpers can't be had here")
    loop = f"find {folder} -type f -print0 | xargs -0 {in_process}"
    rows = [(cpu_time(f"{ours} {READ}"), cpu_time(f"{ours} {UNREAD}"), cpu_time(loop))
            for _ in range(runs)]
    listed, unread, looped = (statistics.median(column) * 1e6 / count for column in zip(*rows))
    print(f"CPU time for a photo: {listed - unread:.0f} µs in helpers ({listed:.0f} µs with the "
          f"list's other work), {looped:.0f} µs in a plain loop")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    default = Path(__file__).resolve().parent.parent / "build/release/bin/marquell-list"
    parser.add_argument("--program", type=Path, default=default)
    parser.add_argument("--in-process", type=Path)
    parser.add_argument("--photos", type=int, default=1000)
    parser.add_argument("--photo", type=Path, help="list copies of this one")
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--folder", help="where they are made; default: the temporary folder")
    arguments = parser.parse_args()

    place = Path(tempfile.mkdtemp(prefix="marquell-bench-", dir=arguments.folder))
    try:
        photos = place / "photos"
        photos.mkdir()
        make_photos(photos, arguments.photos, arguments.photo)
        print(f"{arguments.photos} photos, {arguments.runs} runs, {os.cpu_count()} cores\n")
        print("| list | other tool | marquell-list | other | other/ours | our peak memory |")
        print("|---|---|---|---|---|---|")
        ours = f"exec {arguments.program} -q -o {place}/ours.csv {photos}"
        tags = " ".join(f"-{tag}" for tag in COLUMNS.values())
        compare(f"{len(COLUMNS)} fields of photos", f"{ours} {READ}",
                {"exiftool": f"exec exiftool -q -csv -r {tags} {photos} > {place}/theirs.csv",
                 "exiftool -fast2":
                     f"exec exiftool -q -fast2 -csv -r {tags} {photos} > {place}/theirs.csv"},
                arguments.runs)
        if arguments.in_process:
            print()
            measure_isolation(ours, photos, arguments.in_process, arguments.photos,
                              arguments.runs)
    finally:
        shutil.rmtree(place)


if __name__ == "__main__":
    main()
