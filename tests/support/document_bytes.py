# SPDX-License-Identifier: GPL-3.0-or-later
"""Documents made on the spot, whose values tell them apart. Each function takes a number and returns
the bytes of a file and its attributes by name."""

import io
import zipfile
from xml.sax.saxutils import escape


def package(members, method=zipfile.ZIP_DEFLATED):
    """A ZIP file of names and contents."""
    file = io.BytesIO()
    with zipfile.ZipFile(file, "w", method) as archive:
        for name, content in members.items():
            archive.writestr(name, content)
    return file.getvalue()


def elements(*pairs):
    return "".join(f"<{tag}>{escape(text)}</{tag.split()[0]}>" for tag, text in pairs)


def date(number):
    return f"2024-02-{1 + number % 28:02}T12:30:15"


def office(number, core="docProps/core.xml"):
    """A text document of OOXML; `core` is the name of the part with its properties."""
    relations = (
        '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
        '<Relationship Id="rId1" Target="word/document.xml" Type="http://schemas.openxmlformats.org'
        '/officeDocument/2006/relationships/officeDocument"/>'
        f'<Relationship Id="rId2" Target="{core}" Type="http://schemas.openxmlformats.org'
        '/package/2006/relationships/metadata/core-properties"/></Relationships>')
    properties = (
        '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n<cp:coreProperties xmlns:cp="http:'
        '//schemas.openxmlformats.org/package/2006/metadata/core-properties" xmlns:dc="http://purl.'
        'org/dc/elements/1.1/" xmlns:dcterms="http://purl.org/dc/terms/">' + elements(
            ("dc:title", f"Report {number} & more"), ("dc:subject", f"Größe {number}"),
            ("dc:creator", f"Ann {number}; Bob"), ("cp:keywords", f"red {number}, green; blue"),
            ("dc:description", "One_x000d_\nTwo"), ("cp:lastModifiedBy", "Eve"),
            ("cp:revision", "7"), ("cp:version", f"1.{number}"),
            ("dcterms:created", date(number) + "Z"), ("dcterms:modified", date(number + 1) + "Z"))
        + "</cp:coreProperties>")
    content = package({"[Content_Types].xml": "<Types/>", "_rels/.rels": relations,
                       "word/document.xml": "<document/>", core: properties})
    return content, {
        "kMDItemTitle": f"Report {number} & more", "kMDItemHeadline": f"Größe {number}",
        "kMDItemAuthors": [f"Ann {number}", "Bob"], "kMDItemEditors": ["Eve"],
        "kMDItemKeywords": [f"red {number}", "green", "blue"], "kMDItemDescription": "One\nTwo",
        "kMDItemVersion": f"1.{number}", "kMDItemContentCreationDate": date(number) + "Z",
        "kMDItemContentModificationDate": date(number + 1) + "Z"}


def open_document(number):
    properties = (
        '<?xml version="1.0" encoding="UTF-8"?>\n<office:document-meta xmlns:office="urn:oasis:names:'
        'tc:opendocument:xmlns:office:1.0" xmlns:meta="urn:oasis:names:tc:opendocument:xmlns:meta:'
        '1.0" xmlns:dc="http://purl.org/dc/elements/1.1/" office:version="1.3"><office:meta>'
        + elements(
            ("meta:generator", "A program"), ("dc:title", f"Text {number}"),
            ("dc:subject", "Things"), ("dc:description", f"About\nthem {number}"),
            ("meta:initial-creator", f"Ann {number}"), ("dc:creator", "Eve"),
            ("meta:keyword", "red"), ("meta:keyword", f"green, {number}"),
            ("meta:creation-date", date(number) + ".250000000"), ("dc:date", date(number + 1)),
            ("meta:editing-cycles", "3"), ('meta:user-defined meta:name="title"', "Mine"))
        + "</office:meta></office:document-meta>")
    content = package({"mimetype": "application/vnd.oasis.opendocument.text",
                       "content.xml": "<content/>", "meta.xml": properties})
    return content, {
        "kMDItemTitle": f"Text {number}", "kMDItemHeadline": "Things",
        "kMDItemDescription": f"About\nthem {number}", "kMDItemAuthors": [f"Ann {number}"],
        "kMDItemEditors": ["Eve"], "kMDItemKeywords": ["red", f"green, {number}"],
        "kMDItemContentCreationDate": date(number) + ".250000000",
        "kMDItemContentModificationDate": date(number + 1)}


