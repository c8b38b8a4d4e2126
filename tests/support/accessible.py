# SPDX-License-Identifier: GPL-3.0-or-later
"""Programs with windows as assistive programs see them, under a display and a session bus of their
own. A test script ends with `main()`, which runs it once more in such a session, and uses the rest
in there only."""

import os
import subprocess
import sys
import tempfile
import time
import unittest

INSIDE = "MARQUELL_INSIDE_SESSION"

if INSIDE in os.environ:
    import pyatspi


def start_display():
    """An X server on a free display, and the name of that display."""
    reading, writing = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1600x1200x24",
                               "-nolisten", "tcp"], pass_fds=[writing], stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as pipe:
        return server, ":" + pipe.readline().strip()


def run_in_session():
    """This script once more, by the system's Python, which has the bindings."""
    server, display = start_display()
    try:
        with tempfile.TemporaryDirectory() as folder:
            environment = {**os.environ, INSIDE: "1", "DISPLAY": display, "HOME": folder,
                           "XDG_RUNTIME_DIR": folder, "QT_QPA_PLATFORM": "xcb",
                           "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "LC_ALL": "C.UTF-8"}
            return subprocess.run(["dbus-run-session", "--", "/usr/bin/python3", "-B", os.path.abspath(sys.argv[0])],
                                  env=environment).returncode
    finally:
        server.terminate()
        server.wait()


def until(what, seconds=20):
    """The first true answer of `what`, which is asked again and again."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            answer = what()
        except Exception:  # the tree changes while it is walked
            answer = None
        if answer:
            return answer
        time.sleep(0.02)
    raise AssertionError("waited in vain")


class Program:
    """A running program and the tree of its controls."""

    def __init__(self, command, **options):
        pyatspi.Registry.getDesktop(0)  # starts the registry, which the program asks once
        self.process = subprocess.Popen(command, stderr=subprocess.DEVNULL, **options)
        self.root = until(self.find_program)

    def find_program(self):
        desktop = pyatspi.Registry.getDesktop(0)
        for program in desktop:
            if program and program.get_process_id() == self.process.pid and program.childCount:
                return program
        return None

    def all(self):
        def walk(item):
            for child in item:
                if child:
                    yield child
                    if child.getRoleName() not in ("table", "document text"):  # may be endless
                        yield from walk(child)
        return list(walk(self.root))

    def find(self, role, name):
        """The control that is to be seen, or None."""
        found = [item for item in self.all() if item.getRoleName() == role and item.name == name]
        return found[0] if found else None

    def act(self, role, name, *actions):
        """Does the first of the actions that the control knows, once it is there and enabled."""
        def ready():
            item = self.find(role, name)
            return item if item and item.getState().contains(pyatspi.STATE_ENABLED) else None
        act_on(until(ready), *actions)

    def end(self):
        self.process.terminate()
        self.process.wait()


def act_on(item, *actions):
    known = item.queryAction()
    names = [known.getName(i) for i in range(known.nActions)]
    known.doAction(next(i for i, name in enumerate(names) if name in actions))


def main():
    if INSIDE not in os.environ:
        sys.exit(run_in_session())
    unittest.main()
