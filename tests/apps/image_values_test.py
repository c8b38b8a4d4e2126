# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the values that marquell-list reads from images with those that exiftool reads.

    image_values_test.py                 as a test: over images made on the spot, which hold every
                                         field of the image columns once
    image_values_test.py FOLDER...       over the images below these folders; prints each difference
                                         and the share of values that are equal

Environment: MARQUELL_LIST is the program.
"""

import json
import os
import re
import resource
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path

PROGRAM = os.environ.get("MARQUELL_LIST", "")


def plain(value):
    return value


def squared(value):
    """An APEX value beside what exiftool makes of it, an aperture."""
    return 2 ** (float(value) / 2)


def halved(value):
    """An APEX value beside an exposure time."""
    return 2 ** -float(value)


def version(value):
    """2.3.1 as 0231."""
    parts = (value.split(".") + ["0", "0"])[:3]
    return f"{int(parts[0]):02d}{parts[1]}{parts[2]}"


def spaced(value):
    """A list beside exiftool's, which has blanks between the numbers."""
    return value.replace(", ", " ").replace("?", "undef")


def dotted_numbers(value):
    return value.replace(".", " ")


def camera_date(value):
    """As the list writes it, in the form of the file."""
    return value.replace("-", ":")


def iim_date(value):
    """20240102 as exiftool writes it: its separators are put in."""
    return re.sub(r"^(\d{4})(\d\d)(\d\d)$", r"\1:\2:\3", value)


def iim_time(value):
    return re.sub(r"^(\d\d)(\d\d)(\d\d)(?:([+-]\d\d)(\d\d))?$",
                  lambda m: f"{m[1]}:{m[2]}:{m[3]}" + (f"{m[4]}:{m[5]}" if m[4] else ""), value)


# Column -> exiftool's tags for it, the first that is there counts, and how our text compares.
COLUMNS = {
    "image_pixel_height": (["File:ImageHeight", "PNG:ImageHeight", "IFD0:ImageHeight",
                            "GIF:ImageHeight", "Photoshop:ImageHeight", "RIFF:ImageHeight",
                            "Meta:ImageSpatialExtent/1"], plain),
    "image_pixel_width": (["File:ImageWidth", "PNG:ImageWidth", "IFD0:ImageWidth",
                           "GIF:ImageWidth", "Photoshop:ImageWidth", "RIFF:ImageWidth",
                           "Meta:ImageSpatialExtent/0"], plain),
    "image_dpi_width": (["dpi:x"], plain),
    "image_dpi_height": (["dpi:y"], plain),
    "image_depth": (["depth:"], plain),
    "image_profile_name": (["ICC_Profile:ProfileDescription"], plain),
    "exif_make": (["IFD0:Make"], plain),
    "exif_model": (["IFD0:Model"], plain),
}

# Column without its prefix -> name in exiftool's ExifIFD, if it isn't the same in camel case.
EXIF = {
    "date_time_original": ("DateTimeOriginal", camera_date),
    "date_time_digitized": ("CreateDate", camera_date),
    "subject_distance": ("SubjectDistance", plain),
    "metering_mode": ("MeteringMode", plain),
    "light_source": ("LightSource", plain),
    "flash": ("Flash", plain),
    "focal_length": ("FocalLength", plain),
    "user_comment": ("UserComment", plain),
    "subsec_time": ("SubSecTime", plain),
    "subsec_time_original": ("SubSecTimeOriginal", plain),
    "subsec_time_digitized": ("SubSecTimeDigitized", plain),
    "color_space": ("ColorSpace", plain),
    "pixel_x_dimension": ("ExifImageWidth", plain),
    "pixel_y_dimension": ("ExifImageHeight", plain),
    "subject_location": ("SubjectLocation", spaced),
    "scene_type": ("SceneType", plain),
    "exposure_mode": ("ExposureMode", plain),
    "white_balance": ("WhiteBalance", plain),
    "digital_zoom_ratio": ("DigitalZoomRatio", plain),
    "focal_length_in_35mm_film": ("FocalLengthIn35mmFormat", plain),
    "scene_capture_type": ("SceneCaptureType", plain),
    "contrast": ("Contrast", plain),
    "saturation": ("Saturation", plain),
    "sharpness": ("Sharpness", plain),
    "subject_distance_range": ("SubjectDistanceRange", plain),
    "image_unique_id": ("ImageUniqueID", plain),
    "camera_owner_type": ("OwnerName", plain),
    "body_serial_number": ("SerialNumber", plain),
    "lens_specification": ("LensInfo", spaced),
    "lens_make": ("LensMake", plain),
    "lens_model": ("LensModel", plain),
    "lens_serial_number": ("LensSerialNumber", plain),
    "gamma": ("Gamma", plain),
    "exposure_time": ("ExposureTime", plain),
    "f_number": ("FNumber", plain),
    "exposure_program": ("ExposureProgram", plain),
    "shutter_speed": ("ShutterSpeedValue", halved),
    "aperature": ("ApertureValue", squared),
    "brightness": ("BrightnessValue", plain),
    "iso_speed_ratings": ("ISO", plain),
    "iso_speed": ("ISOSpeed", plain),
    "version": ("ExifVersion", version),
}
for column, (tag, convert) in EXIF.items():
    COLUMNS["exif_" + column] = ([f"ExifIFD:{tag}", f"IFD0:{tag}"], convert)

