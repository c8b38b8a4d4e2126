# SPDX-License-Identifier: GPL-3.0-or-later
"""Small well-formed inputs that the fuzzers begin with."""

import io
import struct
import sys
import zipfile
import zlib
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))
from document_bytes import DOCUMENTS  # noqa: E402
from id3_bytes import full_tag  # noqa: E402
from sound_bytes import FILES as SOUNDS  # noqa: E402


def big(form, *numbers):
    return struct.pack(">" + form, *numbers)


def little(form, *numbers):
    return struct.pack("<" + form, *numbers)


def box(kind, content=b""):
    return big("I", 8 + len(content)) + kind + content


def full_box(kind, content=b"", version=0, flags=0):
    return box(kind, big("I", version << 24 | flags) + content)


def profile():
    text = b"A profile\0"
    description = b"desc" + bytes(4) + big("I", len(text)) + text + bytes(78)
    tags = big("I4sII", 1, b"desc", 144, len(description))
    header = (big("I", 144 + len(description)) + bytes(4) + b"\x02\x10\0\0" + b"mntrRGB XYZ "
              + bytes(12) + b"acsp" + bytes(88))
    return header + tags + description


def jpeg():
    def segment(marker, content):
        return b"\xff" + bytes([marker]) + big("H", 2 + len(content)) + content
    return (b"\xff\xd8" + segment(0xE0, b"JFIF\0\1\2" + big("BHHH", 1, 300, 300, 0))
            + segment(0xE2, b"ICC_PROFILE\0\1\1" + profile())
            + segment(0xC0, big("BHHB", 8, 20, 30, 3) + bytes(9)) + b"\xff\xda")


def png():
    def chunk(kind, content):
        return big("I", len(content)) + kind + content + big("I", zlib.crc32(kind + content))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", big("IIBBBBB", 30, 20, 8, 2, 0, 0, 0))
            + chunk(b"iCCP", b"name\0\0" + zlib.compress(profile()))
            + chunk(b"pHYs", big("IIB", 11811, 11811, 1)) + chunk(b"IDAT", b""))


def bmp():
    header = little("IiiHHIIiiII", 124, 30, -20, 1, 32, 3, 0, 2835, 2835, 0, 0)
    header += little("IIII", 0xFF0000, 0xFF00, 0xFF, 0) + b"DEBM" + bytes(48)
    header += little("IIII", 0, 124, len(profile()), 0)
    return b"BM" + little("IHHI", 0, 0, 0, 138) + header[:124] + profile()


def webp():
    def chunk(kind, content):
        return kind + little("I", len(content)) + content + bytes(len(content) % 2)
    chunks = (chunk(b"VP8X", bytes(4) + b"\x1d\0\0\x13\0\0") + chunk(b"ICCP", profile())
              + chunk(b"VP8L", b"\x2f\x1d\xc0\x04\0"))
    return b"RIFF" + little("I", 4 + len(chunks)) + b"WEBP" + chunks


def psd():
    def resource(number, content):
        return (b"8BIM" + big("HHI", number, 0, len(content)) + content
                + bytes(len(content) % 2))
    resources = (resource(0x3ED, big("IHHIHH", 300 << 16, 1, 1, 300 << 16, 1, 1))
                 + resource(0x40F, profile()))
    return (b"8BPS" + big("H6xHIIHH", 1, 3, 20, 30, 8, 3) + big("I", 0)
            + big("I", len(resources)) + resources)


def jp2():
    header = (box(b"ihdr", big("IIHBBBB", 20, 30, 3, 7, 7, 0, 0))
              + box(b"res ", box(b"resd", big("HHHHbb", 11811, 1, 11811, 1, 0, 0)))
              + box(b"colr", b"\2\0\0" + profile()))
    return (b"\0\0\0\x0cjP  \r\n\x87\n" + box(b"ftyp", b"jp2 \0\0\0\0jp2 ") + box(b"jp2h", header)
            + box(b"jp2c", b""))


def code_stream():
    return (b"\xff\x4f\xff\x51" + big("HHIIIIIIIIHBBB", 41, 0, 30, 20, 0, 0, 30, 20, 0, 0, 1, 7, 1,
                                      1))


