# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of scripts/layers.py: what it lets pass and what it refuses, on trees of one file."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "layers.py"


def check(path, line):
    """Exit status and output of the check for a tree whose only file holds one line."""
    with tempfile.TemporaryDirectory() as root:
        file = Path(root, "src", path)
        file.parent.mkdir(parents=True)
        file.write_text(f"#pragma once\n{line}\n")
        done = subprocess.run([sys.executable, SCRIPT, root], capture_output=True, text=True)
        return done.returncode, done.stdout + done.stderr


class LayersTest(unittest.TestCase):
    def test_lets_pass(self):
        for path, line in [
            ("platform/Date.cpp", "#include <unicode/calendar.h>"),
            ("platform/Date.cpp", "#include <sys/stat.h>"),
            ("pipeline/Node.h", '#include "metadata/TagManager.h"'),
            ("metadata/TagManager.h", '#include "pipeline/Node.h"'),
            ("formats/sub/Csv.h", '#include "formats/Cell.h"'),
            ("helpers/Exif.cpp", "#include <exiv2/exiv2.hpp>"),
            ("lists/tables/TagTable.cpp", "#include <QTableView>"),
            ("apps/marquell-list/main.cpp", '#include "lists/ColumnList.h"'),
            ("apps/marquell-list/main.cpp", '#include "CommandLine.h"'),
            ("metadata/TagManager.h", "// #include <QString>"),
        ]:
            with self.subTest(path=path, line=line):
                self.assertEqual(check(path, line), (0, ""))

    def test_refuses(self):
        for path, line in [
            ("platform/Date.cpp", '#include "pipeline/Node.h"'),
            ("metadata/TagManager.h", '#include "formats/Csv.h"'),
            ("pipeline/Node.cpp", "#include <unicode/unistr.h>"),
            ("pipeline/Node.cpp", '#include "unicode/unistr.h"'),
            ("formats/Csv.cpp", "  #  include <fmt/core.h>"),
            ("variables/Variable.h", "#include <QtCore/QString>"),
            ("lists/ColumnList.h", "#include <QString>"),
            ("lists/ColumnList.h", '#include "lists/tables/TagTable.h"'),
            ("apps/marquell-list/main.cpp", "#include <qstring.h>"),
            ("helpers/Exif.cpp", '#include "platform/Date.h"'),
            ("platform/Zip.cpp", "#include <zip.h>"),
            ("platform/Boost.cpp", "#include <boost/asio.hpp>"),
            ("platform/Path.cpp", '#include "Path.h"'),
        ]:
            with self.subTest(path=path, line=line):
                status, output = check(path, line)
                self.assertEqual(status, 1)
                self.assertIn(f"src/{path}:2: {line.strip()}: ", output)

    def test_refuses_a_folder_without_a_row(self):
        status, output = check("misc/Thing.h", "#include <vector>")
        self.assertEqual((status, output.split(": ")[0]), (1, "src/misc/Thing.h"))


if __name__ == "__main__":
    unittest.main()
