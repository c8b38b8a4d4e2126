# SPDX-License-Identifier: GPL-3.0-or-later
"""Images that are made to crash, hang or fill up what reads them."""

import os
import re
import zlib

from photo_bytes import (BYTE, LONG, OPAQUE, PHOTOS, SHORT, TEXT, big, box, chunk, data_set,
                         entries_of, exif_segment, full_box, heif, heif_photo,
                         iptc_segment, jpeg, jpeg_photo, little, packet, png, profile,
                         profile_segment, resource, segment, tiff, tiff_photo, xmp_segment,
                         xmp_text)

DEEP = 100_000
MOST = 2**32 - 1
GIGABYTE = 2**30
EXTENSIONS = ("jpg", "tif", "heic", "png", "psd", "webp", "jp2", "cr2", "cr3", "gif", "bmp", "tga")


def nested(kind, outer=b"", inner=b"", overhead=b""):
    """Boxes in each other, each with the overhead in front of the next one."""
    step = 8 + len(overhead)
    return outer + b"".join(big("I", step * (DEEP - level) + len(inner)) + kind + overhead
                            for level in range(DEEP)) + inner


def box_images():
    kinds = ((b"iprp", b""), (b"ipco", b""), (b"meta", bytes(4)), (b"moov", b""), (b"dinf", b""))
    for brand, extension, some in ((b"heic", "heic", kinds), (b"avif", "avif", kinds),
                                   (b"crx ", "cr3", kinds[:1])):  # costs as much with each kind
        start = box(b"ftyp", brand + bytes(4) + b"mif1" + brand)
        for kind, overhead in some:
            inside = nested(kind, overhead=overhead)
            yield f"nested {kind.decode()}.{extension}", start + inside
            yield f"nested {kind.decode()} in meta.{extension}", start + full_box(b"meta", inside)
        yield f"many boxes.{extension}", start + box(b"free") * DEEP
        yield f"many boxes in meta.{extension}", start + full_box(b"meta", box(b"free") * DEEP)
    start = b"\0\0\0\x0cjP  \r\n\x87\n" + box(b"ftyp", b"jp2 \0\0\0\0jp2 ")
    yield "nested jp2h.jp2", nested(b"jp2h", start)
    yield "many boxes.jp2", start + box(b"uuid", bytes(16)) * DEEP


def lengths_that_lie():
    """The photos with each length of a box that may stand for another one."""
    photo = heif_photo(1)
    for match in re.finditer(rb"ftyp|meta|hdlr|pitm|iinf|infe|iref|cdsc|iprp|ipco|ispe|ipma|iloc|"
                             rb"idat", photo):
        begin = match.start() - 4
        name = f"{match[0].decode()} at {begin}"
        for length in (0, 1, 7, 2**31, MOST):
            yield (f"{name} of {length}.heic",
                   photo[:begin] + big("I", length) + photo[begin + 4:])
        for length in (0, 2**63, 2**64 - 1):
            yield (f"{name} of {length} in 8 bytes.heic", photo[:begin] + big("I", 1) + match[0]
                   + big("Q", length) + photo[begin + 8:])


def entry(tag, kind, count, value):
    return little("HHII", tag, kind, count, value)


def table(entries, count=None, following=0):
    return (little("H", len(entries) if count is None else count) + b"".join(entries)
            + little("I", following))


def tiff_of(*tables):
    return b"II*\0" + little("I", 8) + b"".join(tables)


def chain(tag, length):
    """Directories each of which leads to the next one by a tag, or as its successor."""
    size = 6 + 12 * (tag is not None)
    return tiff_of(*(table([] if tag is None else [entry(tag, LONG, 1, 8 + size * (i + 1))],
                           following=8 + size * (i + 1) if tag is None else 0)
                     for i in range(length)))


