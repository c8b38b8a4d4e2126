# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that hostile values come back from every format, read by a parser of that format.

Environment: MARQUELL_FORMAT_WRITER is the program that writes the lists, see format_writer.cpp.
"""

import collections
import csv
import io
import itertools
import json
import os
import random
import re
import subprocess
import unicodedata
import unittest
from html.parser import HTMLParser

WRITER = os.environ.get("MARQUELL_FORMAT_WRITER", "")
FORMATS = {"csv": 0, "tsv": 1, "html": 2, "html-fragment": 3, "spreadsheet": 4, "json": 5}
DELIMITERS = {"csv": ",", "tsv": "\t", "spreadsheet": "\t"}
LINE_BREAKS = ("\n", "\r", "\r\n")
# Quotes, escapes, and which values can't be told from what the format itself writes.
RECORD_MODES = [(1, 0, "(?!)"), (1, 1, r"\\[nrt]"), (0, 0, "[\r\n\t,]"), (0, 1, r"\\[nrt]|,")]
# By mode, with what Python can write there and ICU in full width only.
ENCODINGS = {1: ("utf-16", ""), 2: ("mac-roman", ""), 8: ("iso8859-2", ""),
             12: ("shift-jis", "\u00a2\u00a3\u00ac")}
UNKNOWN = 'no "such",\t\\column\r\n<td>&\x00\x1f'  # a column without values
COLUMNS = [UNKNOWN, "name", "exif_make", "absolute_path", "exif_model", "exif_make"]

PIECES = [chr(code) for code in itertools.chain(range(0xB0), range(0x2000, 0x2070))] + [
    # line breaks and what looks like an escape or an end; formulas
    "\r\n", "\n\r", "\\n", "\\r", "\\t", "\\\\n", "\\u0041", "\\u000", '\\"', '\\\\"', '""', '"""',
    '","', '"\t"', '"\n"', ", ", "''", "null", "-0", "1e999", "NaN", "file.txt", "=1+1", "+1", "-1",
    "@SUM(A1)", "=cmd|'/C calc'!A0", '=HYPERLINK("x")', "\t=1", "\r=1",
    # markup, also within longer characters
    "</td>", "</TD >", "</table>", "<tr><td>", "<!--", "-->", "<!", "<?", "]]>", "<![CDATA[",
    "<script>", "</script>", "<br/>", "&amp;", "&lt", "&#39;", "&#x3c;", "&#60", "&copy", "&notit;",
    "\u0600<script>", "\U000110bd<b>", "<\u0338", ">\u0338", "&\u0301", '"\u0301', "'\u20dd",
    "\\\u0301", ",\u0301", "\n\u0301", "\t\u200d", "\r\n\u0301",
    # signs that have entities, also in longer characters
    "\u20ac", "\u00a9\ufe0f", "\u00ae\ufe0e", "\u20ac\u0301", "\u0600\u00a3", "\u00a9\u200d\u00ae",
    # marks and joiners, characters beyond 16 bits and those that are none
    "\u0301", "\u0301" * 40, "e\u0301\u0323\u20dd", "e\u0301", "\u00e9", "\u1112\u1161\u11ab",
    "\u061c", "\ufeff", "\ufffe", "\uffff", "\ufdd0", "\ufffd", "\U0001fffe", "\U0010ffff",
    "\U0001f469\u200d\U0001f467", "\U0001f44d\U0001f3fd", "\U0001f1e9\U0001f1ea\U0001f1eb",
    "1\ufe0f\u20e3", "\U0001d11e", "\ue000",
    # letters of smaller encodings, some with a byte that is a backslash; nothing to see
    "\u0159\u017e\u0151", "\u8868\u30bd", "\u304b\u3099", "\u2212", "\u03c0", "", "   ", "\u3000"]
INVALID = [b"\xff", b"\xfe\xff", b"\x80", b"\xc3", b"\xe2\x82", b"\xe2\x82<", b"\xc0\xaf",
           b"\xed\xa0\x80", b"\xf0\x9f\x98", b"\xf4\x90\x80\x80", b"\xc2\"", b"\xe2\x80\n"]
REPEATED = ["a", '"', "<", "\\", "\n", "\0", "\u00a9", "\u00a9\ufe0f", "\u0301", "\u0600",
            "\U0001f1e9", "\U0001f469\u200d"]

chance = random.Random(1)
VALUES = PIECES + ["".join(chance.choices(PIECES, k=chance.randrange(2, 30))) for _ in range(400)]
NAMES = list(filter(None, [re.sub("[/\0]", "", value).encode()[:255] for value in VALUES])) + [
    around + name + around[::-1] for name in INVALID for around in (b"", b"\xc3\xa9,")]
csv.field_size_limit(1 << 30)


def shown(name):
    """The text of a name: each byte that is no part of a character is one replacement."""
    return re.sub("[\udc80-\udcff]", "\ufffd", name.decode("utf-8", "surrogateescape"))


def make_list(fits=lambda value: True):
    """The texts of a list, made of what fits, and the rows that are to come back."""
    names = [name for name in NAMES if fits(shown(name))]
    values = [value for value in VALUES if fits(value)]
    assert len(names) > 100 and len(values) > 100
    texts, rows = [], []
    for i in range(max(len(names), len(values))):
        name, make, model = names[i % len(names)], *(values[k % len(values)] for k in (i, ~i))
        texts += [name, make.encode(), model.encode()]
        rows.append(["", shown(name), make, f"/{i + 1}/{shown(name)}", model, make])
    return texts, rows


