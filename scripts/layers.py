#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The layer check: refuses an #include that goes against the layers of src/.

    scripts/layers.py [ROOT]

Judges every header and source below ROOT/src (default: this checkout). A new folder, a new
dependency between folders and a new library each need a row here first.
"""

import re
import sys
from pathlib import Path

CORE = ["platform", "variables", "pipeline", "metadata", "formats", "lists"]
WINDOWED = CORE + ["lists/tables", "toolkit"]

# Folder -> what of ours it may include beside itself (folders, or single headers).
LAYERS = {
    "platform": [],
    "variables": ["platform"],
    "pipeline": ["platform", "variables", "metadata", "formats", "lists"],
    "metadata": ["platform", "pipeline"],
    "formats": ["platform", "pipeline", "metadata"],
    "lists": ["platform", "variables", "pipeline", "metadata", "formats"],
    "lists/tables": CORE + ["toolkit"],
    # Helpers share the protocol with the programs, and what needs no library and no thread.
    "helpers": ["platform/AudioVisualProperties.h", "platform/HelperProtocol.h",
                "platform/ImageProperties.h", "platform/IndexAttributes.h",
                "platform/NumberText.h", "platform/PropertyDictionary.h", "platform/Utf8.h"],
    "toolkit": ["platform", "variables"],
    "window": WINDOWED + ["shell"],
    "shell": WINDOWED + ["window"],
    "apps/marquell-list": CORE,
    "apps/marquell": WINDOWED + ["window", "shell"],
    "apps/marquell-gallery": WINDOWED + ["shell"],
}

# Library -> pattern of its headers, and the folders that may include them.
QT_FOLDERS = ["lists/tables", "toolkit", "window", "shell", "apps/marquell", "apps/marquell-gallery"]
LIBRARIES = {
    "ICU": (r"unicode/", ["platform"]),
    "OpenSSL": (r"openssl/", ["platform"]),
    "nlohmann-json": (r"nlohmann/", ["platform"]),
    "fmt": (r"fmt/", ["platform"]),
    "GIO": (r"gio/|glib", ["platform"]),
    "gettext": (r"libintl\.h$", ["platform"]),
    "Qt": (r"Q[A-Z]|Qt[A-Z]\w*/|q[a-z]+\.h$", QT_FOLDERS),
    "Exiv2": (r"exiv2/", ["helpers"]),
    "lcms2": (r"lcms2", ["helpers"]),
    "libheif": (r"libheif/", ["helpers"]),
    "TagLib": (r"taglib/", ["helpers"]),
    "zlib": (r"zlib\.h$", ["helpers"]),
    "pugixml": (r"pugi", ["helpers"]),
    "FFmpeg": (r"lib(av|sw)\w+/", ["helpers"]),
    "Poppler": (r"poppler", ["helpers"]),
    "libseccomp": (r"seccomp\.h$", ["helpers"]),
}

# What the language and the system bring is open to all: headers of the C++ library, which have
# neither a dot nor a slash, of the kernel, and these of the C library.
SYSTEM = re.compile(r"[a-z_0-9]+$|(sys|linux|netinet|arpa|asm)/|(%s)\.h$" % "|".join("""
    assert ctype dirent dlfcn errno fcntl fnmatch getopt glob grp iconv inttypes langinfo limits
    locale math poll pthread pwd sched setjmp signal spawn stdarg stddef stdint stdio stdlib string
    strings syslog termios time unistd utime wchar wctype
""".split()))

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')


def layer_of(path):
    """The layer that a path below src/ belongs to: the deepest folder that has a row, or None."""
    folders = path.split("/")[:-1]
    while folders and "/".join(folders) not in LAYERS:
        folders.pop()
    return "/".join(folders) or None


def objection(layer, header, quoted):
    """Why a file of `layer` may not include `header`; None if it may."""
    for library, (pattern, folders) in LIBRARIES.items():
        if re.match(pattern, header):
            return None if layer in folders else f"{library} belongs to {', '.join(folders)}"
    if not quoted:
        return None if SYSTEM.match(header) else "a library without a row in scripts/layers.py"
    other = layer_of(header)
    if other is None:
        own = layer.startswith("apps/") and "/" not in header
        return None if own else "not the path of a header below src/"
    if other == layer or other in LAYERS[layer] or header in LAYERS[layer]:
        return None
    return f"{layer} may include {', '.join(LAYERS[layer]) or 'nothing of ours'}"


def complaints(root):
    for file in sorted((root / "src").rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        name = file.relative_to(root)
        layer = layer_of(file.relative_to(root / "src").as_posix())
        if layer is None:
            yield f"{name}: a folder without a row in scripts/layers.py"
            continue
        for number, line in enumerate(file.read_text(errors="replace").splitlines(), 1):
            found = INCLUDE.match(line)
            reason = found and objection(layer, found[2], found[1] == '"')
            if reason:
                yield f"{name}:{number}: {line.strip()}: {reason}"


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
    found = list(complaints(root))
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