def directory_structures():
    """TIFF structures, which also stand in other images."""
    yield "follows itself", tiff_of(table([], following=8))
    for name, tag in (("sub", 0x14A), ("exif", 0x8769), ("gps", 0x8825)):
        yield f"{name} directory in itself", tiff_of(table([entry(tag, LONG, 1, 8)]))
        yield f"chain of {name} directories", chain(tag, 4000)
        yield f"{name} directory many times", tiff_of(table([entry(tag, LONG, 1, 8)] * 2000))
    yield "chain of directories", chain(None, 4000)
    full = 65535
    yield "million of entries", tiff_of(*(
        table([entry(0x110, SHORT, 1, 0)] * full, following=8 + (6 + 12 * full) * (i + 1))
        for i in range(16)))
    behind = 8 + 6 + 12
    yield "million of sub directories", tiff_of(
        table([entry(0x14A, LONG, 10**6, behind)]), little("I", 8) * 10**6)
    yield "many large values", tiff_of(
        table([entry(0x8000 + i, BYTE, 2**20, 8) for i in range(4000)]), bytes(2**20))
    for kind in range(15):
        for count in (MOST, 2**31, 2**29):
            yield f"{count} of kind {kind}", tiff_of(
                table([entry(tag, kind, count, 8) for tag in (0x100, 0x110, 0x14A, 0x2BC, 0x83BB,
                                                              0x8649, 0x8769, 0x8773, 0x8825)]))
    yield "values past the end", tiff_of(
        table([entry(tag, LONG, 100, MOST - 16) for tag in (0x100, 0x110, 0x14A, 0x2BC, 0x8769)]))
    yield "table past the end", b"II*\0" + little("I", MOST)
    yield "more entries than there are", tiff_of(table([entry(0x110, TEXT, 4, 0)], count=full))
    for maker in (b"Nikon\0\2\x10\0\0", b"OLYMP\0\1\0", b"FUJIFILM\x0c\0\0\0", b"Panasonic\0\0\0",
                  b"SONY DSC \0\0\0", b"AOC\0MM", b"Canon"):
        note = maker + tiff_of(table([entry(i, LONG, MOST, 8) for i in range(99)], 65535))
        yield f"maker note of {maker[:3].decode()}", tiff({
            0x10F: (TEXT, b"NIKON CORPORATION\0" if maker.startswith(b"Nik") else b"Canon\0"),
            0x8769: (LONG, {0x927C: (OPAQUE, note)})})


def directory_images():
    for name, structure in directory_structures():
        yield f"{name}.tif", structure
        for extension, brand in (("cr2", b"CR\2\0"), ("orf", b"IIRO"), ("rw2", b"IIU\0")):
            head = brand + structure[4:8] if extension != "cr2" else b"II*\0\x10\0\0\0" + brand
            rest = structure[8:] if extension != "cr2" else bytes(4) + structure[8:]
            if "chain" in name or "itself" in name:
                yield f"{name}.{extension}", head + rest
        if len(structure) < 60000:
            yield f"{name}.jpg", jpeg(exif_segment(structure))
            yield f"{name}.heic", heif(structure, b"")


def profiles():
    start = profile()[:128]
    yield "with many tags", start + big("I", MOST) + big("4sII", b"desc", 144, 12) * 5000
    yield "with a tag everywhere", start + big("I", 100) + big("4sII", b"desc", 0, MOST) * 100
    text = b"mluc" + bytes(4) + big("II", MOST, 12) + big("2s2sII", b"en", b"US", MOST, 28) * 999
    yield "with many languages", start + big("I", 1) + big("4sII", b"desc", 144, len(text)) + text
    text = b"desc" + bytes(4) + big("I", MOST) + b"x" * 5000
    yield "with a long name", start + big("I", 1) + big("4sII", b"desc", 144, len(text)) + text