def write(name, texts, encoding="utf-8", **settings):
    """The list in a format, in a time that allows for a slow machine and no quadratic search."""
    head = [b"%d" % len(COLUMNS), *map(str.encode, COLUMNS)]
    done = subprocess.run(
        [WRITER, str(FORMATS[name]), *(f"{key}={value}" for key, value in settings.items())],
        input=b"".join(b"%d:%b" % (len(text), text) for text in head + texts),
        stdout=subprocess.PIPE, check=True, timeout=60)
    return done.stdout.decode(encoding)


def records(name, text, has_quotes=True, has_escapes=False):
    for row in csv.reader(io.StringIO(text, newline=""), delimiter=DELIMITERS[name], strict=True,
                          quoting=csv.QUOTE_ALL if has_quotes else csv.QUOTE_NONE):
        if not has_quotes:
            row = [cell.replace('""', '"') for cell in row]
        if has_escapes:
            row = [re.sub(r"\\([nrt])", lambda escape: "\n\r\t"["nrt".index(escape[1])], cell)
                   for cell in row]
        yield row


def objects(text):
    for members in json.loads(text, object_pairs_hook=list):
        assert [key for key, _ in members] == COLUMNS, ascii(members)
        yield ["" if key == UNKNOWN and value is None else value for key, value in members]


class Pieces(HTMLParser):
    """Tags, and behind each the text up to the next."""

    def __init__(self, text):
        super().__init__()
        self.all = []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attrs):
        self.all += [self.get_starttag_text(), ""]

    def handle_endtag(self, tag):
        self.all += [f"</{tag}>", ""]

    def handle_data(self, data):
        self.all[-1] += data


def table_rows(text, line_break="\n"):
    """Of a table without indentation in which nothing but plain cells has a text."""
    pieces = Pieces(text).all
    assert (pieces[:2], pieces[-2:]) == (["<table>", line_break], ["</table>", line_break])
    cells = ["<td>", "", "</td>", line_break] * len(COLUMNS)
    row = ["<tr>", line_break, *cells, "</tr>", line_break]
    for start in range(2, len(pieces) - 2, len(row)):
        found = pieces[start:start + len(row)]
        values, found[3:-2:4] = found[3:-2:4], [""] * len(COLUMNS)
        assert found == row, ascii(found)
        yield values


class FormatsTest(unittest.TestCase):
    def same(self, found, rows):
        found = list(found)
        self.assertEqual(len(found), len(rows))
        for row, values in zip(found, rows):
            if row != values:
                self.fail(f"{row!a:.1000} instead of {values!a:.1000}")

    def has_lines(self, text, line_break, number):
        found = collections.Counter(re.findall("\r\n|\r|\n", text))
        self.assertEqual(found, {line_break: number})

    def test_records(self):
        for name, mode, (quotes, escapes, lost) in itertools.product(
                ("csv", "tsv"), range(3), RECORD_MODES):
            texts, rows = make_list(lambda value: not re.search(lost, value))
            text = write(name, texts, quoteStrings=quotes, multiLineMode=escapes,
                         linebreaksMode=mode, includeColumnTitlesMode=quotes)
            found = list(records(name, text, quotes, escapes))
            if quotes:
                titles = found.pop(0)
                self.assertEqual((len(titles), titles[0]), (len(COLUMNS), UNKNOWN))
            self.same(found, rows)
            if escapes or not quotes:
                self.has_lines(text, LINE_BREAKS[mode], len(rows) + quotes)

    def test_spreadsheet(self):
        texts, rows = make_list()
        text = write("spreadsheet", texts, quoteStrings=0, multiLineMode=1, linebreaksMode=2)
        self.same(records("spreadsheet", text), rows)

    def test_json(self):
        texts, rows = make_list()
        for mode, line_break in enumerate(LINE_BREAKS):
            text = write("json", texts, linebreaksMode=mode)
            self.same(objects(text), rows)
            self.has_lines(text, line_break, 1 + len(rows) * (2 + len(COLUMNS)))

    def test_html(self):
        texts, rows = make_list()
        for mode, line_break in enumerate(LINE_BREAKS):
            how = {"linebreaksMode": mode, "htmlIndentationMode": 0}
            table = write("html-fragment", texts, **how)
            self.same(table_rows(table, line_break), rows)
            # A parser reads these too, but text that is pasted into an attribute must not end it.
            self.assertIsNone(re.search("[\"']", table))
            self.assertEqual(write("html", texts, **how).count(table), 1)

    def test_encodings(self):
        for mode, (encoding, others) in ENCODINGS.items():
            def form(value):
                return value if mode == 1 else unicodedata.normalize("NFC", value)

            def fits(value):
                read = form(value).encode(encoding, "ignore").decode(encoding, "ignore")
                return read == form(value) and not set(read) & set(others)

            texts, rows = make_list(fits)
            text = write("json", texts, encoding, encodingMode=mode)
            self.same(objects(text), [list(map(form, row)) for row in rows])

    def test_large(self):
        large = [text * (1_000_000 // len(text.encode())) for text in REPEATED]
        texts = list(itertools.chain(*([b"a", b"", value.encode()] for value in large)))
        rows = [["", "a", "", f"/{i}/a", value, ""] for i, value in enumerate(large, 1)]
        for name in DELIMITERS:
            self.same(records(name, write(name, texts)), rows)
        self.same(objects(write("json", texts)), rows)
        self.same(table_rows(write("html-fragment", texts, htmlIndentationMode=0)), rows)


if __name__ == "__main__":
    if not WRITER:
        raise SystemExit("MARQUELL_FORMAT_WRITER must name the program to test")
    unittest.main()
