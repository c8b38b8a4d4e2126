# SPDX-License-Identifier: GPL-3.0-or-later
"""Sound and video files that are made to crash, hang or fill up what reads them, or to have it read
other files. For tests that have tests/support in their path."""

import os
import random
import zlib

from photo_bytes import big, box, full_box, little

DEEP = 100_000
MOST = 2**32 - 1
MEGABYTE = 2**20
TERABYTE = 2**40
SECRET = "secret.wav"  # what the playlists lead to: lies beside them and must never be opened
EXTENSIONS = ("mp3", "mp4", "mkv", "avi", "ogg", "flac", "ts", "mpg", "flv", "wma", "wav", "ac3")


def playlists():
    """Texts that lead to other files, each under its own name and as if it were sound."""
    texts = {
        "m3u8": ("#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:10\n#EXTINF:10,\n"
                 f"{SECRET}\n#EXT-X-ENDLIST\n"),
        "ffconcat": f"ffconcat version 1.0\nfile '{SECRET}'\n",
        "pls": f"[playlist]\nFile1={SECRET}\nNumberOfEntries=1\n",
        "asx": f'<asx version="3.0"><entry><ref href="{SECRET}"/></entry></asx>\n',
        "sdp": "v=0\no=- 0 0 IN IP4 127.0.0.1\nc=IN IP4 127.0.0.1\nm=audio 9 RTP/AVP 0\n",
        "mpd": ('<?xml version="1.0"?><MPD xmlns="urn:mpeg:dash:schema:mpd:2011" type="static">'
                f"<Period><AdaptationSet><BaseURL>{SECRET}</BaseURL></AdaptationSet></Period>"
                "</MPD>"),
        "cue": f'FILE "{SECRET}" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n',
        "svg": ('<svg xmlns="http://www.w3.org/2000/svg" '
                f'xmlns:xlink="http://www.w3.org/1999/xlink"><image xlink:href="{SECRET}"/></svg>'),
        "ram": f"rtsp://127.0.0.1:9/{SECRET}\nhttp://127.0.0.1:9/{SECRET}\n",
    }
    for kind, text in texts.items():
        for extension in (kind, "mp3", "mp4", "ts", "mkv", "avi"):
            yield f"playlist {kind}.{extension}", text.encode()
    outside = box(b"dinf", full_box(b"dref", big("I", 1) + box(
        b"alis", big("I", 0) + bytes(146) + big("HH", 2, len(SECRET)) + SECRET.encode()
        + big("H", MOST & 0xFFFF))))
    yield "samples in another file.mov", movie(track(extra=outside))


def track(samples=1, sizes=None, extra=b"", durations=None):
    """A track of silence; how many samples its tables claim to have."""
    entry = box(b"mp4a", bytes(6) + big("H", 1) + bytes(8) + big("HHHHI", 1, 16, 0, 0, 8000 << 16))
    tables = box(b"stbl", full_box(b"stsd", big("I", 1) + entry)
                 + full_box(b"stts", durations or big("III", 1, samples, 1024))
                 + full_box(b"stsc", big("IIII", 1, 1, 1, 1))
                 + full_box(b"stsz", sizes or big("II", 4, samples))
                 + full_box(b"stco", big("II", samples, 0)))
    media = (full_box(b"mdhd", big("IIIIHH", 0, 0, 8000, samples * 1024 & MOST, 0x55C4, 0))
             + full_box(b"hdlr", bytes(4) + b"soun" + bytes(13))
             + box(b"minf", full_box(b"smhd", bytes(4)) + extra + tables))
    return box(b"trak", full_box(b"tkhd", big("IIIII", 0, 0, 1, 0, 8192) + bytes(60))
               + box(b"mdia", media))


def movie(tracks, after=b""):
    head = full_box(b"mvhd", big("IIII", 0, 0, 1000, 1000) + bytes(80))
    return box(b"ftyp", b"isom" + bytes(4) + b"isom") + box(b"moov", head + tracks) + after


def nested(kind):
    return b"".join(big("I", 8 * (DEEP - level)) + kind for level in range(DEEP))


