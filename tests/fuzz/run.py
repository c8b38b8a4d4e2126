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
        if not any(word in text for word in ("Exiv2", "ExifReader.h", "InputIo.h")):
            yield source


def document_sources():
    return [*sources_of("common", "documents"), ROOT / "src/helpers/sound/TagDate.cpp"]


# Name -> sources, libraries, seeds.
FUZZERS = {
    "image_header": ([*header_sources()], ["-llcms2"], IMAGES),
    "image": (sources_of("common", "image"), ["-lexiv2", "-llcms2"], IMAGES),
    "id3": (sources_of("common", "sound"), ["-lz"], ID3_TAGS),
    "sound": (sources_of("common", "sound"), ["-lz"], SOUND_FILES),
    "reply": ([ROOT / "src/platform/PropertyDictionary.cpp", ROOT / "src/platform/Utf8.cpp"],
              [], REPLIES),
    "package": (document_sources(), ["-lpugixml", "-lz"], PACKAGES),
    "web_page": (document_sources(), ["-lpugixml", "-lz"], WEB_PAGES),
    "message": (document_sources(), ["-lpugixml", "-lz"], MESSAGES),
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
