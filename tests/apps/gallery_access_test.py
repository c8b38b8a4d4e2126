#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The gallery as assistive programs see it: names, roles and states of the controls, and that they
can be used from outside."""

import os
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))
import accessible
from accessible import act_on, until

if accessible.INSIDE in os.environ:
    import pyatspi

GALLERY = os.environ.get("MARQUELL_GALLERY", "")


class GalleryTest(unittest.TestCase):
    def open(self, page):
        gallery = accessible.Program([GALLERY, "--light", "--page", page])
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
                                           "First: By name and sequence number (from A to Z)"))
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
        act_on(box, "Toggle", "Press")
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
    accessible.main()
