#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs clang-tidy over every source of src/, as many at a time as there are cores.

    scripts/tidy.py BUILD_DIR

BUILD_DIR is a Ninja build folder that has been built: its record of what each object was made
from says when a source has to be judged again. A source that passed is remembered by the content
of everything it includes, the compile command, the configuration and the version of clang-tidy.

Nearly all the time goes into the headers of libraries, so sources with the same flags are judged
several at a time, as one that includes them all. Those that cannot stand together, for each has a
private function of the same name, are put apart.
"""

import hashlib
import json
import os
import shlex
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from functools import lru_cache
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CACHE = ROOT / "build" / "tidy-cache"
TIDY = "clang-tidy"
# The warnings asked of g++ are unknown to clang by name. Names hide others only within a batch; g++
# looks at each source. A quarter of the analyzer's usual effort for a function halves the time; what
# it found here it finds with that, too.
CLANG_ARGUMENTS = ["-Wno-unknown-warning-option", "-Wno-shadow",
                   "-Xclang", "-analyzer-config", "-Xclang", "max-nodes=60000"]
# A batch includes sources, which is what the check left out is about.
ARGUMENTS = ["--quiet", "--checks=-bugprone-suspicious-include",
             *(f"--extra-arg={argument}" for argument in CLANG_ARGUMENTS)]
BATCH = 20


@lru_cache(maxsize=None)
def content_hash(path):
    return hashlib.sha256(Path(path).read_bytes()).digest()


def dependencies(build):
    """The files that went into each object of the build, by the object's name."""
    text = subprocess.run(["ninja", "-C", build, "-t", "deps"], check=True, text=True,
                          capture_output=True).stdout
    result = {}
    for block in text.split("\n\n"):
        head, _, files = block.strip().partition("\n")
        if "(VALID)" in head:
            result[head.split(":", 1)[0]] = [line.strip() for line in files.splitlines()]
    return result


def object_of(entry):
    words = shlex.split(entry["command"])
    return words[words.index("-o") + 1]


def key_of(entry, files, common):
    digest = hashlib.sha256(common)
    digest.update(entry["command"].encode())
    for file in sorted(files):
        path = os.path.join(entry["directory"], file)
        digest.update(path.encode() + b"\0" + content_hash(path))
    return digest.hexdigest()


def flags_of(entry):
    """The compile command without the compiler, the source and where the object goes."""
    words = shlex.split(entry["command"])
    while os.path.basename(words[0]) in ("ccache", "c++", "g++"):
        words.pop(0)
    drop = {words.index("-o"), words.index("-o") + 1, words.index("-c"), words.index("-c") + 1}
    return tuple(word for at, word in enumerate(words) if at not in drop)


def batches(jobs):
    """The jobs in lists that share their flags, none longer than BATCH."""
    groups = {}
    for job in sorted(jobs, key=lambda job: job[0]["file"]):
        groups.setdefault(flags_of(job[0]), []).append(job)
    for group in groups.values():
        for start in range(0, len(group), BATCH):
            yield group[start:start + BATCH]


def stands(source, flags):
    command = ["clang", "-x", "c++", "-fsyntax-only", "-w", *flags, source]
    return subprocess.run(command, stderr=subprocess.DEVNULL).returncode == 0


def judge(batch):
    """Runs clang-tidy on some sources; the text of its complaints, empty if it has none."""
    flags = flags_of(batch[0][0])
    with tempfile.NamedTemporaryFile("w", suffix=".cpp", prefix="batch-") as source:
        source.writelines(f'#include "{entry["file"]}"\n' for entry, _ in batch)
        source.flush()
        if len(batch) > 1 and not stands(source.name, flags):
            half = len(batch) // 2
            return judge(batch[:half]) + judge(batch[half:])
        done = subprocess.run([TIDY, *ARGUMENTS, f"--config-file={ROOT / '.clang-tidy'}",
                               source.name, "--", *flags],
                              text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode != 0:
        return done.stdout + done.stderr
    for _, marker in batch:
        if marker:
            marker.touch()
    return ""


def main():
    build = sys.argv[1]
    database = json.loads(Path(build, "compile_commands.json").read_text())
    entries = [e for e in database if Path(e["file"]).is_relative_to(ROOT / "src")]
    if not entries:
        sys.exit(f"tidy: {build}/compile_commands.json names no source of {ROOT}/src")

    version = subprocess.run([TIDY, "--version"], check=True, capture_output=True).stdout
    common = version + "\0".join(ARGUMENTS).encode() + (ROOT / ".clang-tidy").read_bytes()
    known = dependencies(build)
    CACHE.mkdir(parents=True, exist_ok=True)
    jobs, used = [], set()
    for entry in entries:
        files = known.get(object_of(entry))
        marker = CACHE / key_of(entry, files, common) if files else None
        if marker and marker.exists():
            used.add(marker.name)
        else:
            jobs.append((entry, marker))

    failed = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for complaint in pool.map(judge, batches(jobs)):
            if complaint:
                failed += 1
                print(complaint, flush=True)
    used.update(marker.name for _, marker in jobs if marker)
    for old in CACHE.iterdir():
        if old.name not in used:
            old.unlink()
    print(f"clang-tidy: {len(entries)} sources, {len(jobs)} judged anew, {failed} batches with complaints")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
