#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The gallery as assistive programs see it: names, roles and states of the controls, and that they
can be used from outside. Runs under a display and a session bus of its own."""

import os
import subprocess
import sys
import tempfile
import time
import unittest

GALLERY = os.environ.get("MARQUELL_GALLERY", "")
INSIDE = "MARQUELL_INSIDE_SESSION"


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
            return subprocess.run(["dbus-run-session", "--", "/usr/bin/python3", "-B", __file__],
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


class Gallery:
    """The program with one of its pages."""

    def __init__(self, page):
        pyatspi.Registry.getDesktop(0)  # starts the registry, which the program asks once
        self.process = subprocess.Popen([GALLERY, "--light", "--page", page],
                                        stderr=subprocess.DEVNULL)
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
                    yield from walk(child)
        return list(walk(self.root))

    def find(self, role, name):
        found = [item for item in self.all() if item.getRoleName() == role and item.name == name]
        return found[0] if found else None

    def end(self):
        self.process.terminate()
        self.process.wait()


class GalleryTest(unittest.TestCase):
    def open(self, page):
        gallery = Gallery(page)
        self.addCleanup(gallery.end)
        return gallery

    def test_every_control_has_its_role_and_name(self):
        gallery = self.open("Bricks and sizes")
        for role, name in EXPECTED:
            with self.subTest(role=role, name=name):
                until(lambda: gallery.find(role, name))
        nameless = [item.getRoleName() for item in gallery.all()
                    if item.getRoleName() in CONTROLS and not item.name
                    and item.getState().contains(pyatspi.STATE_SHOWING)]
        self.assertEqual(nameless, [])

    def test_a_popup_tells_its_choice_and_its_label(self):
        gallery = self.open("Form")
        popup = until(lambda: gallery.find("combo box",
                                           "By name and sequence number (from A to Z)"))
        labels = [relation.getTarget(0).name for relation in popup.getRelationSet()
                  if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
        self.assertEqual(labels, ["First:"])

    def test_a_box_pressed_from_outside_hides_a_fragment(self):
        gallery = self.open("Fragments")
        box = until(lambda: gallery.find("check box", "Hide fragment 1"))

        def titles():
            return [item for item in gallery.all() if item.name == "Fragment 1"
                    and item.getState().contains(pyatspi.STATE_SHOWING)]
        until(lambda: len(titles()) == 2)
        actions = box.queryAction()
        names = [actions.getName(i) for i in range(actions.nActions)]
        actions.doAction(next(i for i, name in enumerate(names) if name in ("Toggle", "Press")))
        until(lambda: not titles())
        self.assertTrue(until(lambda: box.getState().contains(pyatspi.STATE_CHECKED)))


CONTROLS = {"push button", "check box", "combo box", "text", "slider", "radio button", "spin button"}
EXPECTED = [
    ("push button", "Save As…"),
    ("push button", "Save"),
    ("check box", "Files & folders"),
    ("text", "Text"),
    ("text", "Number"),
    ("combo box", "Choice"),
    ("slider", "Amount"),
]

if __name__ == "__main__":
    if INSIDE not in os.environ:
        sys.exit(run_in_session())
    import pyatspi
    unittest.main()