def movies():
    start = box(b"ftyp", b"isom" + bytes(4) + b"isom")
    for kind in (b"moov", b"trak", b"mdia", b"minf", b"udta", b"meta", b"ilst"):
        yield f"nested {kind.decode()}.mp4", start + nested(kind)
        yield f"nested {kind.decode()} in moov.mp4", start + box(b"moov", nested(kind))
    yield "many boxes.mp4", start + box(b"free") * DEEP
    yield "many boxes in moov.mp4", movie(box(b"udta") * DEEP)
    yield "many tracks.mp4", movie(track() * 5_000)
    for samples in (2**24, MOST):
        yield f"track of {samples} samples.mp4", movie(track(samples))
        yield f"track of {samples} sizes.mp4", movie(track(1, sizes=big("II", 0, samples)))
    yield "many durations.mp4", movie(track(durations=big("I", MEGABYTE)
                                            + big("II", MOST, MOST) * (MEGABYTE // 4)))
    yield "many fragments.mp4", movie(track(), box(b"moof", full_box(b"mfhd", big("I", 1))) * DEEP)


def element(number, content, length=None):
    """Of Matroska, by its number with the length that it claims."""
    size = big("Q", 2**56 | len(content) if length is None else length)
    return bytes.fromhex(number) + size + content


def matroska():
    start = element("1A45DFA3", element("4282", b"matroska"))
    simple = element("67C8", element("45A3", b"TITLE") + element("4487", b"x"))
    nest = bytes.fromhex("67C801FFFFFFFFFFFFFF") * DEEP
    tracks = element("AE", element("D7", b"\1") + element("83", b"\2")
                     + element("86", b"A_MPEG/L3"))
    for name, inside in (("nested tags", element("1254C367", element("7373", nest))),
                         ("many tags", element("1254C367", element("7373", simple * DEEP))),
                         ("many tracks", element("1654AE6B", tracks * 5_000)),
                         ("many empty elements", element("EC", b"") * DEEP),
                         ("long title", element("1549A966", element("7BA9", b"x" * 8 * MEGABYTE)))):
        yield f"{name}.mkv", start + element("18538067", inside)
        yield f"{name}, endless.mkv", start + element("18538067", inside, 2**57 - 1)


REVERSED = bytes(int(f"{byte:08b}"[::-1], 2) for byte in range(256))


def checksum(content):
    """As Ogg has it: the usual one of 32 bits with all bits the other way round, from 0."""
    usual = zlib.crc32(content.translate(REVERSED), 0xFFFFFFFF) ^ 0xFFFFFFFF
    return int(f"{usual:032b}"[::-1], 2)


def page(content, sequence, flags=0):
    """Of Ogg, of at most 255 pieces."""
    pieces = [255] * (len(content) // 255) + [len(content) % 255]
    head = b"OggS\0" + bytes([flags]) + bytes(8) + little("II", 1, sequence)
    tail = bytes([len(pieces)]) + bytes(pieces) + content
    return head + little("I", checksum(head + bytes(4) + tail)) + tail


def tagged_sounds():
    comment = b"\3vorbis" + little("II", 0, MOST) + (little("I", 3) + b"A=1") * 7_000
    first = b"\1vorbis" + little("IBIiiiB", 0, 2, 44100, 0, 128000, 0, 0xB8) + b"\1"
    parts = [comment[at:at + 254 * 255] for at in range(0, len(comment), 254 * 255)]
    yield "many comments.ogg", page(first, 0, 2) + b"".join(
        page(part, 1 + number) for number, part in enumerate(parts))
    yield "many streams.ogg", b"".join(
        b"OggS\0\2" + bytes(8) + little("III", number, 0, 0) + b"\1\x1e" + first
        for number in range(20_000))
    fields = b"".join(little("I", 9) + b"T%06d=x" % number for number in range(200_000))
    block = little("I", 0) + little("I", 200_000) + fields
    yield "many comments.flac", (b"fLaC\0\0\0\x22" + bytes(10) + b"\x0a\xc4\x42\xf0" + bytes(20)
                                 + b"\x84" + big("I", len(block))[1:] + block)
    item = little("II", 1, 0) + b"T%06d\0x"
    items = b"".join(item % number for number in range(200_000))
    yield "many items.ape", b"MAC " + bytes(2_000) + items + b"APETAGEX" + little(
        "IIII", 2000, len(items) + 32, 200_000, 0) + bytes(8)
    yield "tag of 256 MB.mp3", b"ID3\4\0\0\x7f\x7f\x7f\x7f" + bytes(MEGABYTE)
    yield "many tags.mp3", b"ID3\4\0\0\0\0\0\0" * DEEP
    yield "many frames.mp3", b"\xff\xfb\x90\0" * MEGABYTE
    yield "many chunks.avi", b"RIFF" + little("I", MOST) + b"AVI " + (
        b"LIST" + little("I", 4) + b"hdrl") * DEEP
    yield "nested lists.avi", b"RIFF" + little("I", MOST) + b"AVI " + (
        b"LIST" + little("I", MOST) + b"hdrl") * DEEP
    yield "nested objects.flv", (b"FLV\1\5\0\0\0\x09\0\0\0\0\x12\xff\xff\xff" + bytes(7)
                                 + b"\2\0\x0aonMetaData" + b"\3\0\1a" * DEEP)
    yield "many programs.ts", (b"\x47\x40\0\x10\0\0\xb3\xfd" + b"\0\1\xc1\0\0"
                               + b"\0\1\xe1\0" * 43).ljust(188, b"\xff") * 20_000
    yield "headers of objects.wma", bytes.fromhex("3026B2758E66CF11A6D900AA0062CE6C") + little(
        "QIBB", 2**62, MOST, 1, 2) + (bytes(16) + little("Q", 24)) * DEEP


def noise():
    """Bytes without sense, the same ones on every day."""
    chance = random.Random(20240229)
    for extension in EXTENSIONS:
        yield f"noise.{extension}", chance.randbytes(MEGABYTE)
        yield f"nothing.{extension}", b""
        yield f"zeros.{extension}", bytes(2 * MEGABYTE)


def hostile():
    """Names and bytes."""
    for family in (playlists, movies, matroska, tagged_sounds, noise):
        yield from family()


def write_sparse(folder):
    """Files of a terabyte, of which the disk holds some bytes. Returns their names."""
    start = box(b"ftyp", b"isom" + bytes(4) + b"isom")
    files = {
        "movie at the end.mp4": (
            start + big("I", 1) + b"mdat" + big("Q", TERABYTE + 16), movie(track())),
        "nothing but zeros.mp4": (start, b""),
        "sound of zeros.mp3": (b"\xff\xfb\x90\0", b""),
        "stream of zeros.mpg": (b"\0\0\1\xba\x44" + bytes(8) + b"\xf8", b""),
        "list of zeros.avi": (b"RIFF" + little("I", MOST) + b"AVI LIST", b""),
    }
    for name, (begin, end) in files.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(begin)
            file.truncate(len(begin) + TERABYTE)
            file.seek(0, os.SEEK_END)
            file.write(end)
    return list(files)
