# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that no failure and no kill costs the file that a list is saved to, or breaks it.

Environment: MARQUELL_LIST is the program, MARQUELL_FAILING_CALLS the library that lets its system
calls fail, see failing_calls.cpp.
"""

import collections
import errno
import itertools
import os
import random
import re
import resource
import shutil
import stat
import subprocess
import tempfile
import threading
import time
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

PROGRAM = os.environ.get("MARQUELL_LIST", "")
LIBRARY = os.environ.get("MARQUELL_FAILING_CALLS", "")
# Lists of titles alone, of 130 KB and 4 MB in UTF-16, which is written piece by piece. UTF-8 is
# written at once, and half as large.
SMALL, LARGE = (",".join(["@EXIF"] * count) for count in (80, 2500))
OPTIONS = ["-q", "--from0", "/dev/null", "-s", "includeColumnTitlesMode=1"]
UTF_16 = ["-s", "encodingMode=1"]
OLD, OLD_MODE = b"old\n", 0o2640
STARTS = ("new", "old", "link")  # what the target is before
ROUTES = {"unnamed": "", "named": f"tmpfile:0:{errno.EOPNOTSUPP} "}  # of the temporary file
ERRORS = {
    "readlink": ("EIO", "EACCES", "EINTR"),
    "stat": ("EACCES", "EIO", "EINTR"), "faccessat": ("EACCES", "EROFS"),
    "open": ("EACCES", "EMFILE", "EINTR"), "tmpfile": ("EINVAL", "EISDIR"),
    "create": ("EACCES", "ENOSPC", "EEXIST"), "write": ("EIO", "ENOSPC", "EINTR", "short"),
    "fsync": ("EIO", "ENOSPC", "EINTR"), "fchown": ("EPERM", "EIO"), "fchmod": ("EPERM", "EIO"),
    "linkat": ("EPERM", "ENOSPC", "EEXIST"), "close": ("EIO", "EDQUOT", "EINTR"),
    "renameat": ("EIO", "EACCES", "EXDEV")}
# A failure of these is made good, and a name that is taken is no failure.
MENDED = ("tmpfile", "fchown", "short", "EEXIST")
# The thread sanitizer delivers a signal later, when the preloaded library is not ready for it.
KILLS = ("before", "behind") if os.environ.get("MARQUELL_SANITIZE") == "thread" else (
    "before", "behind", "term")
counts = collections.Counter()
try:
    os.close(os.open(tempfile.gettempdir(), os.O_TMPFILE | os.O_WRONLY))
except OSError as problem:
    print(f"temporary files with a name only, for in {tempfile.gettempdir()}: {problem}")
    del ROUTES["unnamed"]


def plan(route, *faults):
    """Each fault is a call's name, its number and what happens to it."""
    hows = [(name, k, getattr(errno, how, how)) for name, k, how in faults]
    return ROUTES[route] + " ".join("{}:{}:{}".format(*fault) for fault in hows)


def message(reason, target="target"):
    return f'marquell-list: "{target}": the list could not be written: {reason}\n'


def save(folder, faults="", log="", columns=SMALL, target="target", encoding=UTF_16, **how):
    """The program, started."""
    sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
    variables = {"LC_ALL": "C", "LD_PRELOAD": LIBRARY, "ASAN_OPTIONS": sanitizer,
                 "FAULTS_FROM": "target", "FAULTS_LOG": log, "FAULTS_PLAN": faults}
    return subprocess.Popen(
        [PROGRAM, *OPTIONS, *encoding, "-c", columns, "-o", target], cwd=folder, text=True,
        env={**os.environ, **variables}, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **how)


