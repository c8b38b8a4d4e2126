#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs marquell-list and the tools that people use today in turn over the same tree and prints how
they compare. Every figure is the median of the runs; a ratio is the median of the ratios of runs
that came right after each other, so that a machine that slows down half-way does not decide.

    cmake --build --preset release && bench/compare.py
"""

import argparse
import os
import shutil
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

FILES_PER_FOLDER = 1000


def make_tree(root, files):
    """Folders of a thousand empty files each, with numbered names in no order."""
    for folder in range(max(1, files // FILES_PER_FOLDER)):
        path = root / f"Folder {folder}"
        path.mkdir()
        descriptor = os.open(path, os.O_RDONLY)
        for file in range(min(files, FILES_PER_FOLDER)):
            name = f"IMG_{(folder * 7919 + file * 31) % 10000}_{folder}-{file}.jpg"
            os.close(os.open(name, os.O_CREAT | os.O_WRONLY, 0o644, dir_fd=descriptor))
        os.close(descriptor)


def run(command):
    """Wall seconds and peak memory in MB (of the largest process) of a shell command."""
    begin = time.perf_counter()
    child = subprocess.Popen(["sh", "-c", command])
    _, status, usage = os.wait4(child.pid, 0)
    if status != 0:
        raise SystemExit(f"failed with status {status}: {command}")
    return time.perf_counter() - begin, usage.ru_maxrss / 1024


def compare(title, ours, theirs, runs):
    """Prints a row for each of the other commands, our run beside each of theirs."""
    run(ours)
    for name, command in theirs.items():
        run(command)
        pairs = [(run(ours), run(command)) for _ in range(runs)]
        our_time = statistics.median(our[0] for our, _ in pairs)
        their_time = statistics.median(their[0] for _, their in pairs)
        ratio = statistics.median(their[0] / our[0] for our, their in pairs)
        memory = max(our[1] for our, _ in pairs)
        print(f"| {title} | {name} | {our_time:.2f} s | {their_time:.2f} s | {ratio:.2f} | {memory:.0f} MB |")


def measure_start(program, runs):
    with tempfile.TemporaryDirectory() as empty:
        times = [run(f"exec {program} {empty}")[0] for _ in range(runs * 10)]
        baseline = [run("exec true")[0] for _ in range(runs * 10)]
    print(f"\nStart on an empty folder: {statistics.median(times) * 1000:.1f} ms "
          f"(`true` in the same way: {statistics.median(baseline) * 1000:.1f} ms)")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    default = Path(__file__).resolve().parent.parent / "build/release/bin/marquell-list"
    parser.add_argument("--program", type=Path, default=default)
    parser.add_argument("--files", type=int, default=1_000_000)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--folder", help="where the tree is made; default: the temporary folder")
    arguments = parser.parse_args()

    place = Path(tempfile.mkdtemp(prefix="marquell-bench-", dir=arguments.folder))
    try:
        tree = place / "tree"
        tree.mkdir()
        make_tree(tree, arguments.files)
        ours = f"exec {arguments.program} -s firstSortMode=0 -s secondSortMode=2"
        ours_to = f"-o {place}/ours.csv {tree}"
        names = f"""find {tree} -mindepth 1 -printf '"%f","%p"\\n'"""
        attributes = f"""find {tree} -mindepth 1 -printf """ \
            f"""'"%f","%p","%s","%BY-%Bm-%Bd","%TY-%Tm-%Td"\\n'"""
        print(f"{arguments.files} files, {arguments.runs} runs, {os.cpu_count()} cores\n")
        print("| list | other tool | marquell-list | other | other/ours | our peak memory |")
        print("|---|---|---|---|---|---|")
        compare("name, path", f"{ours} -c name,absolute_path {ours_to}", {
            "find \\| sort -V -f": f"{names} | sort -V -f > {place}/theirs.csv",
            "find \\| LC_ALL=C sort": f"{names} | LC_ALL=C sort > {place}/theirs.csv",
        }, arguments.runs)
        compare("name, path, size, dates",
                f"{ours} -c name,absolute_path,size_in_bytes,creation_date,modification_date "
                f"{ours_to}",
                {"find, unsorted": f"{attributes} > {place}/theirs.csv"}, arguments.runs)
        measure_start(arguments.program, arguments.runs)
    finally:
        shutil.rmtree(place)


if __name__ == "__main__":
    main()
