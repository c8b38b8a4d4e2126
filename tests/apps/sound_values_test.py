# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the values that marquell-list reads from sound and video with what was written into the
files, and with those that exiftool and ffprobe read.

    sound_values_test.py                 as a test: over files made on the spot, which hold every
                                         ID3 frame and every field of the common columns
    sound_values_test.py FOLDER...       over the files below these folders; prints each difference
                                         and the share of values that are equal

Environment: MARQUELL_LIST is the program.
"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from image_values_test import our_values

TESTS = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TESTS / "support"))
import id3_bytes  # noqa: E402
import sound_bytes  # noqa: E402

# Column -> the frames that it holds, from the page that says so.
FRAMES = {column: frames.split() for column, frames in re.findall(
    r"^\| `(id3_\w+)` \| ([A-Z0-9 ]+) \|", (TESTS.parent / "docs/id3.md").read_text(), re.M)}

# Of sound_bytes' keys, where the name alone doesn't show the column.
KEYS = {"AlbumName": "album", "CreationDate": "creation_date", "LastModifiedDate": "modified_date"}


def plain(text):
    """Several values stand behind each other with a comma here, with a slash or semicolon there."""
    return re.sub(r"\s*(, | / |;)\s*", ", ", " ".join(text.split()))


def words(text):
    """Where brackets stand for our commas and colons."""
    return re.findall(r"\w+", text)


def numbers(text):
    return [float(number) for number in re.findall(r"[-+]?\d+(?:\.\d+)?", text)]


def date(text):
    """exiftool writes 2024:02:29 12:30 for 2024-02-29T12:30, ffprobe adds a fraction of 0."""
    return re.sub(r"\.0+(?=Z|$)", "", re.sub(r"^(\d{4})[-:](\d\d)[-:](\d\d)[T ]", r"\1-\2-\3T", text))


def place(text):
    """Height apart; ffprobe has the name of the place behind the position."""
    return [round(number, 3) for number in numbers(text)[:2]]


def tenths(text):
    return [round(float(text), 1)]


# Column -> what exiftool calls it in tags of ID3, and how both compare.
ID3 = {
    "album_title": "Album", "title_description": "Title", "band": "Band", "bpm": "BeatsPerMinute",
    "composer": "Composer", "copyright": "Copyright", "date": "Date", "playlist_delay":
    "PlaylistDelay", "encoded_by": "EncodedBy", "lyricist": "Lyricist", "file_type": "FileType",
    "time": "Time", "group_description": "Grouping", "sub_title": "Subtitle", "initial_key":
    "InitialKey", "language": "Language", "media_type": "Media", "original_album_title":
    "OriginalAlbum", "original_file_name": "OriginalFileName", "original_lyricist":
    "OriginalLyricist", "original_artist": "OriginalArtist", "original_release_year":
    "OriginalReleaseYear", "file_owner": "FileOwner", "lead_performer": "Artist", "conductor":
    "Conductor", "modified_by": "InterpretedBy", "part_of_a_set": "PartOfSet", "publisher":
    "Publisher", "track_number": "Track", "recording_dates": "RecordingDates",
    "radio_station_name": "InternetRadioStationName", "radio_station_owner":
    "InternetRadioStationOwner", "size": "Size", "international_standard_recording_code": "ISRC",
    "encoded_with": "EncoderSettings", "year": "Year", "mood": "Mood", "set_subtitle":
    "SetSubtitle", "produced_notice": "ProducedNotice", "album_sort_order": "AlbumSortOrder",
    "title_sort_order": "TitleSortOrder", "performer_sort_order": "PerformerSortOrder",
    "commercial_information": "CommercialURL", "copyright_information": "CopyrightURL",
    "official_audio_file_webpage": "FileURL", "official_artist_webpage": "ArtistURL",
    "official_source_webpage": "SourceURL", "official_publisher_webpage": "PublisherURL",
    "internet_radio_station_homepage": "InternetRadioStationURL", "payment": "PaymentURL",
    "play_counter": "PlayCounter", "terms_of_use": "TermsOfUse",
    "encoding_time": ("EncodingTime", date), "original_release_date": ("OriginalReleaseTime", date),
    "recording_time": ("RecordingTime", date), "release_time": ("ReleaseTime", date),
    "tagging_time": ("TaggingTime", date), "comments": ("Comment", words),
    "user_text": ("UserDefinedText", words), "unsynchronized_lyric": ("Lyrics", words),
    "content_type": ("Genre", words), "involved_people_list": ("InvolvedPeople", words),
    "musician_credits_list": ("MusicianCredits", words), "popularimeter": ("Popularimeter", numbers),
}

# What ffprobe calls frames; others have their identifiers.
FRAME_NAMES = dict(pair.split(":") for pair in """
TALB:album TAL:album TCOM:composer TCM:composer TCON:genre TCO:genre TCOP:copyright TENC:encoded_by
TEN:encoded_by TIT2:title TT2:title TLAN:language TPE1:artist TP1:artist TPE2:album_artist
TP2:album_artist TPE3:performer TP3:performer TPOS:disc TPUB:publisher TRCK:track TRK:track
TSSE:encoder TDRC:date TDEN:creation_time TSOA:album-sort TSOP:artist-sort TSOT:title-sort
TCMP:compilation""".split())

