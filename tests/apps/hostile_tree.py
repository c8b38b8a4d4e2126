# SPDX-License-Identifier: GPL-3.0-or-later
"""Random folder trees whose names and kinds of items are as awkward as a file system allows."""

import os
import stat
import unicodedata

NAME_MAX = 255

# Pieces of names. Every name is a few of them in a row.
ATOMS = [text.encode() for text in (
    # letters that differ in case only, or fold to more than one letter
    "a", "A", "b", "B", "file", "File", "FILE", "README", "stra\u00dfe", "STRASSE", "\u1e9e",
    "\u01c5", "\ufb01", "\u0130", "I", "\u0131", "\u03a3", "\u03c2", "\u03c3", "\u0416", "\u0436",
    "\U00010400",
    # composed and decomposed
    "\u00e9", "e\u0301", "\u00c9", "\u00c5", "A\u030a", "\u212b", "\u1e69", "s\u0307\u0323",
    "s\u0323\u0307", "\ud55c", "\u1112\u1161\u11ab", "\u304c", "\u304b\u3099",
    # marks that join what stands before them, even a slash or a digit
    "\u0301", "1\u0301", "\u0939\u093f", "e\u0301\u0323\u20dd", "\u200d", "\u200c", "\ufe0f",
    # pictures of several code points
    "\U0001f469\u200d\U0001f467", "\U0001f44d\U0001f3fd", "\U0001f1e9\U0001f1ea\U0001f1eb",
    "1\ufe0f\u20e3",
    # numbers
    "1", "2", "9", "10", "007", "100", "0", "00", "12345678901234567890", "9" * 31, "9" * 32,
    "9" * 33, "\u0663", "\u0661\u0660", "\u0969", "\u0967\u0966", "\u2460", "\u2468", "\u2167",
    "\u2178", "\u4e09", "\u3007", "\u00bd", "\u2153", "\u00b2", "\uff15", "\U0001d7d8",
    # separators of one format or another
    ",", '"', '""', "'", ";", "=", "-", "--", "_", " ", "  ", "\t", "\n", "\r", "\r\n", "\n\r",
    "\\n", "\\", "\u2028", "\u0085",
    # dots
    ".", "..", "...", ".tar.gz", ".txt", ".TXT", ".a b", ". ", ".\u00e9", ".\u0301",
    # characters that print as nothing, or steer a terminal
    "\x01", "\x1b[31m", "\x7f", "\u009b", "\u200b", "\ufeff", "\u202e", "\u00ad", "\u00a0",
    "\ufffd", "*?[$`!<&>",
)] + [
    # bytes outside any valid sequence
    b"\xff", b"\xfe\xff", b"\x80", b"\xc3", b"\xe2\x82", b"\xe2\x82A", b"\xc0\xaf", b"\xe0\x80\xae",
    b"\xed\xa0\x80", b"\xed\xbf\xbf", b"\xf0\x9f\x98", b"\xf0\x80\x80\xaf", b"\xf4\x90\x80\x80",
    b"\xf8\x88\x80\x80\x80", b"\xc3\xa9\xa9",
]

PACKAGES = [b"x.app", b"X.APP", b"a.b.app", b"r.rtfd", b"k.KEXT", b"p.prefpane", b"d.dSYM",
            b"e 9.xcodeproj", b"\xff.photoslibrary", b" .bundle"]
FOLDERS = [b"x.framework", b"x.plugin", b"x.component", b"x.app.", b"xapp", b"app", b"x.app.d",
           b"x.apps", b".app", b".x.app", b".Hidden.bundle", b"..app", b".git", b".a.b", b"src",
           b"Src", b"sub 2", b"sub 10"]
LINKS = [b"link", b"Link2", b"link.app", b"link.RTFD", b".link"]
MISSING = [b"missing 1", b"gone.app", b"lost\n\x1b[31m\x9b\xff"]

# Seconds since 1970: around the epoch, changes of daylight saving, the limits of 32 bits, a day
# that one zone skipped.
TIMES = [-2000000000, -86400, -1, 0, 1, 946684799, 1325239200, 1325325600, 1616893199, 1616893200,
         1635638400, 1700000000, 1710000000, 2147483647, 2147483648, 4102444800, 10413792000]
SIZES = [0, 1, 2, 10, 512, 999, 1000, 1023, 1024, 1025, 1499, 1500, 1501, 2500, 3500, 999499,
         999500, 1000000, 1048575, 1048576, 1048577, 1050000, 1150000, 1250000, 99950000, 999949999,
         999950000, 1000000000, 1005000000, 1015000000, 2345678901, 999994999999, 999995000000,
         1234567890123]