GPS = {
    "version": ("VersionID", dotted_numbers),
    "latitude_ref": "LatitudeRef", "latitude": "Latitude",
    "longitude_ref": "LongitudeRef", "longitude": "Longitude",
    "altitude_ref": "AltitudeRef", "altitude": "Altitude", "time_stamp": "TimeStamp",
    "satellites": "Satellites", "status": "Status", "measure_mode": "MeasureMode", "dop": "DOP",
    "speed_ref": "SpeedRef", "speed": "Speed", "track_ref": "TrackRef", "track": "Track",
    "image_direction_ref": "ImgDirectionRef", "image_direction": "ImgDirection",
    "map_datum": "MapDatum", "destination_latitude_ref": "DestLatitudeRef",
    "destination_latitude": "DestLatitude", "destination_longitude_ref": "DestLongitudeRef",
    "destination_longitude": "DestLongitude", "destination_bearing_ref": "DestBearingRef",
    "destination_bearing": "DestBearing", "distance_ref": "DestDistanceRef",
    "distance": "DestDistance", "processing_method": "ProcessingMethod",
    "area_information": "AreaInformation", "date_stamp": "DateStamp",
    "differential": "Differential", "positioning_error": "HPositioningError",
}
for column, entry in GPS.items():
    tag, convert = entry if isinstance(entry, tuple) else (entry, plain)
    COLUMNS["gps_" + column] = ([f"GPS:GPS{tag}"], convert)

