# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of the settings file under several programs, and under programs that are killed.

Environment: MARQUELL_SETTINGS_WRITER is the program, see settings_writer.cpp.
"""

import json
import os
import random
import shutil
import subprocess
import tempfile
import threading
import time
import unittest
from pathlib import Path

PROGRAM = os.environ.get("MARQUELL_SETTINGS_WRITER", "")
PATIENCE = 60  # seconds until a test gives up


class Writer:
    """A running program; `lines` are those it has printed so far."""

    def __init__(self, file):
        self.process = subprocess.Popen(
            [PROGRAM, file], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            text=True, bufsize=1)
        self.lines = []
        self.printed = threading.Condition()
        self.reader = threading.Thread(target=self.read)
        self.reader.start()

    def read(self):
        for line in self.process.stdout:
            with self.printed:
                self.lines.append(line.strip())
                self.printed.notify_all()

    def tell(self, *commands):
        self.process.stdin.write("".join(command + "\n" for command in commands))

    def wait_for(self, condition):
        """Seconds until `condition` holds of the lines; None if it never does."""
        start = time.monotonic()
        with self.printed:
            held = self.printed.wait_for(lambda: condition(self.lines), PATIENCE)
        return time.monotonic() - start if held else None

    def end(self):
        """Status and standard error."""
        self.process.stdin.close()
        return self.wait()

    def kill(self):
        self.process.kill()
        return self.wait()

    def clear_away(self):
        if self.process.returncode is None:
            self.kill()

    def wait(self):
        error = self.process.stderr.read()
        status = self.process.wait(PATIENCE)
        self.reader.join()
        for pipe in (self.process.stdin, self.process.stdout, self.process.stderr):
            pipe.close()
        return status, error


class SettingsTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="marquell-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.file = self.folder / "settings.json"

    def start(self):
        writer = Writer(self.file)
        self.addCleanup(writer.clear_away)
        return writer

    def settings(self):
        return json.loads(self.file.read_bytes())["settings"]

    def watch(self, done, problems):
        """Reads the file until `done`: it always parses, and own keys and their numbers only grow."""
        last = {}
        while not done.is_set() and not problems:
            try:
                now = {key: n for key, n in self.settings().items() if key != "shared"}
                problems += [key for key, n in last.items() if now.get(key, 0) < n]
                last = now
            except (ValueError, LookupError) as problem:
                problems.append(problem)

    def test_programs_that_write_at_once_lose_nothing(self):
        count, saves, between = 4, 60, 20
        self.file.write_text('{"settings": {"stranger": 7}}')
        writers = [self.start() for _ in range(count)]
        for writer in writers:
            writer.tell("observe shared")
        done, problems = threading.Event(), []
        self.addCleanup(done.set)
        watcher = threading.Thread(target=self.watch, args=(done, problems))
        watcher.start()
        for save in range(saves):
            for name, writer in enumerate(writers):
                numbers = range(save * between + 1, (save + 1) * between + 1)
                writer.tell(*(f"set own{name} {number}" for number in numbers),
                            f"set shared {name * 1000 + save}", f"set new{name}.{save} {save}",
                            "save")
        for writer in writers:
            self.assertIsNotNone(writer.wait_for(lambda lines: lines.count("saved") == saves))
        done.set()
        watcher.join()
        self.assertEqual(problems, [])
        expected = {"stranger": 7, **{f"own{name}": saves * between for name in range(count)},
                    **{f"new{name}.{save}": save for name in range(count) for save in range(saves)}}
        found = self.settings()
        shared = found.pop("shared")
        self.assertEqual(found, expected)
        self.assertIn(shared, [name * 1000 + saves - 1 for name in range(count)])
        for writer in writers:
            heard = f"shared {shared}"
            last = writer.wait_for(
                lambda lines: [line for line in lines if line != "saved"][-1] == heard)
            self.assertIsNotNone(last, "all agree in the end")
            self.assertEqual(writer.end(), (0, ""))

    def test_changes_reach_the_other_program_within_a_second(self):
        one, other = self.start(), self.start()
        other.tell("observe key", "save")
        other.wait_for(lambda lines: "saved" in lines)
        for number in range(1, 21):
            one.tell(f"set key {number}")
            delay = other.wait_for(lambda lines: lines[-1] == f"key {number}")
            self.assertIsNotNone(delay)
            self.assertLess(delay, 1)
        self.assertEqual(other.lines, ["saved", *(f"key {number}" for number in range(1, 21))])
        self.assertEqual((one.end(), other.end()), ((0, ""), (0, "")))

    def test_a_killed_program_leaves_a_state_that_was_written(self):
        seed = random.randrange(1 << 32)
        chance = random.Random(seed)
        for attempt in range(40):
            writer = self.start()
            writer.tell("count")
            self.assertIsNotNone(writer.wait_for(len))
            with self.assertRaises(subprocess.TimeoutExpired):
                writer.process.wait(chance.uniform(0, 0.03))
            self.assertEqual(writer.kill(), (-9, ""))
            found = self.settings()
            with self.subTest(seed=seed, attempt=attempt, found=found, saved=writer.lines[-1]):
                self.assertIn(found["x"] - found["y"], (0, 1))
                self.assertGreaterEqual(found["x"], int(writer.lines[-1]))
                self.assertLessEqual(len(os.listdir(self.folder)), 3, "at most one name is left")
        last = self.start()
        last.tell("set x 0")
        self.assertEqual(last.end(), (0, ""))
        self.assertEqual(sorted(os.listdir(self.folder)), ["settings.json", "settings.json.lock"])


if __name__ == "__main__":
    unittest.main()
