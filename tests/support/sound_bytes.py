# SPDX-License-Identifier: GPL-3.0-or-later
"""Small sound and video files made byte by byte, whose tags tell the fields apart.

FILES has for each extension a function of a number that returns a file's bytes and, by key, what it
says of itself. Texts differ by key, number and kind of file. The sound is 0.1 s of silence: 800
samples of 16 bits.
"""

import struct

RATE, SAMPLES = 8000, 800
SILENCE = bytes(2 * SAMPLES)


def big(form, *numbers):
    return struct.pack(">" + form, *numbers)


def little(form, *numbers):
    return struct.pack("<" + form, *numbers)


def value(key, kind, number):
    """The text of a key in a file."""
    name = key.removeprefix("commonKey")
    return {"CreationDate": f"2024-02-29T12:30:{number % 60:02}+01:00",
            "LastModifiedDate": f"2024-03-01T12:30:{number % 60:02}Z",
            "Location": "+52.5000-013.2500/"}.get(name, f"{kind} {name} ä {number}")


def filled(rows, kind, number):
    """(field, text) pairs for "field key" lines, and the texts by key."""
    pairs = [line.split() for line in rows.strip().splitlines()]
    pairs = [(field.replace("_", " "), name if name == "lyrics" else "commonKey" + name)
             for field, name in pairs]
    texts = {key: value(key, kind, number) for _, key in pairs}
    return [(field, texts[key]) for field, key in pairs], texts


NAMES = """
title Title\nartist Artist\nauthor Author\ncomposer Creator\nalbum AlbumName\npublisher Publisher
producer Contributor\nsubject Subject\ndescription Description\ncreationdate CreationDate
modificationdate LastModifiedDate\ncopyright Copyrights\ngenre Type\nformat Format\nsource Source
identifier Identifier\nrelation Relation\nlanguage Language\nlocation.ISO6709 Location\nmake Make
model Model\nsoftware Software\nlyrics lyrics"""
INFO = """
INAM Title\nIART Artist\nIWRI Author\nIMUS Creator\nIPRD AlbumName\nIPUB Publisher\nIENG Contributor
ISBJ Subject\nICRD CreationDate\nICOP Copyrights\nIGNR Type\nIMED Format\nISRC Source\nILNG Language
IBSU Relation\nIARL Location\nISFT Software\nILYC lyrics"""
EXIF = "ecor Make\nemdl Model"
BROADCAST = "description Description\nreference Identifier"
AIFF = "NAME Title\nAUTH Author\n(c)_ Copyrights\nANNO Description"
ITEMS = """
©nam Title\n©ART Artist\n©aut Author\n©wrt Creator\n©alb AlbumName\n©pub Publisher\n©prd Contributor
catg Subject\ndesc Description\n©day CreationDate\ncprt Copyrights\n©gen Type\n©fmt Format
©src Source\nxid_ Identifier\ntvsh Relation\n©xyz Location\n©mak Make\n©mod Model\n©too Software
©lyr lyrics"""
CLASSIC = """
©nam Title\n©ART Artist\n©aut Author\n©com Creator\n©alb AlbumName\n©pub Publisher\n©dir Contributor
©key Subject\n©des Description\n©day CreationDate\n©cpy Copyrights\n©gen Type\n©fmt Format
©src Source\n©xyz Location\n©mak Make\n©mod Model\n©swr Software"""
MOBILE = """
titl Title\nperf Artist\nauth Author\nalbm AlbumName\ndscp Description\ncprt Copyrights\ngnre Type
coll Relation"""


def riff_chunk(kind, content):
    return kind.encode() + little("I", len(content)) + content + bytes(len(content) % 2)


def wave(number):
    def texts_of(pairs):
        return b"".join(riff_chunk(field, text.encode() + b"\0") for field, text in pairs)
    info, expected = filled(INFO, "WAV", number)
    exif, more = filled(EXIF, "WAV", number)
    extension, most = filled(BROADCAST, "WAV", number)
    broadcast = (extension[0][1].encode().ljust(256, b"\0") + bytes(32)
                 + extension[1][1].encode().ljust(32, b"\0")).ljust(602, b"\0")
    content = (b"WAVE" + riff_chunk("bext", broadcast)
               + riff_chunk("fmt ", little("HHIIHH", 1, 1, RATE, 2 * RATE, 2, 16))
               + riff_chunk("data", SILENCE) + riff_chunk("LIST", b"INFO" + texts_of(info))
               + riff_chunk("LIST", b"exif" + texts_of(exif)))
    return b"RIFF" + little("I", len(content)) + content, {**expected, **more, **most}


def aiff(number):
    def chunk(kind, content):
        return kind.encode() + big("I", len(content)) + content + bytes(len(content) % 2)
    pairs, expected = filled(AIFF, "AIFF", number)
    rate = big("HQ", 16383 + 12, RATE << (63 - 12))
    content = (b"AIFF" + chunk("COMM", big("HIH", 1, SAMPLES, 16) + rate)
               + b"".join(chunk(kind, text.encode()) for kind, text in pairs)
               + chunk("SSND", bytes(8) + SILENCE))
    return b"FORM" + big("I", len(content)) + content, expected


def caf(number):
    def chunk(kind, content):
        return kind + big("q", len(content)) + content
    pairs, expected = filled(NAMES, "CAF", number)
    texts = "".join(f"{name}\0{text}\0" for name, text in pairs).encode()
    return (b"caff\0\1\0\0" + chunk(b"desc", big("d4sIIIII", RATE, b"lpcm", 0, 2, 1, 1, 16))
            + chunk(b"info", big("I", len(pairs)) + texts) + chunk(b"data", bytes(4) + SILENCE),
            expected)