# Column -> tag of the IIM record and, behind it, tags of XMP that take its place.
IPTC = {
    "object_type_reference": "ObjectTypeReference",
    "attribute_reference": "ObjectAttributeReference XMP-iptcCore:IntellectualGenre",
    "object_name": "ObjectName XMP-dc:Title", "edit_status": "EditStatus",
    "editorial_update": "EditorialUpdate", "urgency": "Urgency XMP-photoshop:Urgency",
    "subject_reference": "SubjectReference XMP-iptcCore:SubjectCode",
    "category": "Category XMP-photoshop:Category",
    "supplemental_category": "SupplementalCategories XMP-photoshop:SupplementalCategories",
    "fixture_identifier": "FixtureIdentifier", "keywords": "Keywords XMP-dc:Subject",
    "content_location_code": "ContentLocationCode",
    "content_location_name": "ContentLocationName", "release_date": "ReleaseDate",
    "release_time": "ReleaseTime", "expiration_date": "ExpirationDate",
    "expiration_time": "ExpirationTime",
    "special_instructions": "SpecialInstructions XMP-photoshop:Instructions",
    "action_advised": "ActionAdvised", "reference_service": "ReferenceService",
    "reference_date": "ReferenceDate", "reference_number": "ReferenceNumber",
    "date_created": "DateCreated XMP-photoshop:DateCreated/0",
    "time_created": "TimeCreated XMP-photoshop:DateCreated/1",
    "digital_creation_date": "DigitalCreationDate",
    "digital_creation_time": "DigitalCreationTime",
    "originating_program": "OriginatingProgram", "program_version": "ProgramVersion",
    "object_cycle": "ObjectCycle", "creator": "By-line XMP-dc:Creator",
    "creator_job_title": "By-lineTitle XMP-photoshop:AuthorsPosition",
    "city": "City XMP-photoshop:City", "sub_location": "Sub-location XMP-iptcCore:Location",
    "province_state": "Province-State XMP-photoshop:State",
    "country_primary_location_code":
        "Country-PrimaryLocationCode XMP-iptcCore:CountryCode",
    "primary_location_name": "Country-PrimaryLocationName XMP-photoshop:Country",
    "original_transmission_reference":
        "OriginalTransmissionReference XMP-photoshop:TransmissionReference",
    "headline": "Headline XMP-photoshop:Headline", "credit": "Credit XMP-photoshop:Credit",
    "source": "Source XMP-photoshop:Source",
    "copyright_notice": "CopyrightNotice XMP-dc:Rights", "contact": "Contact",
    "caption_abstract": "Caption-Abstract XMP-dc:Description",
    "writer_editor": "Writer-Editor XMP-photoshop:CaptionWriter", "image_type": "ImageType",
    "image_orientation": "ImageOrientation", "language_identifier": "LanguageIdentifier",
    "star_rating": "- XMP-xmp:Rating", "rights_usage_terms": "- XMP-xmpRights:UsageTerms",
    "scene": "- XMP-iptcCore:Scene", "contact_info_city": "- XMP-iptcCore:CreatorCity",
    "contact_info_country": "- XMP-iptcCore:CreatorCountry",
    "contact_info_address": "- XMP-iptcCore:CreatorAddress",
    "contact_info_postal_code": "- XMP-iptcCore:CreatorPostalCode",
    "contact_info_state_province": "- XMP-iptcCore:CreatorRegion",
    "contact_info_emails": "- XMP-iptcCore:CreatorWorkEmail",
    "contact_info_phones": "- XMP-iptcCore:CreatorWorkTelephone",
    "contact_info_web_urls": "- XMP-iptcCore:CreatorWorkURL",
}
for column, names in IPTC.items():
    first, *others = names.split(" ")
    convert = iim_date if column.endswith("date") or column == "date_created" else \
        iim_time if "time" in column else plain
    COLUMNS["iptc_" + column] = ([f"IPTC:{first}", *others], convert)

# Without a counterpart: exiftool writes no text for the first two, the last sums up others.
UNCOMPARED = ["exif_maker_note", "exif_device_setting_description", "iptc_creator_contact_info"]


def from_metric(dots):
    """A metric density stands for the whole number of dots per inch that it is close to."""
    return round(dots) if abs(dots - round(dots)) <= 0.01 else dots


def dots_per_inch(tags, axis):
    """From where the list has it: the EXIF directory goes before a JPEG's own header."""
    found = tags.get(f"PNG-pHYs:PixelsPerUnit{axis}")
    if found and tags.get("PNG-pHYs:PixelUnits") == 1:
        return from_metric(found * 0.0254)
    found = tags.get(f"IFD0:{axis}Resolution")
    if found not in (None, 0, "undef", "inf"):
        unit = tags.get("IFD0:ResolutionUnit", 2)
        if unit in (2, 3):
            return from_metric(found * 2.54) if unit == 3 else found
    found = tags.get(f"JFIF:{axis}Resolution")
    if found:
        unit = tags.get("JFIF:ResolutionUnit")
        return from_metric(found * 2.54) if unit == 2 else found if unit == 1 else None
    found = tags.get(f"Photoshop:{axis}Resolution")
    return found or None


def depth(tags):
    """Only where exiftool shows what we mean by it."""
    if tags.get("File:MIMEType") == "image/png":
        return 8 if tags.get("PNG:ColorType") == 3 else tags.get("PNG:BitDepth")
    for tag in ("Meta:ImagePixelDepth", "QuickTime:ImagePixelDepth", "File:BitsPerSample", "IFD0:BitsPerSample", "Photoshop:BitDepth"):
        if tag in tags:
            return first_number(tags[tag])
    return None


def first_number(value):
    return None if value is None else int(str(value).split(" ")[0])


def expected_value(tags, column):
    names, _ = COLUMNS[column]
    for name in names:
        if name == "depth:":
            return depth(tags)
        if name.startswith("dpi:"):
            return dots_per_inch(tags, name[-1].upper())
        name, _, part = name.partition("/")
        if name in tags:
            value = tags[name]
            return (str(value).split(" ") + [None])[int(part)] if part else value
    return None


def as_text(value):
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, list):
        return ", ".join(as_text(item) for item in value)
    return str(value)


