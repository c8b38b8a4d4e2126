# SPDX-License-Identifier: GPL-3.0-or-later
"""Documents that are made to crash, hang or fill up what reads them."""

import struct
import zlib

from document_bytes import DOCUMENTS, package
from hostile_images import deflated_zeros

DEEP = 100_000
MEGABYTE = 2**20
CORE = "docProps/core.xml"


def office_of(properties):
    return package({"[Content_Types].xml": b"", CORE: properties})


def directory_entry(name, packed, unpacked, offset, method=8):
    return struct.pack("<4s6H3I5H2I", b"PK\1\2", 20, 20, 0, method, 0, 0, 0, packed, unpacked,
                       len(name), 0, 0, 0, 0, 0, offset) + name


def directory_end(count, length, offset):
    return struct.pack("<4s4H2IH", b"PK\5\6", 0, 0, count & 0xFFFF, count & 0xFFFF, length, offset, 0)


def member(name, content, method=8):
    return struct.pack("<4s5H3I2H", b"PK\3\4", 20, 0, method, 0, 0, 0, len(content), 0, len(name),
                       0) + name + content


def archive(content, entries, count):
    return content + entries + directory_end(count, len(entries), len(content))


def packages():
    names = [b"[Content_Types].xml", CORE.encode()]
    bomb = deflated_zeros(200 * MEGABYTE)[2:-4]
    spaces = zlib.compress(b"<coreProperties>" + b" " * 200 * MEGABYTE, 9)[2:-4]
    nothing = b"\0\0\0\xff\xff" * (10 * MEGABYTE)  # blocks that unpack to nothing
    for kind, packed in (("zeros", bomb), ("blanks", spaces), ("nothing", nothing)):
        content = member(names[1], packed)
        entries = (directory_entry(names[0], 0, 0, 0)
                   + directory_entry(names[1], len(packed), 2**32 - 2, 0))
        yield f"bomb of {kind}.docx", archive(content, entries, 2)
    good = member(names[1], b"<coreProperties/>", 0)
    for name, length, offset in (("length", 2**32 - 2, 0), ("offset", 17, 2**32 - 2),
                                 ("wide", 2**32 - 1, 2**32 - 1)):
        entries = b"".join(directory_entry(each, length, length, offset, 0) for each in names)
        yield f"{name} that lies.docx", archive(good, entries, 2)
    entries = directory_entry(names[0], 17, 17, 0, 0) * 350_000
    yield "a directory of many.docx", archive(good, entries + directory_entry(names[1], 17, 17, 0),
                                              350_001)
    for extension, wanted in (("epub", b"META-INF/container.xml"), ("odt", b"meta.xml")):
        entries = directory_entry(b"x", 17, 17, 0, 0) * 10**6 + directory_entry(wanted, 17, 17, 0)
        yield f"many of one place.{extension}", archive(good, entries, 10**6 + 1)
    yield "a directory of the file.docx", good + directory_end(1, 2**32 - 2, 0)
    yield "ends.docx", directory_end(1, 46, 0) * 10_000
    wide = struct.pack("<4sQHHIIQQQQ", b"PK\6\6", 44, 45, 45, 0, 0, 2**63, 2**63, 2**64 - 1,
                       2**64 - 1)
    locator = struct.pack("<4sIQI", b"PK\6\7", 0, 0, 1)
    yield "wide directory.docx", wide + locator + directory_end(1, 2**32 - 1, 2**32 - 1)


def nested(name):
    return f"<{name}>".encode() * DEEP