def segment_images():
    good = tiff(entries_of(1))
    for name, part in (("exif", exif_segment(good)), ("xmp", xmp_segment(packet(b""))),
                       ("iptc", iptc_segment(resource(0x404, data_set(90, b"x" * 999)))),
                       ("profile", profile_segment(profile())), ("empty", segment(0xE5, b"")),
                       ("comment", segment(0xFE, b"x" * 100))):
        yield f"many {name} segments.jpg", jpeg(*[part] * 10_000)
    yield "profile in 255 parts.jpg", jpeg(*(
        segment(0xE2, b"ICC_PROFILE\0" + bytes([i, 255]) + bytes(65_000)) for i in range(1, 256)))
    for name, content in profiles():
        yield f"profile {name}.jpg", jpeg(profile_segment(content[:65_000]))
        yield f"profile {name}.png", png(chunk(b"iCCP", b"n\0\0" + zlib.compress(content)))
        yield f"profile {name}.tif", tiff({0x8773: (OPAQUE, content)})
    for name, content in (
            ("long field", b"\x1c\2\x5a\x7f\xff" + b"x" * 99),
            ("length of 4 bytes", b"\x1c\2\x5a\x80\4\xff\xff\xff\xff" + b"x" * 99),
            ("length of many bytes", b"\x1c\2\x5a\xff\xff" + b"\xff" * 99),
            ("many empty fields", data_set(25, b"") * 12_000),
            ("many keywords", data_set(25, b"key") * 8_000)):
        yield f"iptc {name}.jpg", jpeg(iptc_segment(resource(0x404, content)))
        yield f"iptc {name}.tif", tiff({0x83BB: (OPAQUE, content * 20)})
    for length in (MOST, 2**31, 2**31 - 1):
        lying = b"8BIM" + big("HHI", 0x404, 0, length) + b"x" * 99
        yield f"resource of {length}.jpg", jpeg(iptc_segment(lying))
        yield f"resource of {length}.tif", tiff({0x8649: (BYTE, lying)})
        yield f"resource of {length}.psd", (
            b"8BPS" + big("H6xHIIHH", 1, 3, 20, 30, 8, 3) + big("I", 0) + big("I", MOST) + lying)
        yield f"chunk of {length}.png", png(b"") [:33] + big("I", length) + b"eXIf" + good
        yield f"chunk of {length}.webp", (
            b"RIFF" + little("I", length) + b"WEBPVP8X" + little("I", 10) + bytes(10) + b"EXIF"
            + little("I", length) + good)
    yield "many resources.psd", (
        b"8BPS" + big("H6xHIIHH", 1, 3, 20, 30, 8, 3) + big("II", 0, 12 * DEEP)
        + resource(0x404, b"") * DEEP)
    yield "many chunks.png", png(chunk(b"tEXt", b"a\0b") * DEEP)
    yield "many chunks.webp", b"RIFF" + little("I", 4 + 8 * DEEP) + b"WEBP" + b"EXIF\0\0\0\0" * DEEP