def is_equal(ours, theirs, convert):
    """Whether our text and exiftool's value say the same; exiftool rounds to ten digits."""
    if ours in (None, "") or theirs in (None, ""):
        return ours in (None, "") and theirs in (None, "", "undef", "inf", "-inf")
    converted = convert(ours)
    if as_text(converted).split() == as_text(theirs).split():
        return True
    try:
        a, b = float(converted), float(theirs)
    except (TypeError, ValueError):
        numbers = [as_text(x).replace(", ", " ").split() for x in (converted, theirs)]
        if len(numbers[0]) != len(numbers[1]) or len(numbers[0]) < 2:
            return False
        return all(is_equal(x, y, plain) for x, y in zip(*numbers))
    return abs(a - b) <= 1e-8 * max(1.0, abs(a), abs(b))


def our_values(folders, columns):
    command = [PROGRAM, "-q", "-f", "json", "-s", "jsonDateFormatMode=1", "-c",
               ",".join(["absolute_path", *columns]), "--", *folders]
    done = subprocess.run(command, capture_output=True, timeout=300,
                          env={**os.environ, "TZ": "UTC"})
    if done.stderr:
        print(done.stderr.decode(), file=sys.stderr)
    return {row["absolute_path"]: row for row in json.loads(done.stdout)}


def exiftool_values(folders):
    command = ["exiftool", "-j", "-n", "-G1", "-a", "-r", "-sep", ", ",
               "-api", "struct=0", "-charset", "iptc=Latin", *folders]
    done = subprocess.run(command, capture_output=True, timeout=600)
    # The first of several tags of one name counts, as in its other outputs the last does.
    return {os.path.abspath(tags["SourceFile"]): tags for tags in json.loads(done.stdout)}


def differences(folders):
    """(number of values compared, list of (path, column, ours, theirs))."""
    ours, theirs = our_values(folders, COLUMNS), exiftool_values(folders)
    compared, found = 0, []
    for path, row in sorted(ours.items()):
        tags = theirs.get(path)
        if tags is None or not str(tags.get("File:MIMEType", "")).startswith("image/"):
            continue
        for column in COLUMNS:
            value, expected = row.get(column), expected_value(tags, column)
            if value in (None, "") and expected in (None, ""):
                continue
            compared += 1
            if not is_equal(value, expected, COLUMNS[column][1]):
                found.append((path, column, value, expected))
    return compared, found


