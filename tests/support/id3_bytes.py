# SPDX-License-Identifier: GPL-3.0-or-later
"""ID3v2 tags made byte by byte, whose values tell the frames apart."""

import re
import zlib

ENCODINGS = ("latin-1", "utf-16", "utf-16-be", "utf-8")

# Version -> its frames that are nothing but a text, and nothing but an address.
TEXTS = {
    2: "TAL TBP TCM TCR TDA TDY TEN TFT TIM TKE TLA TLE TMT TOA TOF TOL TOR TOT TP1 TP2 TP3 TP4 "
       "TPA TPB TRC TRD TRK TSI TSS TT1 TT2 TT3 TXT TYE",
    3: "TALB TBPM TCOM TCOP TDAT TDLY TENC TEXT TFLT TIME TIT1 TIT2 TIT3 TKEY TLAN TLEN TMED TOAL "
       "TOFN TOLY TOPE TORY TOWN TPE1 TPE2 TPE3 TPE4 TPOS TPUB TRCK TRDA TRSN TRSO TSIZ TSRC TSSE "
       "TYER",
    4: "TALB TBPM TCOM TCOP TDEN TDLY TDOR TDRC TDRL TDTG TENC TEXT TFLT TIT1 TIT2 TIT3 TKEY TLAN "
       "TLEN TMED TMOO TOAL TOFN TOLY TOPE TOWN TPE1 TPE2 TPE3 TPE4 TPOS TPRO TPUB TRCK TRSN TRSO "
       "TSOA TSOP TSOT TSRC TSSE TSST",
}
ADDRESSES = {2: "WAF WAR WAS WCM WCP WPB", 3: "WCOM WCOP WOAF WOAR WOAS WORS WPAY WPUB"}
ADDRESSES[4] = ADDRESSES[3]


def big(number, length):
    return number.to_bytes(length, "big")


def encoded(text, encoding):
    """A text with what ends it; encoding as the number that frames have."""
    if encoding == 1:
        text = "\ufeff" + text
    return (text + "\0").encode("utf-16-le" if encoding == 1 else ENCODINGS[encoding])


def others(encoding):
    """The frames with a form of their own: identifiers of the versions, content, written form."""
    kind = bytes([encoding])

    def text(value):
        return encoded(value, encoding)

    cd = b"".join(b"\0\x10" + bytes([track, 0]) + big(place, 4)
                  for track, place in ((1, 0), (2, 17901), (0xAA, 200000)))
    people = (kind + text("mix") + text("Jörg") + text("cut") + text("Ute"), "mix: Jörg, cut: Ute")
    equalized = (b"\x10" + big(0x8000 | 40, 2) + big(300, 2) + big(1000, 2) + big(5, 2),
                 "40 Hz +300, 1000 Hz -5")
    return [
        ("CNT PCNT", big(70000, 4), "70000"),
        ("COM COMM", kind + b"deu" + text("note") + text("Größe"), "note: Größe"),
        ("ETC ETCO", b"\2\2" + big(0, 4) + b"\3" + big(61250, 4) + b"\x99" + big(62000, 4),
         "0.000 s: intro start, 61.250 s: main part start, 62.000 s: event 153"),
        ("EQU EQUA3", *equalized),
        ("IPL IPLS3", *people),
        ("LNK", b"TT2http://a.example\0one\0two\0", "TT2: http://a.example, one, two"),
        ("LINK", b"TIT2http://a.example\0one\0two\0", "TIT2: http://a.example, one, two"),
        ("MCI MCDI", big(len(cd) + 2, 2) + b"\1\2" + cd, "150, 18051, 200150"),
        ("POP POPM", b"me@a.example\0\xc4" + big(7, 4), "me@a.example: rating 196, played 7"),
        ("REV RVRB", big(200, 2) + big(250, 2) + bytes(range(1, 9)),
         "left 200 ms, right 250 ms, bounces left 1, bounces right 2, feedback left to left 3, "
         "feedback left to right 4, feedback right to right 5, feedback right to left 6, "
         "premix left to right 7, premix right to left 8"),
        ("RVA RVAD3", b"\1\x10" + big(300, 2) + big(20, 2) + big(900, 2) + big(800, 2),
         "right +300, left -20"),
        ("SLT SYLT", kind + b"eng\2\1" + text("") + text("Strang") + big(0, 4) + text("ers ")
         + big(9, 4) + text("in") + big(99, 4) + text("\nthe night") + big(999, 4),
         "Strangers in\nthe night"),
        ("STC SYTC", b"\2\x78" + big(0, 4) + b"\xff\x2d" + big(1500, 4) + b"\0" + big(2000, 4),
         "0.000 s: 120 bpm, 1.500 s: 300 bpm, 2.000 s: no beat"),
        ("TCO TCON", kind + text("(17)(39)Köln"), "Rock, Noise, Köln"),
        ("TXX TXXX", kind + text("näme") + text("välue"), "näme: välue"),
        ("UFI UFID", b"http://a.example\0id-17", "http://a.example: id-17"),
        ("ULT USLT", kind + b"eng" + text("lang") + text("Zeile 1\nZeile 2"),
         "lang: Zeile 1\nZeile 2"),
        ("WXX WXXX", kind + text("wö") + b"http://b.example", "wö: http://b.example"),
        ("COMR", kind + b"EUR9.99\x0020301231http://c.example\0\3" + text("Händler") + text("Lied"),
         "EUR9.99, valid until 2030-12-31, http://c.example, file over the Internet, Händler, "
         "Lied"),
        ("ENCR", b"http://d.example\0\x80key", "http://d.example: method 128, key"),
        ("GRID", b"http://e.example\0\x81\1\2", "http://e.example: group 129, 0102"),
        ("OWNE", kind + b"EUR1.00\x0020240229" + text("Müller"), "EUR1.00, 2024-02-29, Müller"),
        ("POSS", b"\1" + big(1234, 4), "frame 1234"),
        ("PRIV", b"http://f.example\0\0\xff\0\x10", "http://f.example: 00ff0010"),
        ("USER", kind + b"eng" + text("Für alle"), "Für alle"),
        ("EQU24", b"\1speaker\0" + big(81, 2) + big(1280, 2) + big(2000, 2) + big(0xFF00, 2),
         "speaker: 40.5 Hz +2.5 dB, 1000 Hz -0.5 dB"),
        ("RVA24", b"album\0\1" + big(0xF340, 2) + b"\x10\0\1" + b"\2" + big(512, 2) + b"\0",
         "album: master volume -6.4 dB, front right +1.0 dB"),
        ("SIGN4", b"\x81\xab\xcd", "group 129: abcd"),
        ("TIPL4", *people),
        ("TMCL4", *people),
    ]