def deflated_zeros(size):
    """Quickly: the compressed form of a part of them, again and again."""
    part = 2**24
    compressor = zlib.compressobj(wbits=-15)
    block = compressor.compress(bytes(part)) + compressor.flush(zlib.Z_FULL_FLUSH)
    return (b"\x78\x9c" + block * (size // part) + b"\3\0"
            + big("I", size % 65521 << 16 | 1))  # the checksum


def inflating_images():
    zeros = deflated_zeros(GIGABYTE)
    yield "inflates.iCCP.png", png(chunk(b"iCCP", b"name\0\0" + zeros))
    for key in (b"Raw profile type exif", b"Raw profile type iptc", b"XML:com.adobe.xmp", b"Title"):
        yield f"inflates zTXt {key[-4:].decode()}.png", png(chunk(b"zTXt", key + b"\0\0" + zeros))
        yield f"inflates iTXt {key[-4:].decode()}.png", png(
            chunk(b"iTXt", key + b"\0\1\0\0\0" + zeros))
    yield "inflates often.png", png(*[chunk(b"zTXt", b"XML:com.adobe.xmp\0\0" + zeros)] * 8)


def packets():
    levels = [b'<!ENTITY a0 "' + b"lol" * 99 + b'">'] + [
        b'<!ENTITY a%d "%s">' % (i, b"&a%d;" % (i - 1) * 10) for i in range(1, 10)]
    title = b"<photoshop:Headline>%s</photoshop:Headline>"
    yield "entity bomb", b"<!DOCTYPE x [" + b"".join(levels) + b"]>" + packet(title % b"&a9;")
    yield "long entity", (b'<!DOCTYPE x [<!ENTITY a "' + b"x" * 50_000 + b'">]>'
                          + packet(title % (b"&a;" * 20_000)))
    bag = b"<dc:subject><rdf:Bag>%s</rdf:Bag></dc:subject>"
    yield "long list", packet(bag % (b"<rdf:li>keyword</rdf:li>" * 50_000))
    yield "long text", packet(title % (b"x" * 2**23))
    yield "many properties", packet(b"".join(b"<dc:p%d>x</dc:p%d>" % (i, i)
                                             for i in range(12_000)))
    yield "same attribute", packet(b"<dc:x " + b'dc:a="1" ' * 400_000 + b"/>")
    yield "many namespaces", packet(b"".join(
        b'<a%d:b xmlns:a%d="http://a/%d/">x</a%d:b>' % (i, i, i, i) for i in range(5_000)))
    for name, begin, end in (
            ("elements", b'<dc:x rdf:parseType="Resource">', b"</dc:x>"),
            ("bags", b"<dc:x><rdf:Bag><rdf:li>", b"</rdf:li></rdf:Bag></dc:x>"),
            ("descriptions", b"<rdf:Description>", b"</rdf:Description>"),
            ("garbage", b"<a>", b"")):
        for depth in (2_000, DEEP):
            yield f"{depth} nested {name}", packet(begin * depth + b"x" + end * depth)


def packet_images():
    for name, content in packets():
        yield f"xmp {name}.png", png(xmp_text(content))
        yield f"xmp {name}.tif", tiff({0x2BC: (BYTE, content)})
        yield f"xmp {name}.heic", heif(b"", content)


def cut_photos():
    for extension, photo in PHOTOS.items():
        content = photo(1)
        for length in range(1, len(content), 23):
            yield f"cut {length:04}.{extension}", content[:length]


def other_files():
    """What has the name of an image and is none, or nothing."""
    film = box(b"ftyp", b"isom\0\0\2\0isomiso2avc1mp41") + box(b"moov", box(b"mvhd", bytes(100)))
    clip = box(b"ftyp", b"qt  \0\0\0\0qt  ") + box(b"moov", box(b"mvhd", bytes(100)))
    sound = b"ID3\4\0\0\0\0\0\x17TIT2\0\0\0\x0d\0\0\3hello world!" + b"\xff\xfb\x90\0" * 100
    song = box(b"ftyp", b"M4A \0\0\2\0M4A mp42") + nested(b"moov")
    matroska = b"\x1a\x45\xdf\xa3" + bytes(100)
    riff = b"RIFF\xff\xff\xff\xffAVI LIST\xff\xff\xff\xffhdrl"
    for name, content in (("empty", b""), ("film", film), ("clip", clip), ("sound", sound),
                          ("song", song), ("matroska", matroska), ("riff", riff),
                          ("zeros", bytes(5000)), ("text", b"text\n" * 999)):
        for extension in EXTENSIONS:
            yield f"{name}.{extension}", content


def huge_files():
    """Beginnings of files that go on for a terabyte of nothing."""
    size = 2**40
    yield "huge.jpg", b"\xff\xd8" + segment(0xE5, b"x")
    yield "huge.tif", tiff_photo(1)
    yield "huge zeros.tif", b""
    yield "huge zeros.heic", b""
    yield "huge far.tif", b"II*\0" + little("I", MOST - 100)
    yield "huge.cr2", b"II*\0\x10\0\0\0CR\2\0" + little("I", MOST)
    yield "huge.heic", box(b"ftyp", b"heic\0\0\0\0mif1heic") + big("I4sQ", 1, b"meta", size - 32)
    yield "huge.cr3", box(b"ftyp", b"crx \0\0\0\0crx isom") + big("I4sQ", 1, b"moov", size - 32)
    yield "huge.png", png(b"")[:33] + big("I", 2**31 - 1) + b"iTXt"
    yield "huge.psd", b"8BPS" + big("H6xHIIHH", 1, 3, 20, 30, 8, 3) + big("II", 0, MOST)
    yield "huge.webp", b"RIFF" + little("I", MOST) + b"WEBPVP8X" + little("I", 10) + bytes(10)
    yield "huge.jp2", b"\0\0\0\x0cjP  \r\n\x87\n" + big("I4sQ", 1, b"jp2h", size - 12)
    yield "huge.bmp", b"BM" + little("IHHI", MOST, 0, 0, 54) + little("I", 40) + bytes(36)
    yield "huge.raf", b"FUJIFILMCCD-RAW " + b"\xff" * 200


KINDS = (box_images, lengths_that_lie, directory_images, segment_images, inflating_images,
         packet_images, cut_photos, other_files)


def write_special_files(folder):
    """What is no regular file, and a file of a terabyte for each kind."""
    os.mkfifo(folder / "pipe.jpg")
    (folder / "loop.jpg").symlink_to("loop.jpg")
    (folder / "nowhere.heic").symlink_to("nothing.heic")
    (folder / "zero.jpg").symlink_to("/dev/zero")
    (folder / "folder.jpg").mkdir()
    (folder / os.fsdecode(b"photo \xff\xfe\xe9.jpg")).write_bytes(jpeg_photo(1))
    (folder / os.fsdecode(b"nested \xff\xe9.heic")).write_bytes(nested(b"iprp"))
    for name, content in huge_files():
        with open(folder / name, "wb") as file:
            file.write(content)
            file.truncate(2**40)
    with open(folder / "past the end of TIFF.tif", "wb") as file:  # the rest of its size is 1 GB
        file.write(tiff_photo(1))
        file.truncate(5 * GIGABYTE)
