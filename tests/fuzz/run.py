#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Throws made-up bytes at what reads untrusted ones, under the sanitizers.

    tests/fuzz/run.py [SECONDS]

Builds the fuzzers into build/fuzz and runs each for SECONDS (default: 60) from a fixed seed. Fails
if one finds a fault; the input that shows it is kept and named. What was found on the way to new
code is kept in build/fuzz/NAME-corpus and used again.
"""

import subprocess
import sys
from pathlib import Path

from seeds import IMAGES, REPLIES, WORDS

ROOT = Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build" / "fuzz"
FLAGS = ["-std=c++20", "-O1", "-g", "-fsanitize=fuzzer,address,undefined",
         "-fno-sanitize-recover=all", f"-I{ROOT}/src"]


def header_sources():
    """The readers that do without Exiv2: they are far faster, and so get far more inputs."""
    for source in sorted((ROOT / "src/helpers/image").glob("*.cpp")):
        text = source.read_text()
        if not any(word in text for word in ("Exiv2", "ExifReader.h", "InputIo.h")):
            yield source


# Name -> sources, libraries, seeds.
FUZZERS = {
    "image_header": ([*header_sources(), ROOT / "src/platform/Utf8.cpp",
                      ROOT / "src/platform/NumberText.cpp"], ["-llcms2"], IMAGES),
    "image": ([*sorted((ROOT / "src/helpers/image").glob("*.cpp")), ROOT / "src/platform/Utf8.cpp",
               ROOT / "src/platform/NumberText.cpp", ROOT / "src/platform/PropertyDictionary.cpp"],
              ["-lexiv2", "-llcms2"], IMAGES),
    "reply": ([ROOT / "src/platform/PropertyDictionary.cpp", ROOT / "src/platform/Utf8.cpp"],
              [], REPLIES),
}


def build(name, sources, libraries):
    program = BUILD / name
    subprocess.run(["clang++", *FLAGS, ROOT / f"tests/fuzz/{name}_fuzzer.cpp", *sources,
                    *libraries, "-o", program], check=True)
    return program


def run(program, name, seeds, seconds):
    """Whether the fuzzer came to its end without a finding."""
    corpus = BUILD / f"{name}-corpus"
    corpus.mkdir(exist_ok=True)
    for number, seed in enumerate(seeds):
        (corpus / f"seed-{number}").write_bytes(seed)
    words = BUILD / "words"
    words.write_text("".join(f'"{word}"\n' for word in WORDS))
    findings = BUILD / f"{name}-"
    result = subprocess.run([program, f"-max_total_time={seconds}", "-seed=1", "-max_len=8192",
                             "-timeout=5", "-rss_limit_mb=1024", f"-dict={words}",
                             "-verbosity=0", "-print_final_stats=1",
                             f"-artifact_prefix={findings}", corpus])
    if result.returncode != 0:
        print(f"{name}: a finding, kept where the line of artifact_prefix says", file=sys.stderr)
    return result.returncode == 0


def main():
    seconds = int(sys.argv[1]) if len(sys.argv) > 1 else 60
    BUILD.mkdir(parents=True, exist_ok=True)
    programs = {name: build(name, sources, libraries)
                for name, (sources, libraries, _) in FUZZERS.items()}
    results = [run(programs[name], name, seeds, seconds)
               for name, (_, _, seeds) in FUZZERS.items()]
    sys.exit(0 if all(results) else 1)


if __name__ == "__main__":
    main()