TAGS = [b"Red", b"green,Blue", b" Red , \xc3\xa9t\xc3\xa9 ,, ", b",", b"", b"  ", b"one\ntwo",
        b"\nRed\r\n,x", b'"a"', b"\xff,\xe2\x82A"]


def random_name(rng):
    """A name of random pieces, sometimes as long as a name may be."""
    while True:
        name = b"".join(rng.choices(ATOMS, k=rng.choice((1, 1, 2, 2, 3, 5))))
        if rng.random() < 0.03:
            name = (name * NAME_MAX)[:NAME_MAX]
        if name not in (b".", b"..") and len(name) <= NAME_MAX:
            return name


def variant(rng, name):
    """A name that an order may take for the same, or nearly so."""
    try:
        text = name.decode()
    except UnicodeDecodeError:
        return name.swapcase()[:NAME_MAX]
    change = rng.choice((
        str.swapcase, str.upper, str.casefold, lambda t: unicodedata.normalize("NFD", t),
        lambda t: unicodedata.normalize("NFC", t), lambda t: t.replace("1", "01"),
        lambda t: t.replace("9", "10"), lambda t: t + "1", lambda t: "0" + t))
    changed = change(text).encode()
    return changed if len(changed) <= NAME_MAX and b"/" not in changed else name


class HostileTree:
    """A tree in an empty folder, given as an absolute path in bytes.

    `root` is its top, `aside` a folder beside it for what is no part of it. `sources` holds paths
    worth naming as sources, `missing` paths of nothing, `folders` all folders but packages and what
    they hold."""

    def __init__(self, rng, place, items):
        self.rng = rng
        self.root, self.aside = os.path.join(place, b"tree"), os.path.join(place, b"aside")
        os.mkdir(self.root)
        os.mkdir(self.aside)
        self.folders = [self.root]
        self.in_packages = []
        self.sources = [self.root]
        self.missing = [os.path.join(self.root, name) for name in MISSING]
        self.made = []
        for _ in range(items):
            self._add_item()
        for path in self.made:
            self._dress(path)

    def _new_path(self):
        siblings = [os.path.basename(path) for path in self.made[-8:]]
        if siblings and self.rng.random() < 0.3:
            name = variant(self.rng, self.rng.choice(siblings))
        else:
            name = random_name(self.rng)
        in_package = self.in_packages and self.rng.random() < 0.1
        return os.path.join(self.rng.choice(self.in_packages if in_package else self.folders), name)

    def _add_item(self):
        rng = self.rng
        kind = rng.choices((self._file, self._folder, self._package, self._link, self._special),
                           (8, 3, 2, 3, 1))[0]
        path = self._new_path()
        usual_names = {self._folder: FOLDERS, self._package: PACKAGES, self._link: LINKS}
        if kind in usual_names and rng.random() < 0.6:
            path = os.path.join(os.path.dirname(path), rng.choice(usual_names[kind]))
        if os.path.lexists(path) or len(path) > 3000:
            return
        try:
            kind(path)
        except OSError:
            return  # a file system that refuses such a name or kind
        self.made.append(path)
        if rng.random() < 0.3:
            self.sources.append(path)

    def _file(self, path):
        with open(path, "wb"):
            os.truncate(path, self.rng.choice(SIZES))

    def _folder(self, path):
        os.mkdir(path)
        in_package = os.path.dirname(path) in self.in_packages
        (self.in_packages if in_package else self.folders).append(path)

    def _package(self, path):
        os.mkdir(path)
        self.in_packages.append(path)
        self.sources.append(path)

    def _link(self, path):
        rng = self.rng
        target = rng.choice((
            rng.choice(self.folders), rng.choice(self.folders),
            rng.choice(self.made or [self.root]), b".", b"..", b"no such target",
            os.path.basename(path)))
        os.symlink(target, path)

    def _special(self, path):
        kinds = [stat.S_IFIFO, stat.S_IFSOCK] + ([stat.S_IFCHR] if os.geteuid() == 0 else [])
        os.mknod(path, self.rng.choice(kinds) | 0o600, os.makedev(1, 3))

    def _dress(self, path):
        """Gives an item its tags and its time."""
        rng = self.rng
        try:
            if rng.random() < 0.3 and not os.path.islink(path):
                os.setxattr(path, "user.xdg.tags", rng.choice(TAGS))
        except OSError:
            pass  # no tags on a FIFO, or none on this file system
        time = rng.choice(TIMES) * 10**9 + rng.choice((0, 0, 1, 500000000, 999999999))
        os.utime(path, ns=(time, time), follow_symlinks=False)
