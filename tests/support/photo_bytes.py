# SPDX-License-Identifier: GPL-3.0-or-later
"""Photos made byte by byte, whose values tell them apart."""

import sys
import zlib
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "fuzz"))
from seeds import big, box, full_box, little, profile  # noqa: E402

BYTE, TEXT, SHORT, LONG, RATIONAL, OPAQUE = 1, 2, 3, 4, 5, 7
SIZES = {BYTE: 1, TEXT: 1, SHORT: 2, LONG: 4, RATIONAL: 8, OPAQUE: 1}
FORMS = {SHORT: "H", LONG: "I", RATIONAL: "I"}


def directory(entries, offset, following=0):
    """A TIFF directory for the offset, with its values behind it. Entries are by tag, each with its
    type and bytes, numbers (two for a rational) or, for another directory, a dictionary."""
    behind = offset + 6 + 12 * len(entries)
    table, values = little("H", len(entries)), b""
    for tag, (kind, value) in sorted(entries.items()):
        place = behind + len(values)
        if isinstance(value, dict):
            content = little("I", place)
            values += directory(value, place)
        elif isinstance(value, bytes):
            content = value
        else:
            content = little(f"{len(value)}{FORMS[kind]}", *value)
        count = len(content) // SIZES[kind]
        if len(content) > 4:
            values += content + bytes(len(content) % 2)
            content = little("I", place)
        table += little("HHI", tag, kind, count) + content.ljust(4, b"\0")
    return table + little("I", following) + values


def tiff(entries):
    return b"II*\0" + little("I", 8) + directory(entries, 8)


def entries_of(number, **more):
    """What a camera writes into its `number`th photo."""
    date = b"2024:02:%02d %02d:%02d:%02d\0" % (
        1 + number % 28, number // 3600 % 24, number // 60 % 60, number % 60)
    exif = {0x829A: (RATIONAL, (1, 10 + number)), 0x829D: (RATIONAL, (28, 10)),
            0x8822: (SHORT, (2,)), 0x8827: (SHORT, (100 + number,)), 0x9000: (OPAQUE, b"0231"),
            0x9003: (TEXT, date), 0x9004: (TEXT, date), 0x9201: (RATIONAL, (6, 1)),
            0x9202: (RATIONAL, (3, 1)), 0x9206: (RATIONAL, (3, 2)), 0x9207: (SHORT, (5,)),
            0x9208: (SHORT, (1,)), 0x9209: (SHORT, (16,)), 0x920A: (RATIONAL, (42, 10)),
            0x9286: (OPAQUE, b"ASCII\0\0\0Comment %d" % number), 0x9290: (TEXT, b"123\0"),
            0xA001: (SHORT, (1,)), 0xA002: (LONG, (4000,)), 0xA003: (LONG, (3000,)),
            0xA402: (SHORT, (0,)), 0xA403: (SHORT, (0,)), 0xA405: (SHORT, (28,)),
            0xA406: (SHORT, (0,)), 0xA420: (TEXT, b"%032d\0" % number),
            0xA433: (TEXT, b"Lens maker\0"), 0xA434: (TEXT, b"Lens 28 mm\0"), **more}
    gps = {0x00: (BYTE, b"\2\3\0\0"), 0x01: (TEXT, b"N\0"),
           0x02: (RATIONAL, (52, 1, 30, 1, number, 100)), 0x03: (TEXT, b"E\0"),
           0x04: (RATIONAL, (13, 1, 22, 1, number, 100)), 0x05: (BYTE, b"\0"),
           0x06: (RATIONAL, (number, 10)), 0x07: (RATIONAL, (12, 1, 30, 1, 15, 1)),
           0x10: (TEXT, b"T\0"), 0x11: (RATIONAL, (number, 2)), 0x12: (TEXT, b"WGS-84\0"),
           0x1D: (TEXT, date[:10] + b"\0")}
    return {0x10F: (TEXT, b"Maker\0"), 0x110: (TEXT, b"Model %d\0" % number),
            0x112: (SHORT, (1,)), 0x11A: (RATIONAL, (300, 1)), 0x11B: (RATIONAL, (300, 1)),
            0x128: (SHORT, (2,)), 0x132: (TEXT, date), 0x8769: (LONG, exif), 0x8825: (LONG, gps)}


def packet(content, size=0):
    """XMP around properties, padded to at least `size` bytes as programs do."""
    begin = (b'<?xpacket begin="\xef\xbb\xbf" id="W5M0MpCehiHzreSzNTczkc9d"?>'
             b'<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF '
             b'xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">'
             b'<rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/" '
             b'xmlns:photoshop="http://ns.adobe.com/photoshop/1.0/">')
    end = b"</rdf:Description></rdf:RDF></x:xmpmeta>"
    return (begin + content + end).ljust(size) + b'<?xpacket end="w"?>'


def packet_of(number):
    return packet(b"<photoshop:Headline>Headline %d</photoshop:Headline>" % number)


def data_set(number, content):
    """A field of the IPTC record."""
    return b"\x1c\2" + bytes([number]) + big("H", len(content)) + content


def resource(number, content):
    return b"8BIM" + big("HHI", number, 0, len(content)) + content + bytes(len(content) % 2)


def iptc_of(number):
    return data_set(0x5A, b"City %d" % number) + data_set(0x19, b"key") + data_set(0x19, b"word")


def segment(marker, content):
    return bytes([0xFF, marker]) + big("H", 2 + len(content)) + content


def jpeg(*segments, image=bytes(16)):
    return (b"\xff\xd8" + b"".join(segments) + segment(0xC0, big("BHHB", 8, 20, 30, 3) + bytes(9))
            + segment(0xDA, b"\3\1\0\2\x11\3\x11\0\x3f\0") + image + b"\xff\xd9")


def exif_segment(structure):
    return segment(0xE1, b"Exif\0\0" + structure)


def xmp_segment(content):
    return segment(0xE1, b"http://ns.adobe.com/xap/1.0/\0" + content)


def iptc_segment(*resources):
    return segment(0xED, b"Photoshop 3.0\0" + b"".join(resources))


def profile_segment(content):
    return segment(0xE2, b"ICC_PROFILE\0\1\1" + content)


def chunk(kind, content):
    return big("I", len(content)) + kind + content + big("I", zlib.crc32(kind + content))


def png(*chunks):
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", big("IIBBBBB", 30, 20, 8, 2, 0, 0, 0))
            + b"".join(chunks) + chunk(b"IDAT", b"") + chunk(b"IEND", b""))