# Column -> tags of exiftool, of which the first that is there counts; "|"; names of ffprobe; how
# both compare.
COMMON = {
    "av_title": "ID3:Title Keys:Title ItemList:Title UserData:Title RIFF:Title AIFF:Name | title",
    "av_artist": "ID3:Artist Keys:Artist ItemList:Artist UserData:Artist UserData:Performer "
                 "RIFF:Artist | artist",
    "av_author": "ID3:Lyricist Keys:Author ItemList:Author UserData:UserData_aut UserData:Author "
                 "RIFF:WrittenBy AIFF:Author | author iwri",
    "av_creator": "ID3:Composer Keys:Composer ItemList:Composer UserData:Composer RIFF:MusicBy | "
                  "composer imus",
    "av_album": "ID3:Album Keys:Album ItemList:Album UserData:Album RIFF:Product | album",
    "av_publisher": "ID3:Publisher Keys:Publisher ItemList:Publisher UserData:UserData_pub | "
                    "publisher ipub",
    "av_contributor": "ID3:InterpretedBy ID3:Band Keys:Producer ItemList:Producer UserData:Director "
                      "RIFF:Engineer | producer director ieng",
    "av_subject": "ID3:Grouping Keys:Subject ItemList:Category UserData:UserData_key "
                  "UserData:Keywords RIFF:Subject | subject isbj category",
    "av_description": "ID3:Subtitle Keys:Description ItemList:Description UserData:UserData_des "
                      "UserData:Description RIFF:Description AIFF:Annotation | description",
    "av_type": ("ID3:Genre Keys:Genre ItemList:Genre UserData:Genre RIFF:Genre | genre", words),
    "av_format": "ID3:FileType ID3:Media Keys:Format ItemList:UserData_fmt UserData:Format "
                 "RIFF:Medium | format original_format imed",
    "av_source": "ID3:SourceURL ID3:Media Keys:Source ItemList:UserData_src UserData:SourceCredits "
                 "RIFF:Source | source original_source isrc",
    "av_identifier": "Keys:Identifier RIFF:OriginatorReference | identifier",
    "av_language": "ID3:Language Keys:Language RIFF:Language | language",
    "av_relation": "Keys:Relation ItemList:TVShow UserData:CollectionName RIFF:BaseURL | relation "
                   "show ibsu",
    "av_location": ("Keys:GPSCoordinates ItemList:GPSCoordinates UserData:GPSCoordinates "
                    "RIFF:ArchivalLocation | location location.iso6709 iarl", place),
    "av_copyrights": "ID3:Copyright Keys:Copyright ItemList:Copyright UserData:Copyright "
                     "RIFF:Copyright AIFF:Copyright | copyright",
    "av_make": "Keys:Make ItemList:UserData_mak UserData:Make RIFF:Make | make",
    "av_model": "Keys:Model ItemList:UserData_mod UserData:Model RIFF:Model | model",
    "av_software": "ID3:EncoderSettings ID3:EncodedBy Keys:Software ItemList:Encoder "
                   "UserData:SoftwareVersion RIFF:Software | software encoder",
    "av_lyrics": "Keys:Lyrics ItemList:Lyrics | lyrics ilyc",
    "av_creation_date": ("ID3:RecordingTime ID3:Year ID3:ReleaseTime Keys:CreationDate "
                         "ItemList:ContentCreateDate UserData:ContentCreateDate UserData:Year "
                         "RIFF:DateCreated | creationdate date", date),
    "av_modified_date": ("ID3:TaggingTime Keys:Modificationdate | modificationdate", date),
    "title": "Vorbis:Title ASF:Title APE:Title Matroska:Title | title",
    "album": "Vorbis:Album ASF:AlbumTitle APE:Album | album",
    "copyright": "Vorbis:Copyright ASF:Copyright APE:Copyright | copyright",
    "comment": "Vorbis:Comment APE:Comment | comment",
    "make": "| make", "model": "| model",
}

# What ffprobe calls our codecs; those of PCM are one.
CODECS = {
    "AAC": "aac", "MP3": "mp3", "H.264": "h264", "MPEG-4 Video": "mpeg4", "FLAC": "flac",
    "MPEG-2 Video": "mpeg2video", "AC-3": "ac3", "E-AC-3": "eac3", "Apple Lossless": "alac",
}


def exiftool_values(folders):
    """By path and tag all values; the versions of ID3 and the languages of comments are one."""
    done = subprocess.run(["exiftool", "-j", "-a", "-G1:4", "-r", "-sep", ", ", "-c", "%+.6f",
                           *folders], capture_output=True, timeout=300)
    files = {}
    for tags in json.loads(done.stdout):
        values = files.setdefault(os.path.abspath(tags["SourceFile"]), {})
        for tag, value in tags.items():
            tag = re.sub(r"^ID3v2_\d", "ID3", re.sub(r":Copy\d+|-[a-z]{3}$", "", tag))
            values.setdefault(tag, []).append(str(value))
    return files