# What the images made here hold, in exiftool's names and raw numbers.
WRITTEN = """
IFD0:Make=Maker IFD0:Model=Modell\u00fc IFD0:XResolution=300 IFD0:YResolution=240
IFD0:ResolutionUnit=2 DateTimeOriginal=2024:02:29_23:59:58 ExifIFD:CreateDate=2024:03:01_00:00:01
SubjectDistance=1.5 MeteringMode=5 LightSource=10 ExifIFD:Flash=25 FocalLength=4.2
UserComment=Gr\u00fc\u00dfe_\u65e5\u672c SubSecTime=012 SubSecTimeOriginal=45
SubSecTimeDigitized=7 ExifIFD:ColorSpace=1 ExifImageWidth=4000 ExifImageHeight=3000
SubjectLocation=10_20 SceneType=1 ExposureMode=2 WhiteBalance=1 DigitalZoomRatio=1.25
FocalLengthIn35mmFormat=28 SceneCaptureType=3 ExifIFD:Contrast=1 ExifIFD:Saturation=2
ExifIFD:Sharpness=1 SubjectDistanceRange=2 ImageUniqueID=0123456789abcdef OwnerName=Owner
ExifIFD:SerialNumber=S-1 LensInfo=24_70_2.8_4 LensMake=LM ExifIFD:LensModel=LX
ExifIFD:LensSerialNumber=L-9 Gamma=2.2 ExposureTime=0.004 FNumber=2.8 ExposureProgram=3
ShutterSpeedValue=0.004 ApertureValue=2.8 BrightnessValue=-1.5 ExifIFD:ISO=3200 ISOSpeed=3201
ExifVersion=0231 GPSVersionID=2_3_0_0 GPSLatitudeRef=S GPSLatitude=33.8567844
GPSLongitudeRef=W GPSLongitude=151.2152967 GPSAltitudeRef=1 GPSAltitude=58.25
GPSTimeStamp=01:02:03.5 GPSSatellites=7 GPSStatus=A GPSMeasureMode=3 GPSDOP=1.5 GPSSpeedRef=K
GPSSpeed=12.5 GPSTrackRef=T GPSTrack=359.5 GPSImgDirectionRef=M GPSImgDirection=17.25
GPSMapDatum=WGS-84 GPSDestLatitudeRef=N GPSDestLatitude=1.5 GPSDestLongitudeRef=E
GPSDestLongitude=2.25 GPSDestBearingRef=T GPSDestBearing=90.5 GPSDestDistanceRef=N
GPSDestDistance=3.75 GPSProcessingMethod=GPS_fix GPSAreaInformation=Z\u00fcrich
GPSDateStamp=2024:02:29 GPSDifferential=1 GPSHPositioningError=4.5
IPTC:ObjectTypeReference=01 IPTC:ObjectAttributeReference=001:x IPTC:ObjectName=Nam\u00e9
IPTC:EditStatus=es IPTC:EditorialUpdate=01 IPTC:Urgency=4 IPTC:SubjectReference=IPTC:0:1:2:3
IPTC:Category=CAT IPTC:SupplementalCategories=s1 IPTC:SupplementalCategories=s2
IPTC:FixtureIdentifier=fi IPTC:Keywords=sea IPTC:Keywords=sky,_blue
IPTC:ContentLocationCode=FRA IPTC:ContentLocationName=France IPTC:ReleaseDate=2024:01:02
IPTC:ReleaseTime=12:34:56+01:00 IPTC:ExpirationDate=2025:01:02
IPTC:ExpirationTime=12:34:57-09:30 IPTC:SpecialInstructions=si IPTC:ActionAdvised=01
IPTC:ReferenceService=rs IPTC:ReferenceDate=2023:01:02 IPTC:ReferenceNumber=7
IPTC:DateCreated=2024:02:29 IPTC:TimeCreated=23:59:58+00:00
IPTC:DigitalCreationDate=2024:03:01 IPTC:DigitalCreationTime=00:00:01+00:00
IPTC:OriginatingProgram=op IPTC:ProgramVersion=1.2 IPTC:ObjectCycle=a IPTC:By-line=A._Uthor
IPTC:By-lineTitle=title IPTC:City=K\u00f6ln IPTC:Sub-location=Dom IPTC:Province-State=NRW
IPTC:Country-PrimaryLocationCode=DEU IPTC:Country-PrimaryLocationName=Germany
IPTC:OriginalTransmissionReference=otr IPTC:Headline=hl IPTC:Credit=cr IPTC:Source=so
IPTC:CopyrightNotice=\u00a9_me IPTC:Contact=con IPTC:Caption-Abstract=two_words
IPTC:Writer-Editor=we IPTC:ImageType=1Y IPTC:ImageOrientation=L IPTC:LanguageIdentifier=de
XMP-xmp:Rating=4 XMP-xmpRights:UsageTerms=ask_me XMP-iptcCore:Scene=010100
XMP-iptcCore:Scene=011221 XMP-iptcCore:CreatorCity=Bonn XMP-iptcCore:CreatorCountry=Germany
XMP-iptcCore:CreatorAddress=Street_1 XMP-iptcCore:CreatorPostalCode=53111
XMP-iptcCore:CreatorRegion=Rhineland XMP-iptcCore:CreatorWorkEmail=me@example.org
XMP-iptcCore:CreatorWorkTelephone=+49_1 XMP-iptcCore:CreatorWorkURL=https://example.org
""".split()


def small_jpeg():
    """A header that readers of metadata are content with: 40 by 30 pixels."""
    frame = struct.pack(">HBHHB", 17, 8, 30, 40, 3) + b"\1\x22\0\2\x11\1\3\x11\1"
    return b"\xff\xd8\xff\xc0" + frame + b"\xff\xda\0\x0c\3\1\0\2\x11\3\x11\0\x3f\0\0\xff\xd9"


def small_png():
    def chunk(kind, data):
        crc = struct.pack(">I", zlib.crc32(kind + data))
        return struct.pack(">I", len(data)) + kind + data + crc
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 4, 3, 16, 2, 0, 0, 0))
            + chunk(b"pHYs", struct.pack(">IIB", 11811, 5906, 1))
            + chunk(b"IDAT", zlib.compress(bytes(3 * 25))) + chunk(b"IEND", b""))


