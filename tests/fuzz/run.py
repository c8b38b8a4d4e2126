#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Throws made-up bytes at what reads untrusted ones, under the sanitizers.

    tests/fuzz/run.py [SECONDS]

Builds the fuzzers into build/fuzz and runs each for SECONDS (default: 60) from a fixed seed, as many
at a time as there are cores. Fails if one finds a fault; the input that shows it is kept and named.
What was found on the way to new code is kept in build/fuzz/NAME-corpus and used again.
"""

import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from seeds import ID3_TAGS, IMAGES, MESSAGES, PACKAGES, REPLIES, SOUND_FILES, WEB_PAGES, WORDS

ROOT = Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build" / "fuzz"
FLAGS = ["-std=c++20", "-O1", "-g", "-fsanitize=fuzzer,address,undefined",
         "-fno-sanitize-recover=all", f"-I{ROOT}/src"]


def sources_of(*folders):
    """The readers in folders of src/helpers, with what all readers use of the platform."""
    found = [ROOT / f"src/platform/{name}.cpp"
             for name in ("NumberText", "PropertyDictionary", "Utf8")]
    for folder in folders:
        found += sorted((ROOT / "src/helpers" / folder).glob("*.cpp"))
    return found


def header_sources():
    """The readers that do without Exiv2: they are far faster, and so get far more inputs."""
    for source in sources_of("common", "image"):
        text = source.read_text()
        if not any(word in text for word in ("Exiv2", "ExifReader.h", "ExifValue.h", "InputIo.h",
                                           "XmpValues.h")):
            yield source


DOCUMENTS = sources_of("common", "documents")
SOUND = sources_of("common", "sound")

# Name -> sources, libraries, seeds.
FUZZERS = {
    "image_header": ([*header_sources(), *DOCUMENTS], ["-llcms2", "-lpugixml", "-lz"], IMAGES),
    "image": (sources_of("common", "image", "documents"),
              ["-lexiv2", "-llcms2", "-lpugixml", "-lz"], IMAGES),
    "id3": (SOUND, ["-lz"], ID3_TAGS),
    "sound": (SOUND, ["-lz"], SOUND_FILES),
    "reply": ([ROOT / "src/platform/PropertyDictionary.cpp", ROOT / "src/platform/Utf8.cpp"],
              [], REPLIES),
    "package": (DOCUMENTS, ["-lpugixml", "-lz"], PACKAGES),
    "web_page": (DOCUMENTS, ["-lpugixml", "-lz"], WEB_PAGES),
    "message": (DOCUMENTS, ["-lpugixml", "-lz"], MESSAGES),
}


def compile_source(source):
    """The object of a source; several fuzzers share it."""
    object_file = BUILD / "objects" / f"{source.relative_to(ROOT)}.o".replace("/", "-")
    subprocess.run(["ccache", "clang++", *FLAGS, "-c", source, "-o", object_file], check=True)
    return object_file


def build_all():
    """The fuzzers' programs by name."""
    (BUILD / "objects").mkdir(parents=True, exist_ok=True)
    wanted = {name: [ROOT / f"tests/fuzz/{name}_fuzzer.cpp", *sources]
              for name, (sources, _, _) in FUZZERS.items()}
    sources = sorted({source for of_one in wanted.values() for source in of_one})
    with ThreadPoolExecutor(os.cpu_count()) as compilers:
        objects = dict(zip(sources, compilers.map(compile_source, sources)))
    programs = {}
    for name, (_, libraries, _) in FUZZERS.items():
        programs[name] = BUILD / name
        subprocess.run(["clang++", *FLAGS, *{objects[source] for source in wanted[name]},
                        *libraries, "-o", programs[name]], check=True)
    return programs


def run(program, name, seeds, seconds):
    """Whether the fuzzer came to its end without a finding."""
    corpus = BUILD / f"{name}-corpus"
    corpus.mkdir(exist_ok=True)
    for number, seed in enumerate(seeds):
        (corpus / f"seed-{number}").write_bytes(seed)
    findings = BUILD / f"{name}-"
    result = subprocess.run([program, f"-max_total_time={seconds}", "-seed=1", "-max_len=8192",
                             "-timeout=5", "-rss_limit_mb=1024", f"-dict={BUILD / 'words'}",
                             "-verbosity=0", "-print_final_stats=1",
                             f"-artifact_prefix={findings}", corpus])
    if result.returncode != 0:
        print(f"{name}: a finding, kept where the line of artifact_prefix says", file=sys.stderr)
    return result.returncode == 0


def main():
    seconds = int(sys.argv[1]) if len(sys.argv) > 1 else 60
    programs = build_all()
    # Written once: they run several at a time.
    (BUILD / "words").write_text("".join(f'"{word}"\n' for word in WORDS))
    with ThreadPoolExecutor(os.cpu_count()) as runs:
        results = list(runs.map(lambda name: run(programs[name], name, FUZZERS[name][2], seconds),
                                FUZZERS))
    sys.exit(0 if all(results) else 1)


if __name__ == "__main__":
    main()