def ffprobe_values(path):
    """The tags by name, in small letters and without a domain, and the streams and their file."""
    done = subprocess.run(["ffprobe", "-v", "quiet", "-show_format", "-show_streams", "-of", "json",
                           path], capture_output=True, timeout=60)
    found = json.loads(done.stdout or b"{}")
    file, streams = found.get("format", {}), found.get("streams", [])
    streams = [s for s in streams if not s["disposition"]["attached_pic"]]
    tags = {}
    sounds = [s.get("tags", {}) for s in streams if s.get("codec_type") == "audio"][:1]
    for names in [*sounds, file.get("tags", {})]:
        for name, value in names.items():
            tags[name.lower().removeprefix("com.apple.quicktime.")] = [value]
    return tags, streams, file


def stream_values(streams, file):
    """By column, where ffprobe knows."""
    def rates(kind):
        found = [stream.get("bit_rate") for stream in streams if stream.get("codec_type") == kind]
        return str(sum(map(int, found))) if found and None not in found else None

    sounds = [stream for stream in streams if stream.get("codec_type") == "audio"]
    videos = [stream for stream in streams if stream.get("codec_type") == "video"]
    names = {"audio": "Sound", "video": "Video", "subtitle": "Subtitles"}
    size = [str(videos[0][side]) for side in ("width", "height")] if videos else [None, None]
    values = {
        "duration": file.get("duration"), "totalbitrate": file.get("bit_rate"),
        "audiobitrate": rates("audio"), "videobitrate": rates("video"),
        "pixelwidth": size[0], "pixelheight": size[1],
        "mediatypes": ", ".join(dict.fromkeys(names[s.get("codec_type")] for s in streams
                                              if s.get("codec_type") in names)),
        "codecs": ", ".join(dict.fromkeys(s.get("codec_name", "") for s in streams
                                          if s.get("codec_type") in names)),
        "bitspersample": next((str(s.get("bits_per_raw_sample") or s.get("bits_per_sample"))
                               for s in sounds), None),
    }
    return values


def differences(folders):
    ours = our_values(folders, ["extension", *COLUMNS])
    exiftool = exiftool_values(folders)
    with ThreadPoolExecutor(2) as pool:
        ffprobe = dict(zip(ours, pool.map(ffprobe_values, ours)))
    compared, found = 0, []
    for path, row in sorted(ours.items()):
        for column, tool, theirs in others(row, exiftool.get(path, {}), *ffprobe[path]):
            compared += 1
            value = row.get(column) or ""
            alike = COLUMNS[column]
            try: ok = any(alike(value) == alike(t) for t in theirs)
            except (ValueError, TypeError): ok = False
            if not ok: found.append((path, column, value, tool, theirs))
    return compared, found


def others(row, exif, tags, streams, file):
    for column, value in stream_values(streams, file).items():
        if value and value not in ("N/A", "0"): yield column, "ffprobe", [value]
    isid3 = any(t.startswith("ID3:") for t in exif)
    for column, entry in ID3.items():
        name = entry if isinstance(entry, str) else entry[0]
        if "ID3:"+name in exif: yield "id3_"+column, "exiftool", exif["ID3:"+name]
    if isid3:
      for column, frames in FRAMES.items():
        for frame in frames:
            name = FRAME_NAMES.get(frame, frame).lower()
            if name in tags: yield column, "ffprobe", tags[name]; break
    for column, entry in COMMON.items():
        if column.startswith("av_") and row["extension"].lower() not in AV: continue
        text = entry if isinstance(entry, str) else entry[0]
        e, f = text.split("|")
        for t in e.split():
            if t in exif: yield column, "exiftool", exif[t]; break
        for t in f.split():
            if t in tags: yield column, "ffprobe", tags[t]; break

AV = "mov qt mp4 m4v m4a 3gp 3gpp sdv 3g2 3gp2 caf wav wave bwf aif aiff aifc cdda amr mp3 au snd ac3 eac3".split()
COLUMNS = {"id3_"+c: e[1] if isinstance(e, tuple) else plain for c, e in ID3.items()}
for c in FRAMES: COLUMNS.setdefault(c, plain)
COLUMNS |= {c: e[1] if isinstance(e, tuple) else plain for c, e in COMMON.items()}
COLUMNS |= dict.fromkeys("totalbitrate audiobitrate videobitrate pixelwidth pixelheight mediatypes codecs bitspersample".split(), plain)
COLUMNS["duration"] = tenths

def main():
    compared, found = differences(sys.argv[1:])
    for path, column, ours, tool, theirs in found:
        print(f"{Path(path).name}: {column}: {ours!r}, {tool} {theirs!r}")
    print(f"{compared} values compared, {len(found)} differ, "
          f"{100 * (1 - len(found) / max(1, compared)):.2f} % equal")


if __name__ == "__main__":
    if len(sys.argv) > 1:
        main()
    else:
        unittest.main()