def xml_documents():
    entities = "".join(f'<!ENTITY e{i + 1} "{f"&e{i};" * 10}">' for i in range(20))
    laughs = f'<!DOCTYPE x [<!ENTITY e0 "ha">{entities}]>'.encode()
    yield "entities", laughs + b"<coreProperties><title>&e20;</title></coreProperties>"
    yield "outside", (b'<!DOCTYPE x [<!ENTITY e SYSTEM "file:///etc/passwd">]>'
                      b"<coreProperties><title>&e;</title></coreProperties>")
    yield "doctypes", b"<!DOCTYPE x [" + b"<!A [" * DEEP
    yield "deep", b"<coreProperties>" + nested("a")
    yield "deep title", b"<coreProperties><title>" + nested("a")
    yield "titles", b"<coreProperties>" + nested("title")
    yield "creators", b"<coreProperties>" + nested("creator") + b"x"
    yield "nodes", b"<coreProperties>" + b"<a>x" * (MEGABYTE // 4)
    yield "people", b"<coreProperties><creator>" + b"x;" * (MEGABYTE // 2)
    yield "keywords", b"<coreProperties>" + b"<keywords>a</keywords>" * DEEP
    yield "attributes", b"<coreProperties><a" + b" a=''" * DEEP + b"/>"
    yield "bytes", b"<coreProperties><title>\xff\0\xfe&#0;&#xD800;&#x1F;</title>"


def xml_packages():
    for name, content in xml_documents():
        yield f"{name}.docx", office_of(content)
        yield f"{name}.odt", package({"meta.xml": content.replace(b"coreProperties", b"meta")})
        yield f"{name}.epub", package({
            "META-INF/container.xml": '<rootfile full-path="x"/>',
            "x": content.replace(b"coreProperties", b"metadata")})
        yield f"{name} in the container.epub", package({"META-INF/container.xml": content})
    yield "a loop.epub", package({"META-INF/container.xml":
                                  '<rootfile full-path="META-INF/container.xml"/>'})
    roles = b'<meta refines="#a" property="role">edt</meta>' * 20_000
    yield "roles.epub", package({"META-INF/container.xml": '<rootfile full-path="x"/>',
                                 "x": b"<metadata>" + roles})


def pages():
    start = b"<html><head>"
    for name, unit in (("tags", b"<"), ("comments", b"<!--"), ("scripts", b"<script>"),
                       ("titles", b"<title>"), ("ends", b"<title></titl"), ("attributes", b"<meta a "),
                       ("names", b"<meta name=author content=x;>"), ("quotes", b'<meta name="'),
                       ("one tag", b" a=b"), ("references", b"<title>&#55555;&"), ("slashes", b"/")):
        yield f"{name}.html", start + unit * (2 * MEGABYTE // len(unit))
    yield "one tag.xhtml", start + b"<meta" + b" name=a" * MEGABYTE
    yield "one title.html", start + b"<title>" + b"&amp;" * 40_000 + b"</title>"
    yield "half a character.html", b"\xff\xfe" + "<html><title>x</title>".encode("utf-16-le") + b"<"


def messages():
    start = b"From: a\nSubject: b\n"
    for name, unit in (("headers", b"a:\n"), ("words", b"=?utf-8?Q?=E2?="), ("half words", b"=?"),
                       ("open words", b"=?a?Q?"), ("comments", b"("), ("addresses", b"a,"),
                       ("brackets", b"<"), ("quotes", b'"\\'), ("groups", b"a:;"), ("lines", b"\n "),
                       ("from", b"From: x,y\n"), ("zeros", b"\0"), ("high", b"\xff")):
        for header in (b"To: ", b"Subject: ", b"Date: "):
            yield f"{name} in {header[:2].decode()}.eml", header + unit * (MEGABYTE // len(unit))
        yield f"{name}.eml", start + unit * (2 * MEGABYTE // len(unit))
    yield "one line.eml", b"From: " + b"x" * 2 * MEGABYTE


def broken():
    """The good ones cut off, and with bytes changed."""
    for extension, make in DOCUMENTS.items():
        content = make(1)[0]
        for length in range(0, len(content), 37):
            yield f"cut at {length}.{extension}", content[:length]
        for place in range(0, len(content), 23):
            changed = bytearray(content)
            changed[place] ^= 0xFF
            yield f"changed at {place}.{extension}", bytes(changed)


KINDS = (packages, xml_packages, pages, messages, broken)
