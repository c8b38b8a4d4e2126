#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The window used from outside, as assistive programs use it: from a folder to a saved list."""

import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))
import accessible
from accessible import act_on, until

if accessible.INSIDE in os.environ:
    import pyatspi

WINDOW = os.environ.get("MARQUELL", "")
LIST = os.environ.get("MARQUELL_LIST", "")
DOWN, RETURN = 0xff54, 0xff0d  # key symbols of X
CONTROLS = {"push button", "check box", "combo box", "text", "radio button", "table",
            "document text"}


class WindowAccessTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.sources = self.folder / "pictures & <b>more"
        self.sources.mkdir()
        for name in ("b.txt", "a \u202e.txt", "c.txt"):
            (self.sources / name).write_bytes(b"x")
        self.environment = {**os.environ, "XDG_CONFIG_HOME": str(self.folder / "config"),
                            "XDG_DATA_HOME": str(self.folder / "data")}

    def start(self):
        window = accessible.Program([WINDOW], cwd=self.folder, env=self.environment)
        self.addCleanup(window.end)
        return window

    def dialog(self, window, title, seconds=20):
        def shown():
            return next((item for item in window.root
                         if item.name == title and item.getState().contains(
                             pyatspi.STATE_SHOWING)), None)
        return until(shown, seconds)

    def press_save(self, window):
        """The dialog; None while the text of the newest choice is still to come."""
        window.act("push button", "Save", "Press")
        try:
            return self.dialog(window, "Save List", 1)
        except AssertionError:
            return None

    def type_name(self, dialog, text):
        def field():
            return next(item for item in descendants(dialog) if item.getRoleName() == "text")
        until(field).queryEditableText().setTextContents(str(text))

    def press_in(self, dialog, name):
        button = until(lambda: next(
            item for item in descendants(dialog)
            if item.getRoleName() == "push button" and item.name == name
            and item.getState().contains(pyatspi.STATE_ENABLED)))
        act_on(button, "Press")

    def test_every_control_has_a_name(self):
        window = self.start()
        until(lambda: window.find("push button", "Add …"))
        nameless = [item.getRoleName() for item in window.all()
                    if item.getRoleName() in CONTROLS and not item.name
                    and item.getState().contains(pyatspi.STATE_SHOWING)]
        self.assertEqual(nameless, [])
        self.assertIsNotNone(window.find("combo box", "Null values: Empty String"))
        lines = [item for item in window.all() if item.getRoleName() == "status bar"]
        self.assertEqual([bool(item.name) for item in lines], [True])
        marked = [item.description for item in window.all() if "<" in item.description]
        self.assertEqual(marked, [])

    def test_from_a_folder_to_a_saved_list(self):
        window = self.start()
        window.act("push button", "Add …", "Press")
        dialog = self.dialog(window, "Add Files and Folders")
        self.type_name(dialog, self.sources)
        self.press_in(dialog, "Add")
        window.act("check box", "Subfolders and their contents", "Toggle", "Press")
        formats = until(lambda: window.find(
            "combo box", "Output Format: Comma Separated Values (CSV & Excel)"))
        act_on(formats, "ShowMenu")
        until(lambda: next(item for item in descendants(formats) if item.name == "JSON"))
        for key in (DOWN, DOWN, RETURN):
            pyatspi.Registry.generateKeyboardEvent(key, None, pyatspi.KEY_SYM)
        until(lambda: window.find("combo box", "Output Format: JSON"))
        saved = self.folder / "list.json"
        dialog = until(lambda: self.press_save(window))
        self.type_name(dialog, saved)
        self.press_in(dialog, "Save")
        text = until(lambda: saved.exists() and saved.read_bytes())
        names = [row["name"] for row in json.loads(text)]
        self.assertEqual([name for name in names if name.endswith(".txt")],
                         ["a \u202e.txt", "b.txt", "c.txt"])
        listed = subprocess.run([LIST, "--use-settings", str(self.sources)], env=self.environment,
                                cwd=self.folder, stdout=subprocess.PIPE, check=True).stdout
        self.assertEqual(text, listed)


def descendants(item):
    for child in item:
        if child:
            yield child
            yield from descendants(child)


if __name__ == "__main__":
    accessible.main()