def heif():
    exif = big("I", 6) + b"Exif\0\0II*\0" + bytes(8)
    items = [full_box(b"infe", big("HH", 1, 0) + b"grid\0", 2),
             full_box(b"infe", big("HH", 2, 0) + b"Exif\0", 2),
             full_box(b"infe", big("HH", 3, 0) + b"mime\0application/rdf+xml\0", 2),
             full_box(b"infe", big("HH", 4, 0) + b"hvc1\0", 2)]
    data = exif + b"<x/>" + bytes(4) + big("HH", 30, 20)
    places = [(2, 0, len(exif)), (3, len(exif), 4), (1, len(exif) + 4, 8)]
    locations = b"\x44\0" + big("H", len(places)) + b"".join(
        big("HHHHII", item, 1, 0, 1, offset, length) for item, offset, length in places)
    properties = (box(b"ipco", full_box(b"ispe", big("II", 30, 20))
                      + full_box(b"pixi", b"\3\x0a\x0a\x0a") + box(b"colr", b"prof" + profile())
                      + box(b"hvcC", bytes(17) + b"\2" + bytes(5)))
                  + full_box(b"ipma", big("IHBBBBHBB", 2, 1, 3, 1, 0x82, 3, 4, 1, 4)))
    children = (full_box(b"hdlr", bytes(4) + b"pict" + bytes(13)) + full_box(b"pitm", big("H", 1))
                + full_box(b"iinf", big("H", len(items)) + b"".join(items))
                + full_box(b"iref", box(b"cdsc", big("HHH", 2, 1, 1))
                           + box(b"dimg", big("HHH", 1, 1, 4)))
                + box(b"iprp", properties) + full_box(b"iloc", locations, 1) + box(b"idat", data))
    return box(b"ftyp", b"mif1\0\0\0\0mif1heic") + full_box(b"meta", children)


def old_formats():
    yield b"GIF89a" + little("HH", 30, 20)
    yield little("HHHBBBBHHII", 0, 1, 1, 30, 20, 0, 0, 1, 32, 40, 22) + little("I", 40) + bytes(36)
    yield little("BBBHHBHHHHBB", 0, 0, 2, 0, 0, 0, 0, 0, 30, 20, 16, 0)


def value(key, kind, content):
    return struct.pack("=HHI", key, kind, len(content)) + content


def packages():
    members = {"docx": "docProps/core.xml", "odt": "meta.xml", "epub": "OEBPS/book.opf"}
    for choice, (extension, member) in enumerate(members.items(), 1):
        content = DOCUMENTS[extension](1)[0]
        yield b"\0" + content
        yield bytes([choice]) + zipfile.ZipFile(io.BytesIO(content)).read(member)


IMAGES = [bytes([2]) + image for image in (jpeg(), png(), bmp(), webp(), psd(), jp2(),
                                           code_stream(), heif(), profile(), *old_formats())]
REPLIES = [value(1, 1, struct.pack("=d", 0.5)) + value(2, 2, "é".encode())
           + value(3, 3, struct.pack("=I", 1) + b"a" + struct.pack("=I", 0))
           + value(9, 4, struct.pack("=dd", 1, 2)), b""]
PACKAGES = [*packages()]
WEB_PAGES = [DOCUMENTS["html"](1)[0]]
MESSAGES = [DOCUMENTS["eml"](1)[0]]
ID3_TAGS = [full_tag(version, *options)[0] for version, options in (
    (2, ()), (2, (False, True)), (3, ()), (3, (True, True, True)), (4, ()),
    (4, (True, True, True)))]
SOUND_FILES = [build(1)[0] for build in SOUNDS.values()]
WORDS = ("ICC_PROFILE JFIF acsp desc mluc IHDR iCCP pHYs IDAT VP8X ICCP 8BIM jp2h ihdr bpcc pclr "
         "colr resc resd ftyp heic mif1 msf1 avif meta pitm iinf infe iloc iprp ipco ipma ispe pixi "
         "hvcC av1C iref cdsc dimg idat prof rICC Exif mime "
         "ID3 TT2 COM TXXX COMM USLT SYLT MCDI RVA2 TCON TYER TDAT APIC TAG "
         "dc:title dc:creator cp:keywords cp:version dcterms:created meta:keyword dc:date refines "
         "&amp; &#233; charset= iso-8859-2 http-equiv content og:title <title> </title> <script "
         "From: Cc: Date: Subject: Keywords: =?utf-8?Q? =?utf-8?B? ?= =E2 GMT "
         "moov udta ilst keys mdta data mvhd trak mdia mdhd loci kywd yrrc ---- RIFF RIFX RF64 ds64 "
         "WAVE LIST INFO bext FORM AIFC COMM SSND COMT caff pakt fLaC").split()
