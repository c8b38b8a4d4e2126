# SPDX-License-Identifier: GPL-3.0-or-later
"""What marquell-list has to print, computed in the plainest way: one value at a time."""

import functools
import itertools
import os
import subprocess
import unicodedata
from datetime import datetime, timedelta, timezone, tzinfo
from typing import NamedTuple

BASIC = ["name", "file_name", "file_name_without_any_extensions", "relative_path",
         "absolute_parent_path", "absolute_path", "extension", "tags", "creation_date",
         "modification_date", "parent", "full_path_name_length"]
SIZE = ["human_readable_size", "size_in_bytes", "size_in_kb", "size_in_mb"]
# Columns that no item of these trees has a value for.
WITHOUT_VALUE = ["exif_make", "gps_latitude", "av_title", "id3_bpm", "iptc_star_rating",
                 "layernames"]

PACKAGE_EXTENSIONS = set(
    b"app appex bundle kext prefpane saver qlgenerator mdimporter wdgt rtfd photoslibrary"
    b" photolibrary aplibrary fcpbundle imovielibrary tvlibrary musiclibrary logicx sparsebundle"
    b" xcodeproj xcworkspace xcarchive dsym scptd".split())

LINE_ENDS = "\n\x0b\x0c\r\x85\u2028\u2029"
DISTANT_PAST = -63114076800 + 978307200
EPOCH = datetime(1970, 1, 1, tzinfo=timezone.utc)


# ---- text


def text_of(name):
    """Text of a name: each byte outside a valid UTF-8 sequence is one U+FFFD."""
    decoded = name.decode("utf-8", "surrogateescape")
    return "".join("\ufffd" if "\udc80" <= c <= "\udcff" else c for c in decoded)


def is_control(c):
    category = unicodedata.category(c)
    return category in ("Cc", "Zl", "Zp") or (category == "Cf" and c not in "\u200c\u200d")


def extends(c):
    is_skin_tone = "\U0001f3fb" <= c <= "\U0001f3ff"
    return unicodedata.category(c) in ("Mn", "Me") or c in "\u200c\u200d" or is_skin_tone


def is_picture(c):
    return "\U0001f440" <= c <= "\U0001f64f"


def is_flag_letter(c):
    return "\U0001f1e6" <= c <= "\U0001f1ff"


def joins(cluster, c):
    """Whether c belongs to the cluster before it; exact for the characters of the trees."""
    first, last = cluster[0], cluster[-1]
    if last == "\r" and c == "\n":
        return True
    if is_control(last) or is_control(c):
        return False
    if is_picture(c):
        return last == "\u200d" and is_picture(first) and all(map(extends, cluster[1:]))
    if is_flag_letter(c):
        return len(cluster) == 1 and is_flag_letter(first)
    is_inside_syllable = "\u1160" <= c <= "\u11ff"  # no name starts with one of these
    return is_inside_syllable or extends(c) or unicodedata.category(c) == "Mc"


def clusters(text):
    """The user-perceived characters of a text."""
    if text.isascii() and "\r" not in text:
        return list(text)
    found = []
    for c in text:
        if found and joins(found[-1], c):
            found[-1] += c
        else:
            found.append(c)
    return found


def expand_numbers(text):
    """Pads each run of number characters with zeros to 32 characters."""
    def is_number(cluster):
        return unicodedata.numeric(cluster[0], None) is not None

    expanded = ""
    for padded, run in itertools.groupby(clusters(text), is_number):
        run = list(run)
        expanded += "0" * (32 - len(run) if padded else 0) + "".join(run)
    return expanded


@functools.lru_cache(None)
def sort_key(text, by_number):
    if by_number:
        text = expand_numbers(text)
    folded = unicodedata.normalize("NFD", text).casefold()
    return unicodedata.normalize("NFD", folded).encode()


# ---- paths and items


def clean_path(path, base):
    """An absolute path without doubled or trailing slashes, "." and "..", by its text alone."""
    kept = []
    for part in (path if path.startswith(b"/") else base + b"/" + path).split(b"/"):
        if part == b"..":
            kept[-1:] = []
        elif part not in (b"", b"."):
            kept.append(part)
    return b"/" + b"/".join(kept)


