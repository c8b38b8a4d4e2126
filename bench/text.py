#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Finds the lines of a large text and a word in it as the preview does, beside what wc and grep do
with the same file in the same run, and checks that they count the same. The preview has its text in
memory; the tools have to start and to read theirs from the system's cache. Then prints how long the
main thread is at work when another program pastes, and when it paints pages of all kinds.

    cmake --build --preset release && bench/text.py
"""

import argparse
import os
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WORD = "Needle"


def make_text(path, size):
    """A list of files; some names aren't ASCII, and one of a thousand has the word."""
    written = 0
    with open(path, "w", encoding="utf-8", newline="") as file:
        row = 0
        while written < size:
            name = f"{WORD} {row}.jpg" if row % 1000 == 7 else f"IMG_{row * 31 % 10000}-{row}.jpg"
            if row % 8 == 0:
                name = f"Grüße {row}.jpg"
            line = f'"{name}","/home/user/Pictures/Folder {row // 1000}","{row * 7919 % 9999999}"\n'
            file.write(line)
            written += len(line.encode())
            row += 1


def run_ours(program, text):
    """The steps by name, as lists of (milliseconds, of them at work, count)."""
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    output = subprocess.check_output([program, text, WORD], env=environment, text=True)
    steps = {}
    for line in output.splitlines():
        name, *figures = line.split("\t")
        steps.setdefault(name, []).append(tuple(float(figure) for figure in figures))
    return steps


def run_theirs(command, text, locale):
    """Milliseconds and what the tool counts."""
    begin = time.perf_counter()
    with open(text, "rb") as file:
        output = subprocess.check_output(command, stdin=file, env={**os.environ, "LC_ALL": locale})
    return (time.perf_counter() - begin) * 1000, int(output)


COMPARED = {
    # Our step, their command and its locale, and what we count beyond them: the empty last line.
    "lines": ("lines", ["wc", "-l"], "C", 1),
    "find": ("find", ["grep", "-c", "-F", WORD], "C", 0),
    "find, UTF-8": ("find", ["grep", "-c", "-F", WORD], "C.UTF-8", 0),
    "find in any case, UTF-8": ("find in any case", ["grep", "-c", "-F", "-i", WORD], "C.UTF-8", 0),
}


def print_compared(runs, theirs):
    print("| what | other tool | ours | other | other/ours |\n|---|---|---|---|---|")
    for name, (step, command, locale, more) in COMPARED.items():
        ours = [run[step][0][0] for run in runs]
        for run, (_, count) in zip(runs, theirs[name]):
            if run[step][0][2] != count + more:
                raise SystemExit(f"{name}: we count {run[step][0][2]:.0f}, they count {count}")
        others = [milliseconds for milliseconds, _ in theirs[name]]
        ratio = statistics.median(other / our for our, other in zip(ours, others))
        print(f"| {name} | LC_ALL={locale} {' '.join(command)} | {statistics.median(ours):.0f} ms "
              f"| {statistics.median(others):.0f} ms | {ratio:.2f} |")


def print_main_thread(runs):
    print("\n| what the main thread does | median at work | longest at work |\n|---|---|---|")
    for name in runs[0]:
        if name == "paste" or name.startswith("page"):
            times = [work for run in runs for _, work, _ in run[name]]
            print(f"| {name} | {statistics.median(times):.1f} ms | {max(times):.1f} ms |")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", type=Path,
                        default=ROOT / "build/release/bin/marquell_text_bench")
    parser.add_argument("--size", type=int, default=100_000_000)
    parser.add_argument("--runs", type=int, default=5)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        text = Path(folder) / "text.csv"
        make_text(text, arguments.size)
        runs = []
        theirs = {name: [] for name in COMPARED}
        for _ in range(arguments.runs):
            runs.append(run_ours(arguments.program, text))
            for name, (_, command, locale, _) in COMPARED.items():
                theirs[name].append(run_theirs(command, text, locale))
    print(f"{arguments.size / 1e6:.0f} MB, {arguments.runs} runs, {os.cpu_count()} cores\n")
    print_compared(runs, theirs)
    print_main_thread(runs)


if __name__ == "__main__":
    main()