class Saved:
    """What a save under faults left; it is killed `delay` seconds after it made its file."""

    def __init__(self, start, faults="", delay=None, **how):
        with tempfile.TemporaryDirectory(prefix="marquell-") as folder, \
                tempfile.NamedTemporaryFile() as log:
            target = Path(folder, "target")
            file = target if start != "link" else Path(folder, "file")
            if start == "link":
                target.symlink_to("file")
            if start != "new":
                file.write_bytes(OLD)
                file.chmod(OLD_MODE)
            with save(folder, faults, log.name, **how) as program:
                begin = self.moment_of("tmpfile", program, log)
                if delay is not None:
                    time.sleep(delay)
                    program.kill()
                self.seconds = self.moment_of("renameat", program, log) - begin
                self.message = program.communicate(timeout=120)[0]
            self.status = program.returncode
            self.calls = log.read().decode().split()
            self.is_link = target.is_symlink()
            self.text = file.read_bytes() if file.exists() else b""
            self.mode = stat.S_IMODE(file.stat().st_mode) if file.exists() else 0
            left = set(os.listdir(folder)) - {"target", file.name}
            self.left = [stat.S_IMODE(Path(folder, name).stat().st_mode) for name in left]

    @staticmethod
    def moment_of(call, program, log):
        while program.poll() is None and call not in Path(log.name).read_text():
            time.sleep(0.0005)
        return time.monotonic()


class FaultTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.clean = {(start, route): Saved(start, plan(route))
                     for start in STARTS for route in ROUTES}
        cls.new = cls.clean["new", "named"].text
        for (start, route), saved in cls.clean.items():
            expected = set(ERRORS) - {"create" if route == "unnamed" else "linkat"}
            expected -= {"fchown", "fchmod"} if start == "new" else set()
            assert set(saved.calls) == expected, f"a save has other calls now: {saved.calls}"
            order = " ".join(filter(("write", "fsync", "renameat").count, saved.calls))
            assert re.fullmatch("(write ){3,}fsync renameat fsync", order), order
            assert (saved.status, saved.text, saved.left) == (0, cls.new, []), vars(saved)

    @classmethod
    def tearDownClass(cls):
        print(*(f"{number} {what}" for what, number in counts.items()), sep=", ")

    def judge(self, problem, cases):
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            found = [pair for pair in zip(cases, pool.map(problem, cases)) if pair[1]]
        self.assertFalse(found, "\n".join(f"{case}: {text}" for case, text in found))

    def calls(self):
        """Start, route, name, number and place of each call of each save that succeeds."""
        for (start, route), saved in self.clean.items():
            for place, name in enumerate(saved.calls):
                if route == "unnamed" or name != "tmpfile":
                    yield start, route, name, saved.calls[:place + 1].count(name), place

    def test_each_call_fails(self):
        self.judge(self.problem_of_fault,
                   [(*call, how) for call in self.calls() for how in ERRORS[call[2]]])

    def problem_of_fault(self, case):
        start, route, name, k, place, how = case
        counts["faults"] += 1
        saved = Saved(start, plan(route, (name, k, how)))
        is_in_place = place > self.clean[start, route].calls.index("renameat")
        is_new = is_in_place or name in MENDED or how in MENDED or (name, how) == ("write", "EINTR")
        if how == "EINTR" and not is_new:
            is_new = saved.status == 0  # trying again and giving up are both right
        outcome = (0, "") if is_new else (3, message(os.strerror(getattr(errno, how))))
        # Without its owner or group the file may be more closed, and a set-id bit has to go.
        mode = saved.mode & OLD_MODE & 0o777 if name == "fchown" else OLD_MODE
        return self.problem(saved, start, outcome, is_new, [], mode)

    def problem(self, saved, start, outcome, is_new, left, mode=OLD_MODE):
        mode = mode if start != "new" else saved.mode
        text = self.new if is_new else b"" if start == "new" else OLD
        expected = (outcome, True, start == "link", mode, left)
        found = ((saved.status, saved.message), saved.text == text, saved.is_link, saved.mode,
                 saved.left)
        return f"{found} instead of {expected}" if found != expected else ""

    def test_several_calls_fail(self):
        for outcome, left, route, *faults in [
            ("EXDEV", [OLD_MODE], "unnamed", ("renameat", 1, "EXDEV"), ("unlinkat", 1, "EIO")),
            ("ENOSPC", [0o600], "named", ("write", 1, "ENOSPC"), ("unlinkat", 1, "EIO")),
            ("ENOSPC", [], "unnamed", ("write", 1, "short"), ("write", 2, "ENOSPC")),
            ("EEXIST", [], "unnamed", ("linkat", 0, "EEXIST")),
            ("EEXIST", [], "named", ("create", 0, "EEXIST")),
        ]:
            if route not in ROUTES:
                continue
            counts["faults"] += 1
            saved = Saved("old", plan(route, *faults))
            outcome = (3, message(os.strerror(getattr(errno, outcome))))
            self.assertEqual(self.problem(saved, "old", outcome, False, left), "")

    def test_killed_at_each_call(self):
        self.judge(self.problem_of_kill,
                   [(*call, how) for call in self.calls() for how in KILLS])

    def problem_of_kill(self, case):
        start, route, name, k, place, how = case
        counts["kills at calls"] += 1
        saved = Saved(start, plan(route, (name, k, how)))
        if how == "term":
            is_new = "renameat" in self.clean[start, route].calls[:place + 1]
            return self.problem(saved, start, (-15, ""), is_new, [])
        done = saved.calls if how == "behind" else saved.calls[:-1]
        is_new = "renameat" in done
        has_name = not is_new and ("linkat" in done or "create" in done)
        if start != "new" and any(mode & ~OLD_MODE for mode in saved.left):
            return f"others may read {saved.left}"
        return self.problem(saved, start, (-9, ""), is_new, saved.left[:1] if has_name else [])

    def test_killed_at_random_moments(self):
        seed = random.randrange(1 << 32)
        chance = random.Random(seed)
        whole = Saved("old", columns=LARGE)
        self.assertGreater(len(whole.text), 4_000_000)

        def problem(case):
            route, delay = case
            saved = Saved("old", plan(route), columns=LARGE, delay=delay)
            counts["kills at random"] += saved.status == -9
            counts["of these before the new file was in place"] += "renameat" not in saved.calls
            *done, last = saved.calls
            texts = [OLD] * ("renameat" not in done) + [whole.text] * ("renameat" in saved.calls)
            names = "renameat" not in done and ("linkat" in saved.calls or "create" in saved.calls)
            if saved.text in texts and len(saved.left) <= names and saved.status in (0, -9):
                return ""
            return f"seed {seed}, {last}: {saved.status}, {len(saved.text)} bytes, {saved.left}"

        self.judge(problem, [(route, chance.uniform(0, whole.seconds * 2))
                             for route in ROUTES for _ in range(25)])


class LimitTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="marquell-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def fails(self, reason, target, **how):
        before = sorted(os.listdir(self.folder))
        with save(self.folder, target=target, **how) as program:
            told = program.communicate(timeout=120)[0]
        self.assertEqual((program.returncode, told), (3, message(reason, target)))
        self.assertEqual(sorted(os.listdir(self.folder)), before)

    def test_a_reader_that_leaves_early(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)

        def read():
            with open(pipe, "rb", buffering=0) as stream:
                stream.read(10)

        reader = threading.Thread(target=read)
        reader.start()
        self.fails("Broken pipe", "pipe", columns=LARGE)
        reader.join()
        self.assertTrue(pipe.is_fifo())

    def test_a_file_that_may_not_grow_so_large(self):
        limit = {"preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (10**6, 10**6))}
        for route, encoding in itertools.product(ROUTES, ([], UTF_16)):
            saved = Saved("old", plan(route), columns=LARGE, encoding=encoding, **limit)
            self.assertEqual((saved.status, saved.message, saved.text, saved.left),
                             (3, message("File too large"), OLD, []))

    def test_a_full_disk(self):
        script = """mount -t tmpfs -o size=256k none "$1" && printf old >"$1/target" || exit 77
            folder=$1; shift; "$0" "$@" -o "$folder/target"
            status=$?; cat "$folder/target"; ls -A "$folder"; exit $status"""
        done = subprocess.run(
            ["unshare", "-rm", "sh", "-c", script, PROGRAM, self.folder, *OPTIONS, "-c", LARGE],
            env={**os.environ, "LC_ALL": "C"}, capture_output=True, text=True)
        if "unshare" in done.stderr or done.returncode == 77:
            self.skipTest("no file system of our own to fill: " + done.stderr)
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (3, "oldtarget\n",
                          message("No space left on device", self.folder / "target")))


if __name__ == "__main__":
    if not PROGRAM or not LIBRARY:
        raise SystemExit("MARQUELL_LIST and MARQUELL_FAILING_CALLS must name what is tested")
    unittest.main()