def split_extension(name):
    """The name without its extension, and the extension or None."""
    dot = name.rfind(b".")
    if dot < 1:
        return name, None
    return name[:dot], name[dot + 1:] or None


class Item(NamedTuple):
    path: bytes
    relative: bytes  # folder of the item below its source

    @property
    def name(self):
        return os.path.basename(self.path) or b"/"

    @property
    def parent_path(self):
        return os.path.dirname(self.path)


def is_package(path):
    extension = split_extension(os.path.basename(path))[1]
    return extension is not None and extension.lower() in PACKAGE_EXTENSIONS and os.path.isdir(path)


def walk(source, settings):
    """The items under one folder, in the order that breaks ties."""
    items = []

    def visit(below):
        for name in sorted(os.listdir(os.path.join(source, below))):
            relative = os.path.join(below, name)
            path = os.path.join(source, relative)
            hidden, package, folder = name.startswith(b"."), is_package(path), os.path.isdir(path)
            wanted = settings["processFolders" if folder and not package else "processFiles"]
            if wanted and not hidden:
                items.append(Item(path, below))
            if folder and not os.path.islink(path) and (hidden or not package):
                visit(relative)

    visit(b"")
    return items


def scan(sources, settings):
    items = []
    for source in sources:
        if os.path.isdir(source) and not is_package(source) and settings["processSubFolders"]:
            items += walk(source, settings)
        else:
            items.append(Item(source, b""))
    return items


# ---- values


def status(path):
    try:
        return os.lstat(path)
    except OSError:
        return None


def birth_times(paths):
    """Seconds and nanoseconds of each path's creation, as far as the file system keeps it."""
    paths = sorted({path for path in paths if os.path.lexists(path)})
    times = {}
    for start in range(0, len(paths), 200):
        part = paths[start:start + 200]
        lines = subprocess.check_output(["stat", "--printf=%w\\n", "--", *part], text=True,
                                        env={**os.environ, "TZ": "UTC"})
        for path, line in zip(part, lines.splitlines(), strict=True):
            if line != "-":
                moment, fraction = line.removesuffix(" +0000").split(".")
                since = datetime.fromisoformat(moment + "+00:00") - EPOCH
                times[path] = (since.days * 86400 + since.seconds, int(fraction))
    return times


def modification_time(path):
    found = status(path)
    return divmod(found.st_mtime_ns, 10**9) if found else None


def tags(path):
    try:
        stored = text_of(os.getxattr(path, "user.xdg.tags"))
    except OSError:
        return None
    names = [name.strip(" ") for name in stored.split(",")]
    return ", ".join(name.strip(LINE_ENDS) for name in names if name) or None


def readable_size(count, decimal_sign):
    if count < 1000:
        return {0: "Zero KB", 1: "1 byte"}.get(count, f"{count} bytes")
    for power, (unit, places) in enumerate(
            [("KB", 0), ("MB", 1), ("GB", 2), ("TB", 2), ("PB", 2), ("EB", 2)], start=1):
        step = 1000**power // 10**places  # bytes in one unit of the last decimal
        rounded, rest = divmod(count, step)
        if 2 * rest > step or (2 * rest == step and rounded % 2):
            rounded += 1
        if rounded < 1000 * 10**places or unit == "EB":
            break
    whole, fraction = divmod(rounded, 10**places)
    decimals = f"{fraction:0{places}d}".rstrip("0") if places else ""
    return f"{whole}{decimal_sign + decimals if decimals else ''} {unit}"


