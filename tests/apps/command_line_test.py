# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of marquell-list from outside: its options, messages and exit statuses.

Environment: MARQUELL_LIST is the program.
"""

import os
import pty
import re
import resource
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.environ.get("MARQUELL_LIST", "")
LOCALE = ("LC_ALL", "LC_TIME", "LC_NUMERIC", "LANG", "LANGUAGE")
AS_ROOT = os.geteuid() == 0


class CommandLineTest(unittest.TestCase):
    def setUp(self):
        self.top = Path(tempfile.mkdtemp(prefix="marquell-")).resolve()
        self.addCleanup(shutil.rmtree, self.top)
        self.tree = self.top / "tree"
        self.tree.mkdir()
        (self.tree / "b.txt").write_bytes(b"x" * 2500)
        (self.tree / "a").mkdir()

    def run_program(self, *arguments, variables=(), **how):
        """Status, standard output and standard error, run beside the tree."""
        environment = {k: v for k, v in os.environ.items() if k not in LOCALE and k != "PWD"}
        environment.update(variables)
        how = {"cwd": self.top, "capture_output": True, **how}
        done = subprocess.run([PROGRAM, *arguments], env=environment, timeout=120, **how)
        # The line is one that builds for debugging have for their developers.
        errors = (done.stderr or b"").replace(b"disposing of end of life bag\n", b"")
        return done.returncode, done.stdout, errors.decode()

    def lists(self, expected, *arguments, **how):
        self.assertEqual(self.run_program(*arguments, **how), (0, expected, ""))

    def refuses(self, message, *arguments, **how):
        expected = (2, b"", f"marquell-list: {message}\n")
        self.assertEqual(self.run_program(*arguments, **how), expected)

    def test_wrong_usage(self):
        no_option = 'option "{}": there is no such option{}'.format
        of_settings = self.run_program("-s", "x=1", "t")[2].split(" The settings are: ")[1].strip()
        self.assertEqual(len(of_settings.split(", ")), 18)
        for message, *arguments in [
            ("found no source, expected a PATH or --from0; see --help",),
            ("found no source, expected a PATH or --from0; see --help", "-q", "--"),
            ('source "": found an empty name, expected a path', "tree", ""),
            (no_option("--colums", '; did you mean "columns"?'), "tree", "--colums", "name"),
            (no_option("--colums", '; did you mean "columns"?'), "--colums=name", "tree"),
            (no_option("--xyz", "."), "--xyz", "tree"),
            (no_option("-x", ""), "tree", "-qx"),
            (no_option("-\\u{1b}", ""), "-\x1b[2J"),
            ('option "--quiet=1": it takes no argument', "tree", "--quiet=1"),
            ('option "-c": expected an argument', "tree", "-c"),
            ('option "--from0": expected an argument', "tree", "--from0"),
            ("option -o: found an empty name, expected a file", "-o", "", "tree"),
            ("option -o: found twice, expected one file", "-o", "a", "-o", "b", "tree"),
            ("option -o: found twice, expected one file", "-o", "-", "-o", "-", "tree"),
            ('format "jsno": expected one of csv, tsv, json, html, html-fragment, spreadsheet',
             "-f", "jsno", "tree"),
            ('column "nmae": there is no such column; did you mean "name"? See --list-columns',
             "-c", "absolute_path,nmae", "tree"),
            ('column "SIZE": there is no such column; did you mean "size"? See --list-columns',
             "--columns=SIZE", "tree"),
            ('column "": there is no such column. See --list-columns', "-c", "name,", "tree"),
            ('column "\\u{a}\\x{ff}": there is no such column. See --list-columns',
             "-c", b"\n\xff", "tree"),
            ('column "gps_lat": there is no such column; did you mean "gps_latitude"? '
             'See --list-columns', "-c", "gps_lat", "tree"),
            ('tag space "IPTC": there is no such tag space; did you mean "IPTCIISLegacy"? '
             'See --list-columns', "-c", "@IPTC", "tree"),
            ('tag space "exif": there is no such tag space; did you mean "EXIF"? '
             "See --list-columns", "-c", "@exif", "tree"),
            ('option -s: found "quoteStrings", expected NAME=VALUE', "-s", "quoteStrings", "tree"),
            ('setting "quoteString": there is no such setting; did you mean "quoteStrings"?'
             f" The settings are: {of_settings}", "-s", "quoteString=1", "tree"),
            ('setting "quoteStrings": found "yes", expected true, false, 1 or 0',
             "-s", "quoteStrings=yes", "tree"),
            ('setting "firstSortMode": found "16", expected a sort mode from 0 to 15',
             "-s", "firstSortMode=16", "tree"),
            ('setting "secondSortMode": found "-1", expected a sort mode from 0 to 15',
             "-s", "secondSortMode=-1", "tree"),
            ('setting "nullValuesMode": found "1 ", expected a whole number',
             "-s", "nullValuesMode=1 ", "tree"),
            ('setting "outputFormat" is given by -f', "-s", "outputFormat=0", "tree"),
            ('setting "sourceList" is given by a PATH or --from0', "-s", "sourceList=/", "tree"),
            ('setting "columnList" is given by -c', "-s", "columnList=name", "tree"),
            *((f'option --jobs: found "{number}", expected a number from 1 to 1024',
               "--jobs", number, "tree") for number in ("0", "-1", "", "2x", "1025", "9" * 20)),
            ('--from0 "none": No such file or directory', "--from0", "none"),
            ('--from0 "tree": Is a directory', "--from0", "tree"),
        ]:
            with self.subTest(arguments=arguments):
                self.refuses(message, *arguments)

    def test_sources(self):
        file = self.row("tree/b.txt")
        both = self.row("tree/a") + file
        all_tie = ["-s", "firstSortMode=8", "-s", "secondSortMode=8"]  # the sources' order stays
        self.lists(both, "tree")
        self.lists(both, f"{self.top}//tree/a/../.", "-q", "--jobs", "3", "-f", "csv")
        self.lists(both, "--", "./tree/")
        self.lists(file * 2, "tree/b.txt", "tree/b.txt")
        (self.top / "-c").touch()
        self.lists(self.row("-c"), "--", "-c")
        for records in (b"tree", b"\0\0tree\0\0", bytes(self.tree) + b"/a\0tree/\0"):
            self.lists(both, "--from0", "-", input=records)
        for records in (b"", b"\0\0"):
            self.lists(b"", "--from0", "-", input=records)
        (self.top / "records").write_bytes(b"tree/b.txt\0")
        self.lists(both + file, "--from0=records", "tree", *all_tie)
        (self.top / "new\nline").mkdir()
        (self.top / "new\nline" / os.fsdecode(b"\xff")).touch()
        self.lists("\"\uFFFD\"\n".encode(), "-c", "name", "--from0", "-", input=b"new\nline")

    def test_relative_sources_begin_in_the_current_folder(self):
        real = self.top / "real" / "inner"
        real.mkdir(parents=True)
        (real / "x").touch()
        (self.top / "link").symlink_to("real/inner")
        for pwd, path in [("link", "link/x"), ("real/inner/", "real/inner/x"),
                          ("real", "real/inner/x"), ("none", "real/inner/x")]:
            self.lists(self.row(path), ".", cwd=real, variables={"PWD": f"{self.top}/{pwd}"})
        # It names the folder for the kernel, but not once ".." is taken out of the text.
        self.lists(self.row("real/inner/x"), "inner", cwd=self.top / "real",
                   variables={"PWD": f"{self.top}/link/.."})
        self.lists(self.row("real/inner/x"), ".", cwd=real, variables={"PWD": "."})

    def test_in_a_folder_that_is_gone_only_absolute_sources_serve(self):
        gone = self.top / "gone"
        gone.mkdir()
        how = {"cwd": gone, "preexec_fn": gone.rmdir}
        self.lists(self.row("tree/b.txt"), str(self.tree / "b.txt"), **how)
        message = 'source "x": the current folder is gone, expected an absolute path'
        for arguments in (["x"], ["--from0", "-"]):
            gone.mkdir()
            self.refuses(message, *arguments, input=b"/\0x", **how)

    def test_columns(self):
        for columns, expected in [
            (["-c", ""], b"\n"),
            (["-c", "", "-c", "name"], b'"b.txt"\n'),
            (["-c", "name,size", "--columns=name"], b'"b.txt","2500","b.txt"\n'),
            (["-c", "size_in_bytes", "-c", "extension"], b'"2500","txt"\n'),
        ]:
            self.lists(expected, "tree/b.txt", *columns)
        titles = self.run_program("-c", "@ID3", "--from0", "-", "-s", "includeColumnTitlesMode=2",
                                  stdin=subprocess.DEVNULL)
        self.assertRegex(titles[1].decode(), r'^("[^"]+ \(ID3\)",)+"[^"]+ \(ID3\)"\n$')
        self.assertEqual(titles[2], "")

    def test_information(self):
        for option, beginning in [
            ("--help", b"Usage: marquell-list "),
            ("--version", b"marquell-list "),
            ("--list-columns", b"id\ttag space\tsource\tdisplay name\tabbreviation\n"),
        ]:
            status, text, messages = self.run_program(option)
            self.assertEqual((status, messages), (0, ""))
            self.assertTrue(text.startswith(beginning) and text.endswith(b"\n"), text)
        # What the kernel offers is not the test's business, but a build has readers that start.
        readers = self.run_program("--version")[1].decode().splitlines()[1:]
        confined = r"confined by (a system call filter( and file system rules)?|file system rules)"
        how = "not confined by the kernel"
        if not re.search("address|thread", os.environ.get("MARQUELL_SANITIZE", "")):
            how = f"({confined}|{how})"
        self.assertEqual(len(readers), 2)
        for line, kind in zip(readers, ("light", "heavy")):
            self.assertRegex(line, f"^{kind} readers of files: {how}$")
        text = self.run_program("--help")[1].decode()
        for option in ("--columns", "--format", "--set", "--output", "--from0", "--list-columns",
                       "--jobs", "--quiet", "--help", "--version", "jsonDateFormatMode"):
            self.assertIn(option, text)

    def test_names_what_could_not_be_read(self):
        (self.top / "loop").symlink_to("loop")
        name = b"gone\x1b\xff"
        gone = f'marquell-list: "{self.top}/gone\\u{{1b}}\\x{{ff}}": No such file or directory\n'
        for options in ([], ["-q"], ["-c", "name,size"]):
            status, text, messages = self.run_program("tree/b.txt", "loop", name, *options)
            self.assertEqual((status, messages), (1, gone))
            self.assertEqual(text.count(b"\n"), 3)
        unwritten = "the list could not be written: No such file or directory\n"
        self.assertEqual(self.run_program(name, "-o", "none/list"),
                         (3, b"", f'marquell-list: "none/list": {unwritten}'))  # before any reading

    @unittest.skipIf(AS_ROOT, "nothing is closed to the superuser")
    def test_closed_folders(self):
        self.tree.chmod(0o500)
        self.addCleanup(self.tree.chmod, 0o700)
        self.fails_to_write("Permission denied", "-o", "tree/list")
        self.tree.chmod(0)
        status, text, messages = self.run_program("tree")
        self.assertEqual((status, text), (1, b""))
        self.assertEqual(messages, f'marquell-list: "{self.tree}": Permission denied\n')

    def fails_to_write(self, reason, *arguments, **how):
        status, text, messages = self.run_program("tree", *arguments, **how)
        self.assertEqual((status, text or b""), (3, b""))
        expected = f"^marquell-list: .*: the list could not be written: {re.escape(reason)}\n$"
        self.assertRegex(messages, expected)

    def test_a_list_that_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            self.fails_to_write("No space left on device", capture_output=False, stdout=full,
                                stderr=subprocess.PIPE)
        reader, writer = os.pipe()
        os.close(reader)
        self.fails_to_write("Broken pipe", capture_output=False, stdout=writer,
                            stderr=subprocess.PIPE)
        os.close(writer)
        before = sorted(os.listdir(self.top))
        for reason, target in [
            ("Is a directory", "tree"),
            ("No such file or directory", "none/x"),
            ("Not a directory", "tree/b.txt/x"),
            ("File name too long", "n" * 256),
            ("No space left on device", "/dev/full"),
        ]:
            self.fails_to_write(reason, "-o", target)
        self.assertEqual(sorted(os.listdir(self.top)), before)

    def test_output_file_is_replaced_whole_or_not_at_all(self):
        target = self.top / "list"
        target.write_bytes(b"old")
        target.chmod(0o640)
        self.lists(b"", "tree", "-o", "list")
        self.assertEqual(target.read_bytes(), self.row("tree/a") + self.row("tree/b.txt"))
        self.assertEqual(target.stat().st_mode & 0o777, 0o640)
        target.write_bytes(b"old")
        self.fails_to_write("File too large", "-o", "list", preexec_fn=lambda: resource.setrlimit(
            resource.RLIMIT_FSIZE, (20, 20)))
        self.refuses("found no source, expected a PATH or --from0; see --help", "-o", "list")
        self.assertEqual(target.read_bytes(), b"old")
        self.assertEqual(sorted(os.listdir(self.top)), ["list", "tree"])
        with open(target, "ab") as stream:
            self.run_program("-o", "/dev/stdout", "-c", "name", "tree", capture_output=False,
                             stdout=stream)
        self.assertEqual(target.read_bytes(), b'old"a"\n"b.txt"\n')

    def test_formats(self):
        for name, form in [
            ("csv", b'"{}"\n'), ("tsv", b'"{}"\n'), ("spreadsheet", b'"{}"\n'),
            ("json", b'[\n\t{\n\t\t"name":"{}"\n\t}\n]'),
            ("html-fragment", b"<table>\n\t<tr>\n\t\t<td>{}</td>\n\t</tr>\n</table>\n"),
        ]:
            self.lists(form.replace(b"{}", b"b.txt"), "-f", name, "-c", "name", "tree/b.txt")
        html = self.run_program("-f", "html", "tree")[1]
        self.assertTrue(html.startswith(b"<!DOCTYPE html>\n") and html.endswith(b"</html>"))

    def test_encodings(self):
        (self.tree / "b.txt").rename(self.tree / "a\u0308\u4e2d")
        latin = ["-s", "encodingMode=7", "-c", "extension,name"]
        row = f'row 2, column "name", "{self.tree}/a\u0308\u4e2d"'
        lacking = (f'ISO-8859-1 has no U+4E2D "\u4e2d" ({row}); '
                   'UTF-8 (encodingMode=0) has all characters')
        self.fails_to_write(lacking, *latin)
        self.fails_to_write(lacking, *latin, "-f", "json", "-o", "list")
        self.assertFalse((self.top / "list").exists())
        self.lists(b"\xff\xfe" + '"a"\n"a\u0308\u4e2d"\n'.encode("utf-16-le"),
                   "-s", "encodingMode=1", "-c", "name", "tree", "-o", "-")
        os.remove(self.tree / "a\u0308\u4e2d")
        (self.tree / "a\u0308").touch()
        self.lists(b'"","a"\n"","\xe4"\n', "tree", *latin)
        html = self.run_program("tree", *latin, "-f", "html")[1]
        self.assertIn("<td>a\u0308</td>".encode(), html, "always UTF-8")

    def test_closed_standard_streams(self):
        for stream, status in ((0, 0), (1, 3), (2, 0)):
            how = {"preexec_fn": lambda stream=stream: os.close(stream)}
            self.assertEqual(self.run_program("tree", **how)[0], status)
            self.assertEqual(self.run_program("tree", "gone", "-o", "list", **how)[0], 1)
            self.assertEqual((self.top / "list").read_bytes().count(b"\n"), 3)
        self.fails_to_write("Bad file descriptor", "-o", "/dev/stdout",
                            preexec_fn=lambda: os.close(1))
        self.refuses('--from0 "-": Bad file descriptor', "--from0", "-",
                     preexec_fn=lambda: os.close(0))

    def test_progress_is_for_terminals(self):
        # More and more to do until the run takes long enough for a look at its progress.
        for records in (10**4, 10**5, 10**6, 10**7):
            shown = self.shown_on_terminal("--from0", "-", input=b"tree/b.txt\0" * records)
            if shown:
                break
        self.assertRegex(shown, rb"\d+ items|Computing output \(\d+/\d+\)")
        self.assertTrue(shown.endswith(b"\r\x1b[K"), shown[-100:])
        many = ["--from0", "-"]
        self.assertEqual(self.shown_on_terminal("-q", *many, input=b"tree\0" * records), b"")
        shown = self.shown_on_terminal("-o", "/dev/full", *many, input=b"tree\0" * records)
        self.assertIn(b"\r\x1b[Kmarquell-list: \"/dev/full\": ", shown)

    def shown_on_terminal(self, *arguments, input):
        ours, theirs = pty.openpty()
        with tempfile.TemporaryFile() as records, open(ours, "rb", buffering=0) as terminal:
            records.write(input)
            records.seek(0)
            program = subprocess.Popen([PROGRAM, *arguments], cwd=self.top, stdin=records,
                                       stdout=subprocess.DEVNULL, stderr=theirs)
            os.close(theirs)
            shown = b""
            try:
                while piece := terminal.read(4096):
                    shown += piece
            except OSError:  # so a terminal tells that nobody has it open any more
                pass
            program.wait()
        return shown

    def test_locale_of_dates_and_sizes(self):
        os.truncate(self.tree / "b.txt", 1_234_567)
        os.utime(self.tree / "b.txt", ns=(0, 1_709_993_107_999_999_999))
        for variables, size, date in [
            ({}, "1.2 MB", "Mar 9, 2024, 2:05 PM"),
            ({"LANG": "de_DE.UTF-8"}, "1,2 MB", "09.03.2024, 14:05"),
            ({"LANG": "de_DE.UTF-8", "LC_TIME": "en_GB.UTF-8"}, "1,2 MB", "9 Mar 2024, 14:05"),
            ({"LANG": "en_GB", "LC_NUMERIC": "de_DE"}, "1,2 MB", "9 Mar 2024, 14:05"),
            ({"LC_ALL": "C", "LANG": "de_DE"}, "1.2 MB", "Mar 9, 2024, 2:05 PM"),
            ({"LC_ALL": "", "LC_TIME": "", "LANG": "de_DE"}, "1,2 MB", "09.03.2024, 14:05"),
        ]:
            with self.subTest(variables=variables):
                self.lists(f'"{size}","{date}"\n'.encode(), "tree/b.txt", "-s", "dateFormatMode=3",
                           "-c", "human_readable_size,modification_date",
                           variables={"TZ": "UTC", **variables})
                self.lists(b'"2024-03-09 02:05:07 PM"\n', "tree/b.txt", "-s", "dateFormatMode=2",
                           "-c", "modification_date", variables={"TZ": "UTC", **variables})

    def test_creation_date(self):
        born = subprocess.check_output(["stat", "-c", "%w", self.tree / "b.txt"], text=True)
        self.lists(f'"{"" if born == "-" else born[:19]}"\n'.encode(), "tree/b.txt", "-c",
                   "creation_date", "-s", "dateFormatMode=1")

    def test_use_settings(self):
        file = self.top / "config" / "marquell" / "settings.json"
        here = {"variables": {"XDG_CONFIG_HOME": str(self.top / "config")}}
        self.lists(self.row("tree"), "--use-settings", "tree", **here)
        self.assertFalse(file.parent.parent.exists(), "reading writes nothing")
        file.parent.mkdir(parents=True)
        settings = ('{"version": 1, "settings": {"Columns": ["name", "unknown"], "firstSortMode": 1,'
                    ' "quoteStrings": 0, "nullValuesMode": 2.0, "boolValuesMode": "x",'
                    ' "outputFormat": 77, "Sources": ["/"], "prodcessSubfolders": true}}')
        file.write_text(settings)
        self.lists(b"b.txt,n/a\na,n/a\n", "--use-settings", "tree", **here)
        self.lists(b"b.txt,\n", "-snullValuesMode=0", "-s", "processFolders=0", "--use-settings",
                   "tree", **here)
        self.lists(b'"2500"\n', "-csize_in_bytes", "--use-s", "tree/b.txt", "-squoteStrings=1", **here)
        self.lists(self.row("tree/a") + self.row("tree/b.txt"), "tree", **here)
        self.refuses("found no source, expected a PATH or --from0; see --help", "--use-settings", **here)
        for broken in ('{"settings":', "[]", "", '{"settings": {}}\0'):
            file.write_text(broken)
            status, out, err = self.run_program("--use-settings", "-q", "tree", **here)
            self.assertEqual((status, out), (1, self.row("tree")))
            self.assertIn(f'marquell-list: settings file "{file}": ', err)
            self.assertEqual(file.read_text(), broken)
        self.assertEqual(os.listdir(file.parent), ["settings.json"])

    def row(self, path):
        return f'"{Path(path).name}","{self.top / path}"\n'.encode()


if __name__ == "__main__":
    if not PROGRAM:
        raise SystemExit("MARQUELL_LIST must name the program")
    unittest.main()
