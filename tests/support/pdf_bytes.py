# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds small PDF documents, good ones and hostile ones."""

import zlib

from hostile_images import deflated_zeros

DEEP = 100_000
MEGABYTE = 2**20


def stream(dictionary, content):
    return b"<<%b/Length %d>>stream\n%b\nendstream" % (dictionary, len(content), content)


def deflated(dictionary, content):
    return stream(dictionary + b"/Filter/FlateDecode", zlib.compress(content, 9))


def document(objects, trailer=b"/Root 1 0 R", version="1.4", table=True, previous=None):
    """A file of the objects, the first of which is number 1. `previous` is where the trailer says
    that an older table of objects is; None for nowhere."""
    content = bytearray(b"%%PDF-%b\n%%\xe2\xe3\xcf\xd3\n" % version.encode())
    offsets = []
    for number, body in enumerate(objects, 1):
        offsets.append(len(content))
        content += b"%d 0 obj\n%b\nendobj\n" % (number, body)
    if not table:
        return bytes(content)
    start = len(content)
    content += b"xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    content += b"".join(b"%010d 00000 n \n" % offset for offset in offsets)
    if previous is not None:
        trailer += b"/Prev %d" % (start if previous == "itself" else previous)
    return content + (b"trailer\n<</Size %d%b>>\nstartxref\n%d\n%%%%EOF\n"
                      % (len(objects) + 1, trailer, start))


def literal(text):
    """A text as ASCII, or as UTF-16."""
    if text.isascii():
        escaped = "".join("\\" + c if c in "()\\" else c for c in text)
        return b"(%b)" % escaped.encode()
    return b"<%b>" % ("\ufeff" + text).encode("utf-16-be").hex().encode()


def packet(fields):
    """XMP with a member of the description for each name: text, or a list of texts."""
    members = ""
    for name, value in fields.items():
        if isinstance(value, list):
            items = "".join(f"<rdf:li>{text}</rdf:li>" for text in value)
            members += f"<{name}><rdf:Bag>{items}</rdf:Bag></{name}>"
        else:
            members += (f'<{name}><rdf:Alt><rdf:li xml:lang="x-default">{value}</rdf:li></rdf:Alt>'
                        f"</{name}>")
    return ('<?xpacket begin="\ufeff" id="W5M0MpCehiHzreSzNTczkc9d"?>'
            '<x:xmpmeta xmlns:x="adobe:ns:meta/">'
            '<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">'
            '<rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/" '
            f'xmlns:xmp="http://ns.adobe.com/xap/1.0/">{members}</rdf:Description></rdf:RDF>'
            '</x:xmpmeta><?xpacket end="w"?>').encode()


def pdf(info=None, xmp=None, version="1.4", catalog=b""):
    """One empty page, the information dictionary of texts by name, and the XMP of `packet`."""
    objects = [b"", b"<</Type/Pages/Kids[3 0 R]/Count 1>>",
               b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 612 792]>>"]
    trailer = b"/Root 1 0 R"
    if info is not None:
        objects.append(b"<<%b>>" % b"".join(b"/%b %b" % (name.encode(), literal(text))
                                           for name, text in info.items()))
        trailer += b"/Info %d 0 R" % len(objects)
    if xmp is not None:
        objects.append(stream(b"/Type/Metadata/Subtype/XML", packet(xmp)))
        catalog += b"/Metadata %d 0 R" % len(objects)
    objects[0] = b"<</Type/Catalog/Pages 2 0 R%b>>" % catalog
    return document(objects, trailer, version)


PAGES = b"<</Type/Pages/Kids[]/Count 0>>"
CATALOG = b"<</Type/Catalog/Pages 2 0 R>>"
INFO = b"/Root 1 0 R/Info 3 0 R"


def cross_reference_streams():
    """Tables of objects that are objects themselves, leading to themselves or far outside."""
    def table(entries, dictionary=b""):
        start = b"%PDF-1.5\n"
        content = b"".join(kind.to_bytes(1, "big") + a.to_bytes(4, "big") + b.to_bytes(2, "big")
                           for kind, a, b in entries)
        return start + b"1 0 obj\n" + stream(
            b"/Type/XRef/W[1 4 2]/Size %d/Root 2 0 R%b" % (len(entries), dictionary), content
        ) + b"\nendobj\nstartxref\n%d\n%%%%EOF\n" % len(start)

    yield "table in itself", table([(0, 0, 0), (1, 9, 0), (2, 2, 0)])
    yield "table before itself", table([(0, 0, 0), (1, 9, 0)], b"/Prev 9")
    yield "two object streams in each other", table([(0, 0, 0), (1, 9, 0), (2, 3, 0), (2, 2, 0)])
    yield "table of a size that is not there", table([(0, 0, 0)], b"/Size 2147483647")
    yield "table with wide fields", table([(0, 0, 0)], b"/W[2147483647 2147483647 2147483647]")