def xmp_text(content):
    return chunk(b"iTXt", b"XML:com.adobe.xmp\0\0\0\0\0" + content)


def heif(exif, xmp):
    """An image that has these blocks beside it."""
    image = 1
    blocks = {2: (b"Exif\0", big("I", 6) + b"Exif\0\0" + exif),
              3: (b"mime\0application/rdf+xml\0", xmp)}
    items = full_box(b"infe", big("HH", image, 0) + b"hvc1\0", 2)
    references, places, data = b"", b"", b""
    for item, (kind, content) in blocks.items():
        items += full_box(b"infe", big("HH", item, 0) + kind, 2)
        references += box(b"cdsc", big("HHH", item, 1, image))
        places += big("HHHHII", item, 1, 0, 1, len(data), len(content))
        data += content
    properties = box(b"ipco", full_box(b"ispe", big("II", 30, 20))) + full_box(
        b"ipma", big("IHBB", 1, image, 1, 1))
    return box(b"ftyp", b"heic\0\0\0\0mif1heic") + full_box(b"meta", b"".join((
        full_box(b"hdlr", bytes(4) + b"pict" + bytes(13)), full_box(b"pitm", big("H", image)),
        full_box(b"iinf", big("H", 1 + len(blocks)) + items), full_box(b"iref", references),
        box(b"iprp", properties),
        full_box(b"iloc", b"\x44\0" + big("H", len(blocks)) + places, 1), box(b"idat", data))))


def jpeg_photo(number):
    return jpeg(exif_segment(tiff(entries_of(number))), xmp_segment(packet_of(number)),
                iptc_segment(resource(0x404, iptc_of(number))), profile_segment(profile()))


def png_photo(number):
    # The length of the profile stands in eight digits, itself in hexadecimal ones.
    exif = b"Exif\0\0" + tiff(entries_of(number))
    text = b"\nexif\n%8d\n%s\n" % (len(exif), exif.hex().encode())
    return png(chunk(b"zTXt", b"Raw profile type exif\0\0" + zlib.compress(text)),
               chunk(b"iCCP", b"name\0\0" + zlib.compress(profile())), xmp_text(packet_of(number)))


def tiff_photo(number):
    return tiff({**entries_of(number), 0x100: (LONG, (30,)), 0x101: (LONG, (20,)),
                 0x102: (SHORT, (8,)), 0x103: (SHORT, (1,)), 0x106: (SHORT, (1,)),
                 0x2BC: (BYTE, packet_of(number)), 0x83BB: (OPAQUE, iptc_of(number)),
                 0x8773: (OPAQUE, profile())})


def heif_photo(number):
    return heif(tiff(entries_of(number)), packet_of(number))


PHOTOS = {"jpg": jpeg_photo, "png": png_photo, "tif": tiff_photo, "heic": heif_photo}