def frames_of(version):
    """A frame of each kind that has a text in the version: identifier, content, written form."""
    encodings = 4 if version == 4 else 2
    for number, name in enumerate(TEXTS[version].split()):
        encoding = number % encodings
        yield name, bytes([encoding]) + encoded(f"Wért of {name}", encoding), f"Wért of {name}"
    for name in ADDRESSES[version].split():
        yield name, f"http://{name}.example/".encode(), f"http://{name}.example/"
    for number in range(len(others(0))):
        names, content, text = others(number % encodings)[number]
        for name in names.split():
            # A digit behind the name is the only newer version that has the frame.
            name, only = name[:4], int(name[4:] or 0)
            if (len(name) == 3) == (version == 2) and only in (0, version):
                yield name, content, text


def seven_bits(number):
    return bytes(number >> shift & 0x7F for shift in (21, 14, 7, 0))


def unsynchronised(content):
    return re.sub(rb"\xff(?=[\xe0-\xff\x00]|\Z)", b"\xff\0", content)


def frame(version, name, content, compress=False, unsynchronise=False):
    """Compression is for versions from 3 on. In version 4 frames are unsynchronised one by one."""
    if version == 2:
        return name.encode() + big(len(content), 3) + content
    flags = 0
    if compress:
        length = seven_bits(len(content)) if version == 4 else big(len(content), 4)
        content = length + zlib.compress(content)
        flags = 0x09 if version == 4 else 0x80
    if version == 4 and unsynchronise:
        content = unsynchronised(content)
        flags |= 0x02
    length = seven_bits(len(content)) if version == 4 else big(len(content), 4)
    return name.encode() + length + bytes([0, flags]) + content


def tag_of(version, frames, extend=False, unsynchronise=False, padding=64):
    """A tag around frames that are bytes already."""
    flags = 0
    if extend:
        flags |= 0x40
        frames = (b"\0\0\0\6\1\0" if version == 4 else big(6, 4) + bytes(6)) + frames
    frames += bytes(padding)
    if unsynchronise:
        flags |= 0x80
        if version < 4:
            frames = unsynchronised(frames)
    return b"ID3" + bytes([version, 0, flags]) + seven_bits(len(frames)) + frames


def full_tag(version, extend=False, unsynchronise=False, compress=False):
    """A tag with one frame of each kind that has a text, and the written forms by identifier."""
    frames, texts = b"", {}
    for name, content, text in frames_of(version):
        frames += frame(version, name, content, compress, unsynchronise)
        texts[name] = text
    return tag_of(version, frames, extend, unsynchronise), texts