def hostile():
    """Names and bytes of documents that are made to crash, hang or fill up what reads them."""
    yield "catalogue that is its page tree", document([b"<</Type/Catalog/Pages 1 0 R>>"])
    yield "page tree in itself", document(
        [CATALOG, b"<</Type/Pages/Kids[2 0 R 2 0 R]/Count 2147483647/Parent 2 0 R>>"])
    yield "older table that is the same", document([CATALOG, PAGES], previous="itself")
    yield "older table outside", document([CATALOG, PAGES], previous=2**62)
    yield "information that refers to itself", document([CATALOG, PAGES, b"3 0 R"], INFO)
    yield "title that refers to itself", document(
        [CATALOG, PAGES, b"<</Title 4 0 R>>", b"4 0 R"], INFO)
    yield "references in a circle", document(
        [CATALOG, PAGES, b"<</Title 4 0 R>>", b"5 0 R", b"4 0 R"], INFO)
    catalog = CATALOG[:-2] + b"/Metadata 3 0 R>>"
    yield "length that refers to its stream", document(
        [catalog, PAGES, b"<</Length 3 0 R>>stream\nx\nendstream"])
    for length in (2**31 - 1, 2**63, -1):
        yield f"stream of length {length}", document(
            [catalog, PAGES, b"<</Length %d>>stream\nx\nendstream" % length])
    yield "many filters", document([catalog, PAGES, stream(
        b"/Filter[%b]" % (b"/FlateDecode" * 1000), b"x")])
    bomb = deflated_zeros(512 * MEGABYTE)
    yield "metadata that unpacks to 512 MB", document(
        [catalog, PAGES, stream(b"/Filter/FlateDecode", bomb)])
    twice = zlib.compress(deflated_zeros(1024 * MEGABYTE), 9)
    yield "metadata that unpacks twice to 1 GB", document(
        [catalog, PAGES, stream(b"/Filter[/FlateDecode/FlateDecode]", twice)])
    for name, opening, closing in (("arrays", b"[", b"]"), ("dictionaries", b"<</A", b">>")):
        for end in (b"", closing * DEEP):
            yield f"nested {name}, {'closed' if end else 'open'}", document(
                [CATALOG, PAGES, b"<</Title " + opening * DEEP + end + b">>"], INFO)
    yield "long nested arrays", document(
        [CATALOG, PAGES, b"<</Author " + b"[" * 4 * DEEP + b"]" * 4 * DEEP + b">>"], INFO)
    yield "nested metadata", document([catalog, PAGES, deflated(b"", b"<a>" * DEEP)])
    yield "entities in metadata", document([catalog, PAGES, stream(b"", (
        b'<!DOCTYPE x [<!ENTITY a "%b">%b]><x>&b9;</x>' % (b"x" * 100, b"".join(
            b'<!ENTITY b%d "%b">' % (i, b"&b%d;" % (i - 1) * 10) for i in range(1, 10)))))])
    yield "title of 4 MB", document(
        [CATALOG, PAGES, b"<</Title(%b)>>" % (b"x" * 4 * MEGABYTE)], INFO)
    yield "many keywords", document(
        [CATALOG, PAGES, b"<</Keywords(%b)>>" % (b"a," * MEGABYTE)], INFO)
    yield "no table, many objects", document([CATALOG, PAGES] + [b"null"] * DEEP, table=False)
    for start in (b"1 0 obj<<", b"trailer<<\n"):
        yield f"no table, many {start[:7].decode()}", b"%PDF-1.4\n" + start * 3 * MEGABYTE
    yield "nothing but a beginning", b"%PDF-1.7\n" + b"\n" * 4 * MEGABYTE
    yield "encryption out of range", document(
        [CATALOG, PAGES], b"/Root 1 0 R/ID[<00><00>]/Encrypt<</Filter/Standard/V 5/R 6/Length 256"
        b"/P -1/O(%b)/U(%b)/OE(x)/UE(x)/CF<</StdCF<</CFM/AESV3/Length 2147483647>>>>/StmF/StdCF>>"
        % (b"x" * 48, b"x" * 48))
    for name, content in cross_reference_streams():
        yield name, content
