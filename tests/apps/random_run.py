# SPDX-License-Identifier: GPL-3.0-or-later
"""Random calls of marquell-list on a tree, each with the list that it has to make."""

import os
import shlex
import subprocess
from zoneinfo import ZoneInfo

import oracle

TIME_LIMIT = 60  # seconds; a list takes milliseconds

DEFAULTS = {
    "processFiles": True, "processFolders": True, "processSubFolders": True, "firstSortMode": 0,
    "secondSortMode": 2, "quoteStrings": True, "includeColumnTitlesMode": 0, "boolValuesMode": 0,
    "nullValuesMode": 0, "dateFormatMode": 0, "multiLineMode": 0, "linebreaksMode": 0,
}
CHOICES = {
    "processFiles": (True, True, False), "processFolders": (True, True, False),
    "processSubFolders": (True, True, False), "firstSortMode": range(16),
    "secondSortMode": range(16), "quoteStrings": (True, False),
    "includeColumnTitlesMode": range(4), "boolValuesMode": range(6), "nullValuesMode": range(6),
    "dateFormatMode": (0, 1, 2, 3, 9), "multiLineMode": (0, 1), "linebreaksMode": range(4),
}
ZONES = ["UTC"] + [
    zone for zone in ("Europe/Berlin", "Asia/Kolkata", "America/St_Johns", "Pacific/Apia")
    if os.path.exists("/usr/share/zoneinfo/" + zone)]
# The sign before decimals, and a medium date with a short time.
ENGLISH = (".", "{0:%b} {0.day}, {0.year}, {1}:{0:%M} {2}")
LOCALES = {"C": ENGLISH, "C.UTF-8": ENGLISH, "en_US.UTF-8": ENGLISH,
           "de_DE.UTF-8": (",", "{0:%d.%m.%Y, %H:%M}")}


def random_settings(rng):
    return {name: rng.choice(CHOICES[name]) if rng.random() < 0.6 else default
            for name, default in DEFAULTS.items()}


def setting_options(rng, settings):
    options = []
    for name, value in rng.sample(sorted(settings.items()), len(settings)):
        text = str(value)
        if isinstance(value, bool):
            text = rng.choice(("true", "1") if value else ("false", "0"))
        if value != DEFAULTS[name] or rng.random() < 0.5:
            options += [rng.choice(("-s", "--set")), f"{name}={text}"]
    return options


def random_columns(rng):
    """The columns of a list, and the options that ask for them."""
    every = oracle.BASIC + oracle.SIZE + ["size"] + oracle.WITHOUT_VALUE
    columns, options = [], []
    for _ in range(rng.choice((0, 1, 1, 1, 2))):
        some = rng.choices(every, k=rng.randint(1, 8))
        group, members = rng.choice([("@Basic", oracle.BASIC), ("@Size", oracle.SIZE), ("", [])]
                                    + [(",".join(some), some)] * 4)
        columns += members
        options += [rng.choice(("-c", "--columns")), group]
    return columns if options else ["name", "absolute_path"], options


def random_locale(rng):
    """A locale and the environment variables that ask for it."""
    # German never stands where it would translate titles too.
    english, any_locale = ("", "C", "C.UTF-8", "en_US.UTF-8"), ("", *LOCALES)
    variables = {
        "LC_ALL": rng.choice(english + ("", "", "")), "LC_TIME": rng.choice(any_locale),
        "LC_NUMERIC": rng.choice(any_locale), "LANG": rng.choice(english), "TZ": rng.choice(ZONES)}

    def chosen(category):
        return LOCALES[variables["LC_ALL"] or variables[category] or variables["LANG"] or "C"]

    locale = oracle.Locale(ZoneInfo(variables["TZ"]), chosen("LC_NUMERIC")[0], chosen("LC_TIME")[1])
    return locale, {name: value for name, value in variables.items() if value or rng.random() < 0.5}