def au(number):
    pairs, expected = filled(NAMES, "AU", number)
    texts = "".join(f"{name}={text}\n" for name, text in pairs).encode() + b"\0"
    return (b".snd" + big("IIIII", 24 + len(texts), len(SILENCE), 3, RATE, 1) + texts + SILENCE,
            expected)


def flac(number):
    pairs, expected = filled(NAMES, "FLAC", number)
    fields = [f"{name.upper()}={text}".encode() for name, text in pairs]
    comments = little("I", 4) + b"test" + little("I", len(fields)) + b"".join(
        little("I", len(field)) + field for field in fields)
    stream = big("HH", 4096, 4096) + bytes(6) + big("Q", RATE << 44 | 15 << 36 | SAMPLES) + bytes(16)
    return (b"fLaC" + big("I", len(stream)) + stream + big("I", 0x84000000 | len(comments))
            + comments, expected)


def box(kind, content=b""):
    return big("I", 8 + len(content)) + kind.encode("latin-1") + content


def full_box(kind, content=b"", version=0):
    return box(kind, big("I", version << 24) + content)


def track(offset):
    """A track of silence, which lies at the offset."""
    table = (full_box("stsd", big("I", 1) + box("sowt", bytes(6) + big("HQHHIHH", 1, 0, 1, 16, 0,
                                                                       RATE, 0)))
             + full_box("stts", big("III", 1, SAMPLES, 1))
             + full_box("stsc", big("IIII", 1, 1, SAMPLES, 1))
             + full_box("stsz", big("II", 2, SAMPLES)) + full_box("stco", big("II", 1, offset)))
    information = box("minf", full_box("smhd", bytes(4)) + box("dinf", full_box(
        "dref", big("I", 1) + b"\0\0\0\x0curl \0\0\0\1")) + box("stbl", table))
    media = (full_box("mdhd", big("IIIIHH", 0, 0, RATE, SAMPLES, 0x55C4, 0))
             + full_box("hdlr", b"mhlrsoun" + bytes(13)) + information)
    matrix = big("9I", 1 << 16, 0, 0, 0, 1 << 16, 0, 0, 0, 1 << 30)
    header = full_box("tkhd", big("IIIIIQHHHH", 0, 0, 1, 0, SAMPLES, 0, 0, 0, 256, 0) + matrix
                      + bytes(8))
    return box("trak", header + box("mdia", media))


def film(brand, tags, modified=0):
    """A film with the tags; its moment of change in seconds since 1904."""
    start = box("ftyp", brand + bytes(4) + brand) + box("mdat", SILENCE)
    header = full_box("mvhd", big("IIIIIH", 0, modified, RATE, SAMPLES, 1 << 16, 256) + bytes(10)
                      + big("9I", 1 << 16, 0, 0, 0, 1 << 16, 0, 0, 0, 1 << 30) + bytes(24)
                      + big("I", 2))
    return start + box("moov", header + track(len(start) - len(SILENCE)) + tags)


def data(text):
    return box("data", big("II", 1, 0) + text.encode())


def handler(kind):
    return full_box("hdlr", bytes(4) + kind + bytes(13))


def quicktime(number):
    """Tags by name, in a QuickTime file."""
    pairs, expected = filled(NAMES, "MOV", number)
    names = [b"com.apple.quicktime." + name.encode() for name, _ in pairs]
    keys = full_box("keys", big("I", len(names)) + b"".join(box("mdta", name) for name in names))
    items = box("ilst", b"".join(box(big("I", index).decode("latin-1"), data(text))
                                 for index, (_, text) in enumerate(pairs, 1)))
    return film(b"qt  ", box("meta", handler(b"mdta") + keys + items)), expected


def itunes(number):
    pairs, expected = filled(ITEMS, "M4A", number)
    own, more = filled("LANGUAGE Language", "M4A", number)
    expected |= more
    expected["commonKeyLastModifiedDate"] = "2024-03-01T12:30:15Z"
    items = b"".join(box(field, data(text)) for field, text in pairs) + b"".join(
        box("----", full_box("mean", b"com.apple.iTunes") + full_box("name", name.encode())
            + data(text)) for name, text in own)
    tags = box("udta", full_box("meta", handler(b"mdir") + box("ilst", items)))
    return film(b"M4A ", tags, 3792141015), expected


def classic(number):
    """Tags in the user data of a QuickTime file, in UTF-8."""
    pairs, expected = filled(CLASSIC, "QT", number)
    return film(b"qt  ", box("udta", b"".join(
        box(field, big("HH", len(text.encode()), 0x55C4) + text.encode())
        for field, text in pairs) + bytes(4))), expected


def mobile(number):
    pairs, expected = filled(MOBILE, "3GP", number)
    expected |= {"commonKeyCreationDate": str(1950 + number % 100),
                 "commonKeyLocation": "+52.5000-013.2500/", "commonKeySubject": "one, två"}
    place = b"\x55\xc4Berlin\0\0" + big("iii", -53 << 14, 105 << 15, 0) + b"earth\0\0"
    words = b"".join(bytes([len(word)]) + word for word in (b"one\0", "två".encode() + b"\0"))
    boxes = b"".join(full_box(field, b"\x55\xc4" + text.encode() + b"\0") for field, text in pairs)
    return film(b"3gp5", box("udta", boxes + full_box("yrrc", big("H", 1950 + number % 100))
                             + full_box("loci", place)
                             + full_box("kywd", b"\x55\xc4\2" + words))), expected


FILES = {"wav": wave, "aiff": aiff, "caf": caf, "au": au, "flac": flac, "mov": quicktime,
         "m4a": itunes, "qt": classic, "3gp": mobile}
