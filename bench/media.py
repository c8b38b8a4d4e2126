#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs marquell-list, mediainfo and exiftool in turn over the same sound and video files for title,
artist, album, duration, codecs and bit rates, and prints how they compare, in the manner of
compare.py. The files are copies of ten seconds of a tone and a test picture as ffmpeg makes them, of
each kind as many; they were just written, so none is read from disk.

    cmake --build --preset release && bench/media.py
"""

import argparse
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from compare import compare

COLUMNS = "absolute_path,title,authors,album,duration,codecs,totalbitrate,audiobitrate,videobitrate"
TAGS = "-Title -Artist -Album -Duration -AudioFormat -CompressorID -AvgBitrate -AudioBitrate"
SOUND = {"mp3": "-c:a libmp3lame", "m4a": "-c:a aac", "flac": "", "wav": "", "aiff": "",
         "ogg": "-c:a libvorbis", "opus": "-c:a libopus"}
VIDEO = {"mp4": "-c:v libx264 -c:a aac", "mov": "-c:v libx264 -c:a aac",
         "mkv": "-c:v libx264 -c:a aac", "avi": "-c:v mpeg4 -c:a libmp3lame",
         "mpg": "-c:v mpeg2video -c:a mp2"}
PICTURE = "-f lavfi -i testsrc=size=320x240:rate=25:duration=10"
TONE = "-f lavfi -i sine=frequency=440:sample_rate=44100:duration=10"


def make_sample(folder, kind):
    codecs = SOUND.get(kind, VIDEO.get(kind))
    inputs = TONE if kind in SOUND else f"{PICTURE} {TONE}"
    sample = folder / f"sample.{kind}"
    command = f"ffmpeg -v error {inputs} {codecs} -metadata title=Title -metadata artist=Artist " \
        f"-metadata album=Album {sample}"
    subprocess.run(command.split(), check=True, stdin=subprocess.DEVNULL)
    return sample.read_bytes()


def make_files(place, folder, count, kinds):
    samples = {kind: make_sample(place, kind) for kind in kinds}
    for number in range(count):
        kind = kinds[number % len(kinds)]
        (folder / f"{number:05}.{kind}").write_bytes(samples[kind])


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    default = Path(__file__).resolve().parent.parent / "build/release/bin/marquell-list"
    parser.add_argument("--program", type=Path, default=default)
    parser.add_argument("--files", type=int, default=1000)
    parser.add_argument("--kinds", default=",".join([*SOUND, *VIDEO]))
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--folder", help="where they are made; default: the temporary folder")
    arguments = parser.parse_args()

    place = Path(tempfile.mkdtemp(prefix="marquell-bench-", dir=arguments.folder))
    try:
        files = place / "files"
        files.mkdir()
        kinds = arguments.kinds.split(",")
        make_files(place, files, arguments.files, kinds)
        print(f"{arguments.files} files ({', '.join(kinds)}), {arguments.runs} runs, "
              f"{os.cpu_count()} cores\n")
        print("| list | other tool | marquell-list | other | other/ours | our peak memory |")
        print("|---|---|---|---|---|---|")
        compare("streams and tags",
                f"exec {arguments.program} -q -o {place}/ours.csv -c {COLUMNS} {files}",
                {"mediainfo": f"exec mediainfo --Output=JSON {files} > {place}/theirs.json",
                 "exiftool": f"exec exiftool -q -csv -r {TAGS} {files} > {place}/theirs.csv"},
                arguments.runs)
    finally:
        shutil.rmtree(place)


if __name__ == "__main__":
    main()