def epub(number):
    container = ('<container xmlns="urn:oasis:names:tc:opendocument:xmlns:container"><rootfiles>'
                 '<rootfile full-path="OEBPS/book.opf"/></rootfiles></container>')
    metadata = (
        '<?xml version="1.0"?>\n<package xmlns="http://www.idpf.org/2007/opf" version="3.0">'
        '<metadata xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:opf="http://www.idpf.org/2007/'
        'opf">' + elements(
            ("dc:title", f"Book\n  {number}"), ('dc:creator id="a"', f"Ann {number}"),
            ('dc:creator opf:role="edt"', "Eve"), ('dc:creator opf:role="aut"', "Bob"),
            ('dc:contributor id="b"', "Dan"), ("dc:contributor", "Nobody"),
            ('meta refines="#b" property="role"', "edt"), ("dc:subject", "red, or so"),
            ("dc:subject", f"green {number}"), ("dc:description", f"A long story {number}"),
            ("dc:rights", f"© {number}"), ("dc:date", date(number)[:10]),
            ('meta property="dcterms:modified"', date(number + 1) + "Z"))
        + '</metadata><manifest><item href="a.xhtml"/></manifest></package>')
    content = package({"mimetype": "application/epub+zip", "META-INF/container.xml": container,
                       "OEBPS/book.opf": metadata}, zipfile.ZIP_STORED)
    return content, {
        "kMDItemTitle": f"Book {number}", "kMDItemAuthors": [f"Ann {number}", "Bob"],
        "kMDItemEditors": ["Eve", "Dan"], "kMDItemKeywords": ["red, or so", f"green {number}"],
        "kMDItemDescription": f"A long story {number}", "kMDItemCopyright": f"© {number}",
        "kMDItemContentCreationDate": date(number)[:10],
        "kMDItemContentModificationDate": date(number + 1) + "Z"}


def web_page(number):
    content = f"""<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><!-- <title>None</title> -->
<script>document.write("<title>None</title>")</script>
<META NAME=Author CONTENT='Ann {number}; Bob'>
<meta content="A page &ndash; {number}" name="description"/>
<meta property="og:title" content="None"><meta name="keywords" content="red {number}, green">
<title>Page &amp;
  k&#246;ln {number}</title><meta name="copyright" content="&copy; {number}">
<meta property="article:published_time" content="{date(number)}+0100">
<meta name="dcterms.modified" content="{date(number + 1)[:10]}">
</head><body><title>None</title></body></html>"""
    return content.encode(), {
        "kMDItemTitle": f"Page & köln {number}", "kMDItemAuthors": [f"Ann {number}", "Bob"],
        "kMDItemDescription": f"A page – {number}", "kMDItemKeywords": [f"red {number}", "green"],
        "kMDItemCopyright": f"© {number}",
        "kMDItemContentCreationDate": date(number) + "+01:00",
        "kMDItemContentModificationDate": date(number + 1)[:10]}


def message(number):
    content = f"""Return-Path: <ann@example.org>
From: =?utf-8?Q?Ann_{number}_K=C3=B6hler?= <ann@example.org>
To: "Doe, John" <john@example.org>, mary@example.org (Mary {number}),
\tFriends: eve@example.org;
Cc: dan@example.org
Subject: =?utf-8?B?R3LDtsOf?=
 =?utf-8?Q?e?= of {number} things
Date: Thu, {1 + number % 28:02} Feb 2024 12:30:15 +0100 (CET)
Keywords: red {number}, green
Comments: A remark
 on {number}

Subject: none
""".replace("\n", "\r\n")
    return content.encode(), {
        "kMDItemTitle": f"Größe of {number} things", "kMDItemAuthors": [f"Ann {number} Köhler"],
        "kMDItemParticipants": ["Doe, John", f"Mary {number}", "eve@example.org",
                                "dan@example.org"],
        "kMDItemContentCreationDate": date(number) + "+01:00",
        "kMDItemKeywords": [f"red {number}", "green"], "kMDItemComment": f"A remark on {number}"}


# By the extension of the file's name.
DOCUMENTS = {"docx": office, "odt": open_document, "epub": epub, "html": web_page, "eml": message}