class Values:
    """Reads the columns of items; `births` are their birth times, for whoever asks for them."""

    def __init__(self, births, decimal_sign="."):
        self.births = births
        self.decimal_sign = decimal_sign

    def size(self, item):
        found = status(item.path)
        return found.st_size if found else None

    def of(self, item, column):
        """A text, a number, a (seconds, nanoseconds) date, or None."""
        if column == "creation_date":
            return self.births.get(item.path)
        if column == "modification_date":
            return modification_time(item.path)
        if column == "tags":
            return tags(item.path)
        if column == "full_path_name_length":
            return len(clusters(text_of(item.path)))
        if column == "size" or column in SIZE:
            return self._of_size(column, self.size(item))
        if column in WITHOUT_VALUE:
            return None
        stem, extension = split_extension(item.name)
        path_bytes = {
            "name": item.name, "file_name": stem, "extension": extension,
            "file_name_without_any_extensions": item.name.split(b".")[0],
            "relative_path": item.relative, "absolute_parent_path": item.parent_path,
            "absolute_path": item.path,
            "parent": b"" if item.path == b"/" else os.path.basename(item.parent_path) or b"/",
        }[column]
        return None if path_bytes is None else text_of(path_bytes)

    def _of_size(self, column, count):
        if count is None:
            return None
        return {
            "size": count, "size_in_bytes": str(count),
            "size_in_kb": str(-(-count // 1024)), "size_in_mb": str(-(-count // 1048576)),
            "human_readable_size": readable_size(count, self.decimal_sign),
        }[column]


# ---- order


def ordered_by(items, mode, values):
    """The items in one mode's order; those with equal keys stay as they stand."""
    long_ago = (DISTANT_PAST, 0)
    keys = [  # one for each pair of modes
        lambda item: sort_key(text_of(item.name), True),
        lambda item: sort_key(text_of(item.path), True),
        lambda item: values.of(item, "creation_date") or long_ago,
        lambda item: values.of(item, "modification_date") or long_ago,
        lambda item: long_ago,  # no item of these trees has a date inside its contents
        lambda item: values.size(item) or 0,
        lambda item: sort_key(text_of(item.name), False),
        lambda item: sort_key(text_of(item.path), False),
    ]
    newest_first = mode in (4, 6, 8)
    downward = newest_first or (mode % 2 == 1 and mode not in (5, 7, 9))
    return sorted(items, key=keys[mode // 2], reverse=downward)


# ---- the list


class Locale(NamedTuple):
    """What a list takes from the user's surroundings."""

    zone: tzinfo
    decimal_sign: str
    date_pattern: str  # medium date, short time: {0} local time, {1} hour to 12, {2} AM or PM


def date_text(moment, mode, locale):
    local = (EPOCH + timedelta(seconds=moment[0])).astimezone(locale.zone)
    hour12, half = (local.hour + 11) % 12 + 1, "AM" if local.hour < 12 else "PM"
    pattern = {
        0: "{0:%Y-%m-%d}", 1: "{0:%Y-%m-%d %H:%M:%S}", 2: "{0:%Y-%m-%d} {1:02d}:{0:%M:%S} {2}",
    }.get(mode, locale.date_pattern)
    return pattern.format(local, hour12, half)


def csv_field(text, settings):
    if settings["multiLineMode"] == 1:
        text = text.replace("\n", "\\n").replace("\r", "\\r").replace("\t", "\\t")
    text = text.replace('"', '""')
    return f'"{text}"' if settings["quoteStrings"] else text


def csv_list(sources, columns, settings, locale, titles):
    """The bytes of the list. `titles` gives for a column its title and its category's abbreviation
    or an empty text."""
    items = scan(sources, settings)
    modes = (settings["firstSortMode"], settings["secondSortMode"])
    needs_births = "creation_date" in columns or {4, 5} & set(modes)
    births = birth_times(item.path for item in items) if needs_births else {}
    values = Values(births, locale.decimal_sign)
    for mode in reversed(modes):
        items = ordered_by(items, mode, values)

    null = {1: "Null", 2: "n/a", 3: "nil", 4: "none"}.get(settings["nullValuesMode"], "")

    def cell(item, column):
        value = values.of(item, column)
        if value is None:
            return null
        if isinstance(value, tuple):
            return date_text(value, settings["dateFormatMode"], locale)
        return str(value)

    def title(column):
        name, abbreviation = titles[column]
        decorated = abbreviation and settings["includeColumnTitlesMode"] == 2
        return f"{name} ({abbreviation})" if decorated else name

    rows = [[cell(item, column) for column in columns] for item in items]
    if settings["includeColumnTitlesMode"] != 0:
        rows.insert(0, [title(column) for column in columns])
    line_break = {1: "\r", 2: "\r\n"}.get(settings["linebreaksMode"], "\n")
    lines = [",".join(csv_field(text, settings) for text in row) + line_break for row in rows]
    return "".join(lines).encode()