def small_tiff():
    fields = [(256, 4, 4), (257, 4, 3), (258, 3, 8), (259, 3, 1), (262, 3, 1), (273, 4, 8),
              (277, 3, 1), (278, 4, 3), (279, 4, 12)]
    directory = struct.pack("<H", len(fields))
    for tag, kind, value in fields:
        directory += struct.pack("<HHI", tag, kind, 1) + struct.pack("<I", value)
    return b"II*\0" + struct.pack("<I", 20) + bytes(12) + directory + bytes(4)


class ImageValuesTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="marquell-")).resolve()
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, content, tags, *options):
        path = self.folder / name
        path.write_bytes(content)
        values = [f"-{tag}".replace("_", " ") for tag in tags]
        subprocess.run(["exiftool", "-q", "-q", "-n", "-m", "-overwrite_original", *options,
                        *values, path], check=True)
        return path

    def test_every_field_once(self):
        """In each container that holds them, in both byte orders."""
        utf8 = ["-charset", "iptc=UTF8", "-IPTC:CodedCharacterSet=UTF8"]
        self.write("all.jpg", small_jpeg(), WRITTEN, *utf8)
        self.write("little.JPG", small_jpeg(), WRITTEN, "-ExifByteOrder=II")
        self.write("all.png", small_png(), WRITTEN)
        self.write("all.tiff", small_tiff(), WRITTEN, *utf8)
        xmp = [tag for tag in WRITTEN if not tag.startswith("IPTC:")]
        core = ["XMP-dc:Title=t", "XMP-dc:Subject=a", "XMP-dc:Subject=b", "XMP-dc:Creator=c",
                "XMP-dc:Rights=r", "XMP-dc:Description=d", "XMP-photoshop:City=e",
                "XMP-photoshop:Headline=h", "XMP-iptcCore:CountryCode=DE"]
        self.write("xmp.jpg", small_jpeg(), xmp + core)
        compared, found = differences([str(self.folder)])
        self.assertEqual(found, [])
        full = our_values([str(self.folder / "all.jpg")], [*COLUMNS, *UNCOMPARED])
        (row,) = full.values()
        empty = [column for column, value in row.items() if value in (None, "")]
        # The file has no profile; nobody writes the other two as texts.
        self.assertEqual(empty, ["image_profile_name", *UNCOMPARED[:2]])
        self.assertGreater(compared, 4 * 100)

    def list_models(self, program=PROGRAM, files=1024, *options):
        """Status, rows and messages of a list of names and models with so many descriptors."""
        done = subprocess.run(
            [program, "-q", *options, "-c", "name,exif_model,md5", self.folder], timeout=120,
            capture_output=True,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (files, files)))
        return done.returncode, done.stdout, done.stderr.decode()

    def test_with_few_descriptors(self):
        photo = self.write("0.jpg", small_jpeg(), ["IFD0:Model=M"]).read_bytes()
        for number in range(1, 100):
            (self.folder / f"{number}.jpg").write_bytes(photo)
        whole = self.list_models()
        self.assertEqual((whole[0], whole[1].count(b'"M"'), whole[2]), (0, 100, ""))
        for files, jobs in [(20, "2"), (24, "8"), (64, "40")]:
            self.assertEqual(self.list_models(PROGRAM, files, "--jobs", jobs), whole)

    def test_without_the_reader(self):
        """The columns that this process fills are there all the same, and one warning."""
        self.write("a.jpg", small_jpeg(), ["IFD0:Model=M"])
        self.write("b.jpg", small_jpeg(), ["IFD0:Model=M"])
        with tempfile.TemporaryDirectory() as elsewhere:
            program = shutil.copy(PROGRAM, elsewhere)
            status, rows, messages = self.list_models(program)
        expected = self.list_models()[1].replace(b'"M"', b'""')
        self.assertEqual((status, rows), (1, expected))
        self.assertRegex(messages, r'^marquell-list: "[^"\n]+/marquell-read-light": [^\n]+\n$')


def main():
    compared, found = differences(sys.argv[1:])
    for path, column, ours, theirs in found:
        print(f"{path}: {column}: {ours!r}, exiftool {theirs!r}")
    print(f"{compared} values compared, {len(found)} differ, "
          f"{100 * (1 - len(found) / max(1, compared)):.2f} % equal")


if __name__ == "__main__":
    if len(sys.argv) > 1:
        main()
    else:
        unittest.main()
