#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lays out the window of LayoutBench.cpp with kiwisolver as well, runs both in turn and prints how
they compare. kiwisolver is driven from Python, as Debian has it, and so pays for each of its calls
what a C++ program would not; it also needs a constraint for each length that is never below 0. The
times of building include those calls, the times of a resize go from the new size to having read
all values.

    cmake --build --preset release && bench/layout.py
"""

import argparse
import json
import statistics
import subprocess
import time
from pathlib import Path

import kiwisolver
from kiwisolver import strength

ROWS = 20
COLUMNS = 5
RESIZES = 2000

# kiwisolver adds weights up; here they are far enough apart for it to come to the same.
HIGH = strength.strong
WINDOW = strength.create(0, 100, 0)
LABEL_HUGGING = strength.medium
LOW = strength.weak


class View:
    def __init__(self):
        self.left, self.top, self.width, self.height = (kiwisolver.Variable() for _ in range(4))


class Window:
    def __init__(self):
        self.solver = kiwisolver.Solver()
        self.width = kiwisolver.Variable()
        self.height = kiwisolver.Variable()
        self.views = []
        self.count = 0
        self.keep_positive(self.width, self.height)
        above = None
        for row in range(ROWS):
            before = None
            for column in range(COLUMNS):
                view = self.add_view(row * COLUMNS + column)
                self.place(view, before, above)
                before = view
            self.add(self.width - before.left - before.width == 20)
            above = self.views[-COLUMNS]
            if row > 0:
                self.add(above.width == self.views[0].width)
        self.add(self.height - above.top - above.height >= 20)
        self.solver.addEditVariable(self.width, WINDOW)
        self.solver.addEditVariable(self.height, WINDOW)
        self.count += 2
        self.resize(800, 600)

    def keep_positive(self, *lengths):
        for length in lengths:
            self.solver.addConstraint(length >= 0)

    def add(self, constraint, weight=strength.required):
        self.solver.addConstraint(constraint | weight)
        self.count += 1

    def add_view(self, index):
        view = View()
        self.views.append(view)
        self.keep_positive(view.width, view.height)
        width = 40 + index * 7 % 60
        self.add(view.width >= width, HIGH)
        self.add(view.width <= width, LABEL_HUGGING if index % COLUMNS == 0 else LOW)
        self.add(view.height == 20 + index % 3, HIGH)
        return view

    def place(self, view, before, above):
        if before is None:
            self.add(view.left == 20)
        else:
            self.add(view.left - before.left - before.width == 8)
        if before is not None:
            self.add(view.top == before.top)
            self.add(view.top + view.height - self.height <= -20)
        elif above is None:
            self.add(view.top == 20)
        else:
            self.add(view.top - above.top - above.height >= 8)

    def resize(self, width, height):
        self.solver.suggestValue(self.width, width)
        self.solver.suggestValue(self.height, height)
        self.solver.updateVariables()

    def sum_of_values(self):
        return sum(view.left.value() + view.top.value() + view.width.value() + view.height.value()
                   for view in self.views)


def run_theirs():
    """Milliseconds to build, the microseconds of each resize, and how many constraints."""
    begin = time.perf_counter()
    window = Window()
    window.sum_of_values()
    build = (time.perf_counter() - begin) * 1e3
    times = []
    step = 1
    for _ in range(RESIZES):
        step = step * 48271 % 2147483647
        begin = time.perf_counter()
        window.resize(300 + step * 3 % 1700, 200 + step % 1200)
        window.sum_of_values()
        times.append((time.perf_counter() - begin) * 1e6)
    return build, times, window.count


def run_ours(program):
    output = subprocess.run(
        [program, "--benchmark_filter=layoutBuild|layoutResize/drag:0", "--benchmark_format=json"],
        check=True, capture_output=True, text=True).stdout
    build, resize = json.loads(output)["benchmarks"]
    return build["real_time"], resize, int(build["constraints"])


def print_row(title, unit, ours, theirs):
    ratio = statistics.median(their / our for our, their in zip(ours, theirs))
    print(f"| {title} | {statistics.median(ours):.3g} {unit} | {statistics.median(theirs):.3g} {unit} "
          f"| {ratio:.1f} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    default = Path(__file__).resolve().parent.parent / "build/release/bin/marquell_layout_bench"
    parser.add_argument("--program", type=Path, default=default)
    parser.add_argument("--runs", type=int, default=5)
    arguments = parser.parse_args()

    runs = [(run_ours(arguments.program), run_theirs()) for _ in range(arguments.runs)]
    (_, _, our_count), (_, _, their_count) = runs[0]
    if our_count != their_count:
        raise SystemExit(f"not the same layout: {our_count} and {their_count} constraints")
    print(f"{ROWS * COLUMNS} views, {our_count} constraints, {arguments.runs} runs\n")
    print("| what | ours | kiwisolver, driven from Python | other/ours |")
    print("|---|---|---|---|")
    print_row("build", "ms", [ours[0] for ours, _ in runs], [theirs[0] for _, theirs in runs])
    print_row("resize, median", "us", [ours[1]["median"] for ours, _ in runs],
              [statistics.median(theirs[1]) for _, theirs in runs])
    print_row("resize, p99", "us", [ours[1]["p99"] for ours, _ in runs],
              [statistics.quantiles(theirs[1], n=100)[-1] for _, theirs in runs])


if __name__ == "__main__":
    main()