def random_sources(rng, tree, settings):
    """Clean absolute paths, some of them missing."""
    pools, weights = [tree.sources, tree.folders, [tree.root], tree.missing], [4, 3, 9, 1]
    if not settings["processSubFolders"]:  # else these are walked, which takes too long
        pools.append([b"/", b"/", b"/usr"])
        weights.append(6)
    sources = [rng.choice(pool)
               for pool in rng.choices(pools, weights, k=rng.choice((0, 1, 1, 1, 2, 3, 4)))]
    return sources + sources[:1] if rng.random() < 0.1 else sources


def spelled(rng, path, base):
    """Another way to write a clean path, for a process that stands in `base`."""
    start, parts = rng.choice((b"/", b"/", b"//", b"///", b"/../", b"/./")), path[1:].split(b"/")
    if rng.random() < 0.4:
        start, parts = b"", os.path.relpath(path, base).split(b"/")
    if rng.random() < 0.5:
        for at in rng.choices(range(len(parts)), k=2):
            part = parts[at]
            parts[at] = rng.choice(
                (b"./" + part, b"nowhere/../" + part, part + b"/", part + b"/.", part + b"/x/.."))
    return start + b"/".join(parts) + rng.choice((b"", b"", b"/", b"//", b"/."))


def random_standpoint(rng, tree):
    """A working folder, the PWD that goes with it, and where relative paths start from."""
    folder, link = rng.choice(tree.folders), os.path.join(tree.aside, b"link to here")
    if os.path.lexists(link):
        os.remove(link)
    os.symlink(folder, link)
    return rng.choice(((folder, folder, folder), (folder, None, folder), (link, None, folder),
                       (folder, tree.aside, folder), (folder, link, link), (link, link, link)))


class Run:
    """One call of `program`: `sources` are its sources as clean paths, `expected` is the list that
    it has to make. `titles` is as in oracle.csv_list."""

    def __init__(self, rng, program, tree, titles):
        settings = random_settings(rng)
        columns, column_options = random_columns(rng)
        locale, self.variables = random_locale(rng)
        self.folder, self.pwd, base = random_standpoint(rng, tree)
        self.sources = random_sources(rng, tree, settings)
        self.expected = oracle.csv_list(self.sources, columns, settings, locale, titles)

        self.command = [program, *setting_options(rng, settings), *column_options,
                        "--jobs", rng.choice(("1", "2", "7"))]
        self.output_file = os.path.join(tree.aside, b"list.csv") if rng.random() < 0.1 else None
        if self.output_file:
            self.command += ["-o", self.output_file]
        spellings = [spelled(rng, source, base) for source in self.sources]
        assert [oracle.clean_path(spelling, base) for spelling in spellings] == self.sources
        self.input = b""
        if rng.random() < 0.3 or not spellings:
            self.command += ["--from0", "-"]
            self.input = b"\0".join(spellings) + rng.choice((b"", b"\0", b"\0\0"))
        else:
            self.command += ["--", *spellings]

    def perform(self):
        """Makes the list; result is its bytes, and the finished process."""
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith(("LC_", "LANG")) and name not in ("PWD", "TZ")}
        environment.update(self.variables)
        if self.pwd is not None:
            environment["PWD"] = self.pwd
        process = subprocess.run(self.command, cwd=self.folder, env=environment, input=self.input,
                                 capture_output=True, timeout=TIME_LIMIT)
        text = process.stdout  # nothing, if there is a file
        if self.output_file and os.path.exists(self.output_file):
            with open(self.output_file, "rb") as file:
                text += file.read()
            os.remove(self.output_file)
        return text, process

    def __str__(self):
        """The call as one line for a shell."""
        folder, *command = (shlex.quote(os.fsdecode(word)) for word in (self.folder, *self.command))
        variables = {**self.variables, "PWD": os.fsdecode(self.pwd or b"")}
        settings = " ".join(f"{name}={shlex.quote(value)}" for name, value in variables.items())
        return ascii(f"cd {folder}; {settings} {' '.join(command)}") + f" < {self.input}"
