#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs marquell-list and rhash in turn over the same 2 GB of files for their digests and prints how
they compare, in the manner of compare.py. The files were just written, so none is read from disk.

    cmake --build --preset release && bench/hashes.py
"""

import argparse
import os
import shutil
import tempfile
from pathlib import Path

from compare import compare

FILES = 40
FILE_SIZE = 50_000_000
STEP = 1_237_001
LISTS = (["md5", "sha1", "sha256", "sha384", "sha512"], ["sha256"])


def make_files(root):
    """Random bytes are slow to make, so all files have the same ones, each turned further."""
    block = memoryview(os.urandom(FILE_SIZE))
    for file in range(FILES):
        begin = file * STEP % FILE_SIZE
        with open(root / f"file {file}", "wb") as output:
            output.write(block[begin:])
            output.write(block[:begin])


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    default = Path(__file__).resolve().parent.parent / "build/release/bin/marquell-list"
    parser.add_argument("--program", type=Path, default=default)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--folder", help="where the files are made; default: the temporary folder")
    arguments = parser.parse_args()

    place = Path(tempfile.mkdtemp(prefix="marquell-bench-", dir=arguments.folder))
    try:
        files = place / "files"
        files.mkdir()
        make_files(files)
        print(f"{FILES} files of {FILE_SIZE // 1_000_000} MB, {arguments.runs} runs, "
              f"{os.cpu_count()} cores\n")
        print("| list | other tool | marquell-list | other | other/ours | our peak memory |")
        print("|---|---|---|---|---|---|")
        for digests in LISTS:
            options = " ".join(f"--{name}" for name in digests)
            compare(", ".join(digests),
                    f"exec {arguments.program} -c name,{','.join(digests)} "
                    f"-o {place}/ours.csv {files}",
                    {"rhash": f"exec rhash {options} -r {files} > {place}/theirs.txt"},
                    arguments.runs)
    finally:
        shutil.rmtree(place)


if __name__ == "__main__":
    main()
