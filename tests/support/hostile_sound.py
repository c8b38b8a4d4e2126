# SPDX-License-Identifier: GPL-3.0-or-later
"""Sound files whose tags and chunks are made to crash, hang or fill up what reads them."""

from hostile_images import deflated_zeros
from hostile_streams import nested
from id3_bytes import full_tag, seven_bits
from sound_bytes import big, box, film, full_box, handler, little, riff_chunk

DEEP = 100_000
MOST = 2**32 - 1
MEGABYTE = 2**20
GIGABYTE = 2**30


def frame(name, content, flags=0):
    """Of ID3v2.3."""
    return name + big("IH", len(content), flags) + content


def tag(version, frames, flags=0):
    return b"ID3" + bytes([version, 0, flags]) + seven_bits(len(frames)) + frames


def id3_tags():
    bomb = deflated_zeros(GIGABYTE)
    for name in (b"TIT2", b"USLT", b"SYLT", b"APIC", b"XXXX"):
        yield f"bomb in {name.decode()}", tag(3, frame(name, big("I", MOST) + bomb, 0x80))
    packed = seven_bits(len(bomb) + 4) + b"\0\x09" + seven_bits(2**28 - 1) + bomb
    yield "bomb of version 4", tag(4, b"TIT2" + packed)
    yield "bombs", tag(3, frame(b"COMM", big("I", GIGABYTE) + bomb, 0x80) * 20)
    yield "a million frames", tag(3, frame(b"TIT2", b"\0ab") * 10**6)
    yield "a million comments", tag(3, frame(b"TXXX", b"\0a\0b") * 10**6)
    for name, frames in (
            ("fields", [frame(b"TXXX", b"\0%06d\0b" % number) for number in range(2 * DEEP)]),
            ("chapters", [frame(b"CHAP", b"%06d\0" % number + bytes(16))
                          for number in range(DEEP)]),
            ("pictures", [frame(b"APIC", b"\0image/png\0\0\0\x89PNG\r\n\x1a\n")] * DEEP)):
        yield f"many {name}", tag(3, b"".join(frames))
    yield "many tags with fields", tag(3, bytes(0)) * 10_001 + tag(3, b"".join(
        frame(b"TXXX", b"\0%06d\0b" % number) for number in range(2 * DEEP)))
    yield "a million short frames", tag(2, b"TT2\0\0\2\0a" * 10**6)
    yield "empty frames", tag(3, frame(b"TIT2", b"") * 10**6)
    yield "empty short frames", tag(2, b"TT2\0\0\0" * 10**6)
    yield "frame beyond the tag", tag(3, b"TIT2" + big("IH", MOST, 0) + b"\0a")
    for version in (2, 3, 4):
        yield f"flood of 0xFF in version {version}", tag(version, b"\xff" * 16 * MEGABYTE, 0x80)
        yield f"flood of 0xFF 0 in version {version}", tag(version, b"\xff\0" * 8 * MEGABYTE, 0x80)
    yield "flood of 0xFF in frames", tag(4, (b"TIT2" + seven_bits(MEGABYTE) + b"\0\2\1"
                                             + b"\xff\0" * (MEGABYTE // 2))[:MEGABYTE + 10] * 8)
    for kind, content in (("TIT2", b"\0" + b"a\0" * 4 * MEGABYTE),
                          ("TCON", b"\0" + b"(17)" * 2 * MEGABYTE),
                          ("TIPL", b"\0" + b"a\0" * 4 * MEGABYTE),
                          ("TXXX", b"\1\xff\xfe" + b"\0\xd8" * 4 * MEGABYTE),
                          ("USLT", b"\1eng" + b"\xff\xfea\0\0\0" * MEGABYTE),
                          ("SYLT", b"\0eng\2\1\0" + b"a\0\0\0\0\1" * MEGABYTE),
                          ("SYTC", b"\2" + b"\xff\xff\0\0\0\1" * MEGABYTE),
                          ("ETCO", b"\2" + b"\3\0\0\0\1" * MEGABYTE),
                          ("MCDI", big("HBB", 8 * MEGABYTE & 0xFFFF, 1, 99)
                           + b"\0\x10\1\0\0\0\0\0" * MEGABYTE),
                          ("EQUA", b"\x40" + b"\x80\1" + b"\xff" * 8 * MEGABYTE),
                          ("RVA2", b"a\0" + b"\1\xff\xff\xff" * 2 * MEGABYTE),
                          ("PCNT", b"\xff" * 8 * MEGABYTE), ("PRIV", b"a\0" + bytes(8 * MEGABYTE))):
        yield f"long {kind}", tag(3, frame(kind.encode(), content))
    yield "tag of 256 MB with frames", full_tag(3)[0][:6] + b"\x7f" * 4 + full_tag(3)[0][10:]


def chunked_sounds():
    form = riff_chunk("fmt ", little("HHIIHH", 1, 1, 8000, 16000, 2, 16))
    for name, chunk in (("chunks", b"abcd" + bytes(4)), ("fields", b"LIST\4\0\0\0INFO"),
                        ("texts", b"LIST\x0e\0\0\0INFOINAM\1\0\0\0a\0"),
                        ("nested lists", b"LIST" + little("I", MOST) + b"INFO")):
        yield f"many {name}.wav", b"RIFF" + little("I", MOST) + b"WAVE" + form + chunk * 10**6
    yield "one list.wav", b"RIFF" + little("I", MOST) + b"WAVE" + riff_chunk(
        "LIST", b"INFO" + b"ICMT\1\0\0\0a\0" * 10**6)
    yield "long text.wav", b"RIFF" + little("I", MOST) + b"WAVE" + riff_chunk(
        "LIST", b"INFO" + riff_chunk("INAM", b"\xff" * 16 * MEGABYTE))
    yield "many notes.aiff", b"FORM" + big("I", MOST) + b"AIFF" + b"ANNO\0\0\0\1a\0" * 10**6
    yield "many tags.aiff", b"FORM" + big("I", MOST) + b"AIFF" + (
        b"ID3 " + big("I", 20) + tag(3, bytes(10))) * DEEP
    start = b"caff\0\1\0\0" + b"desc" + big("qd4sIIIII", 32, 8000, b"lpcm", 0, 2, 1, 1, 16)
    yield "many texts.caf", start + b"info" + big("qI", 4 * 10**6 + 4, MOST) + b"a\0b\0" * 10**6
    yield "chunks of nothing.caf", start + b"free" + big("q", 0) * DEEP
    yield "chunk before itself.caf", start + b"free" + big("q", -2**63)
    yield "annotation.au", b".snd" + big("IIIII", MOST, MOST, 3, 8000, 1) + b"title=a\n" * 10**6
    flac = b"fLaC\0\0\0\x22" + bytes(34)
    yield "many blocks.flac", flac + b"\4\0\0\0" * 10**6
    yield "comments that are not there.flac", flac + b"\x84\0\0\x0c" + little("III", 0, MOST, 0)
    for extension in ("m4a", "mov", "3gp"):
        yield f"nested moov.{extension}", nested(b"moov")
        yield f"nested udta.{extension}", film(b"M4A ", nested(b"udta"))
    one = box("\xa9nam", box("data", big("II", 1, 0) + b"x"))
    for name, items in (("items", one * DEEP), ("data", box("\xa9nam", one[8:] * DEEP)),
                        ("nested items", nested(b"\xa9nam")),
                        ("empty items", box("\xa9nam") * DEEP), ("free forms", box("----") * DEEP)):
        yield f"many {name}.m4a", film(b"M4A ", box("udta", full_box(
            "meta", handler(b"mdir") + box("ilst", items))))
    keys = full_box("keys", big("I", MOST) + box("mdta", b"title") * DEEP)
    yield "many keys.mov", film(b"qt  ", box("meta", handler(b"mdta") + keys + box("ilst")))
    yield "many texts.mov", film(b"qt  ", box("udta", box("\xa9nam", big("HHB", 1, 0, 97) * DEEP)))


def hostile():
    """Names and bytes."""
    for name, content in id3_tags():
        yield f"{name}.mp3", content + b"\xff\xfb\x90\0" * 200
    yield from chunked_sounds()
