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

# The extensions that have columns of tags.
TAGGED = ("mov qt mp4 m4v m4a 3gp 3gpp 3g2 3gp2 caf wav wave bwf aif aiff aifc amr mp3 au snd "
          "ac3 eac3").split()


def plain(text):
    """Several values stand behind each other with a comma here, with a slash or semicolon there."""
    return re.sub(r"\s*(, | / |;)\s*", ", ", " ".join(text.split()))


def words(text):
    """The others have brackets and slashes for our commas and colons."""
    return re.findall(r"\w+", text.lower())


def date(text):
    """exiftool writes 2024:02:29 12:30 for 2024-02-29T12:30."""
    return re.sub(r"^(\d{4}):(\d\d):(\d\d) ?", r"\1-\2-\3T", text)


def codecs(text):
    """In our names."""
    text = re.sub(r"dsd_\w+", "DSD", re.sub(r"pcm_[su]\w+", "Linear PCM", text))
    return re.sub(r"\w+", lambda word: CODECS.get(word[0], word[0]), text)


def same(form):
    return lambda ours, theirs: form(ours) == form(theirs)


def begins(form):
    """Where they have the first of several texts, or but a year."""
    return lambda ours, theirs: bool(theirs) and form(theirs) == form(ours)[:len(form(theirs))]


def close(limit, count=None):
    """All or the first so many numbers in the texts, within the limit."""
    def are_close(ours, theirs):
        ours, theirs = ([float(found) for found in re.findall(r"[-+]?\d+(?:\.\d+)?", text)][:count]
                        for text in (ours, theirs))
        return len(ours) == len(theirs) and all(abs(a - b) <= limit for a, b in zip(ours, theirs))
    return are_close


# Of columns of ID3: what exiftool calls them in any version, with "@" those of other punctuation.
ID3 = dict(pair.split(":") for pair in """
album_title:Album title_description:Title band:Band bpm:BeatsPerMinute composer:Composer
copyright:Copyright date:Date playlist_delay:PlaylistDelay encoded_by:EncodedBy lyricist:Lyricist
file_type:FileType time:Time group_description:Grouping sub_title:Subtitle initial_key:InitialKey
language:Language media_type:Media original_album_title:OriginalAlbum mood:Mood size:Size year:Year
original_file_name:OriginalFileName original_lyricist:OriginalLyricist payment:PaymentURL
original_artist:OriginalArtist original_release_year:OriginalReleaseYear file_owner:FileOwner
lead_performer:Artist conductor:Conductor modified_by:InterpretedBy part_of_a_set:PartOfSet
publisher:Publisher track_number:Track recording_dates:RecordingDates
radio_station_name:InternetRadioStationName radio_station_owner:InternetRadioStationOwner
international_standard_recording_code:ISRC encoded_with:EncoderSettings set_subtitle:SetSubtitle
produced_notice:ProducedNotice album_sort_order:AlbumSortOrder title_sort_order:TitleSortOrder
performer_sort_order:PerformerSortOrder commercial_information:CommercialURL
copyright_information:CopyrightURL official_audio_file_webpage:FileURL
official_artist_webpage:ArtistURL official_source_webpage:SourceURL play_counter:PlayCounter
official_publisher_webpage:PublisherURL internet_radio_station_homepage:InternetRadioStationURL
terms_of_use:TermsOfUse encoding_time:@EncodingTime original_release_date:@OriginalReleaseTime
recording_time:@RecordingTime release_time:@ReleaseTime tagging_time:@TaggingTime
comments:@Comment user_text:@UserDefinedText unsynchronized_lyric:@Lyrics content_type:@Genre
involved_people_list:@InvolvedPeople musician_credits_list:@MusicianCredits
popularimeter:@Popularimeter""".split())

# What ffprobe calls frames; others have their identifiers. Its dates are of several frames, and its
# encoder is that of the header of MP3.
FRAME_NAMES = dict(pair.split(":") for pair in """
TALB:album TAL:album TCOM:composer TCM:composer TCON:genre TCO:genre TCOP:copyright TENC:encoded_by
TEN:encoded_by TIT2:title TT2:title TLAN:language TPE1:artist TP1:artist TPE2:album_artist
TP2:album_artist TPE3:performer TP3:performer TPOS:disc TPUB:publisher TRCK:track TRK:track
TDEN:creation_time TSOA:album-sort TSOP:artist-sort TSOT:title-sort""".split())

# Of the other columns: exiftool's tags, of which the first that is there counts, then ffprobe's
# names. One without a group is looked for in all of them.
COMMON = {column: names.split("|") for column, names in (line.split(" ", 1) for line in """
av_title :Title AIFF:Name | title
av_artist :Artist UserData:Performer | artist
av_author ID3:Lyricist :Author UserData:UserData_aut RIFF:WrittenBy | author iwri
av_creator :Composer RIFF:MusicBy | composer imus
av_album :Album RIFF:Product | album
av_publisher :Publisher UserData:UserData_pub | publisher ipub
av_contributor ID3:InterpretedBy ID3:Band :Producer :Director RIFF:Engineer | ieng
av_subject ID3:Grouping :Subject :Keywords :Category UserData:UserData_key | subject isbj
av_description ID3:Subtitle :Description UserData:UserData_des AIFF:Annotation | description
av_type :Genre | genre
av_format ID3:FileType :Media :Format :UserData_fmt RIFF:Medium | format original_format imed
av_source ID3:SourceURL :Source :UserData_src :SourceCredits | source original_source isrc
av_identifier :Identifier | identifier originator_reference
av_language :Language | language
av_relation :Relation :TVShow UserData:CollectionName | relation show ibsu
av_location :GPSCoordinates RIFF:ArchivalLocation | location location.iso6709 iarl
av_copyrights :Copyright | copyright
av_make :Make :UserData_mak | make
av_model :Model :UserData_mod | model
av_software ID3:EncoderSettings :EncodedBy :Software :SoftwareVersion ItemList:Encoder | software
av_lyrics Keys:Lyrics ItemList:Lyrics | lyrics ilyc
av_creation_date ID3:RecordingTime :Year :CreationDate :ContentCreateDate | creationdate
av_modified_date ID3:TaggingTime :Modificationdate | modificationdate
title :Title AIFF:Name | title
album :Album RIFF:Product ASF:AlbumTitle | album
authors :Artist | artist
copyright :Copyright | copyright
make :Make :UserData_mak | make
model :Model :UserData_mod | model
contentcreationdate Vorbis:Date | """.strip("\n").split("\n"))}
GROUPS = ("ID3", "Keys", "ItemList", "UserData", "RIFF", "AIFF", "Vorbis", "APE", "ASF", "Matroska")

STREAM = ("duration", "totalbitrate", "audiobitrate", "videobitrate", "pixelwidth", "pixelheight",
          "bitspersample", "mediatypes", "codecs")
COLUMNS = [*FRAMES, *COMMON, *STREAM]

# How columns compare that have more than other separators.
FORMS = {
    **{f"id3_{column}": begins(words) for column, tag in ID3.items() if tag[0] == "@"},
    "id3_popularimeter": close(0), "av_type": begins(words), "av_location": close(0.001, 2),
    "av_creation_date": same(date), "av_modified_date": same(date), "authors": begins(plain),
    "contentcreationdate": begins(date), "duration": close(0.0501), "codecs": same(codecs),
    # We round, ffprobe cuts off.
    "totalbitrate": close(1), "audiobitrate": close(1), "videobitrate": close(1),
}

CODECS = dict(pair.split(":") for pair in """\
aac:AAC;mp3:MP3;mp2:MP2;h264:H.264;mpeg4:MPEG-4 Video;mpeg2video:MPEG-2 Video;flac:FLAC;ac3:AC-3;\
eac3:E-AC-3;alac:Apple Lossless;opus:Opus;vorbis:Vorbis;vp8:VP8;theora:Theora;speex:Speex;tta:TTA;\
ape:Monkey's Audio;wavpack:WavPack;wmav2:Windows Media Audio 2;musepack7:Musepack SV7;\
wmapro:Windows Media Audio 9 Professional;wmalossless:Windows Media Audio Lossless;\
musepack8:Musepack SV8;tak:TAK;pcm_mulaw:\u00b5-law;pcm_alaw:A-law""".split(";"))
LOSSLESS = re.compile(r"pcm_|flac|alac|ape|wavpack|tta|tak|wmalossless")
# Besides an empty text: a byte order mark, and the code for no language.
NOTHING = ("", "\u00fe\u00ff", "und")
KINDS = {"audio": "Sound", "video": "Video", "subtitle": "Subtitles"}


def exiftool_values(folders):
    """By path and tag all values; the versions of ID3 and the languages of comments are one."""
    done = subprocess.run(["exiftool", "-j", "-a", "-G1:4", "-r", "-sep", ", ", "-c", "%+.6f",
                           "-charset", "RIFF=UTF8", *folders], capture_output=True, timeout=300)
    files = {}
    for tags in json.loads(done.stdout):
        values = files.setdefault(os.path.abspath(tags["SourceFile"]), {})
        for tag, text in tags.items():
            tag, text = re.sub(r":Copy\d+|-[a-z]{3}$|(?<=^ID3)v2_\d", "", tag), str(text)
            # AIFF has no encoding; its texts are read as UTF-8 here and as Mac Roman there.
            if tag.startswith("AIFF:"):
                text = text.encode("mac_roman").decode(errors="replace")
            # One program keeps its own numbers in comments.
            if text not in NOTHING and not text.startswith("(iTun"):
                values.setdefault(tag, []).append(text)
    return files


def ffprobe_values(path):
    """The tags by name, in small letters and without a domain, and values by column."""
    done = subprocess.run(["ffprobe", "-v", "quiet", "-show_format", "-show_streams", "-of", "json",
                           path], capture_output=True, timeout=60)
    found = json.loads(done.stdout or b"{}")
    file = found.get("format", {})
    streams = [stream for stream in found.get("streams", []) if stream.get("codec_type") in KINDS
               and not stream["disposition"]["attached_pic"]]
    kinds = {kind: [s for s in streams if s["codec_type"] == kind] for kind in KINDS}

    def rate(kind):
        rates = [stream.get("bit_rate") for stream in kinds[kind]]
        return sum(map(int, rates)) if None not in rates else None

    sound, video = (kinds[kind][0] if kinds[kind] else {} for kind in ("audio", "video"))
    bits = sound.get("bits_per_raw_sample") or sound.get("bits_per_sample")
    values = (file.get("duration"), file.get("bit_rate") if file.get("duration") else None,
              rate("audio"), rate("video"), video.get("width"), video.get("height"),
              bits if LOSSLESS.match(sound.get("codec_name", "")) else None,
              *(", ".join(dict.fromkeys(names)) for names in (
                  [KINDS[stream["codec_type"]] for stream in streams],
                  [stream.get("codec_name", "") for stream in streams])))
    tags = {name.lower().removeprefix("com.apple.quicktime."): text
            for names in (sound.get("tags", {}), file.get("tags", {}))
            for name, text in names.items() if text not in NOTHING}
    return tags, {column: str(value) for column, value in zip(STREAM, values) if value}


def tag_rows():
    """Column, exiftool's tags in their order, names of ffprobe."""
    for column, frames in FRAMES.items():
        tags = ["ID3:" + ID3[column[4:]].lstrip("@")] if column[4:] in ID3 else []
        yield column, tags, [FRAME_NAMES.get(frame, frame).lower() for frame in frames]
    for column, (tags, names) in COMMON.items():
        yield column, [group + tag for tag in tags.split() for group in (
            GROUPS if tag.startswith(":") else [""])], names.split()


def others_values(extension, exiftool, ffprobe, streams):
    """Column, tool and values where another tool has any that mean the same as ours."""
    for column, value in streams.items():
        yield column, "ffprobe", [value]
    is_id3 = any(tag.startswith("ID3:") for tag in exiftool)
    for column, tags, names in tag_rows():
        if column.startswith(("id3_", "av_")) and extension not in TAGGED:
            continue
        found = next((exiftool[tag] for tag in tags if tag in exiftool), [])
        if found:
            yield column, "exiftool", found
        # ffprobe has the first of several frames where we have the last, puts the chunks of WAV
        # and AIFF before ID3, and takes the author of QuickTime for an artist.
        is_chunked = is_id3 and extension in ("wav", "aif", "aiff")
        is_author = column in ("av_artist", "authors") and any(
            tag in exiftool for tag in ("ItemList:Author", "UserData:UserData_aut"))
        if len(found) > 1 or is_chunked or is_author or (column in FRAMES and not is_id3):
            continue
        yield from ((column, "ffprobe", [ffprobe[name]]) for name in names if name in ffprobe)


def differences(folders):
    """(number of values compared, list of (path, column, ours, tool, theirs))."""
    ours = {path: row for path, row in our_values(folders, ["contenttype", *COLUMNS]).items()
            if row["contenttype"].startswith(("audio/", "video/", "application/ogg"))}
    exiftool = exiftool_values(folders)
    with ThreadPoolExecutor(2) as pool:
        ffprobe = dict(zip(ours, pool.map(ffprobe_values, ours)))
    compared, found = 0, []
    for path, row in sorted(ours.items()):
        extension = path.rpartition(".")[2].lower()
        tags = exiftool.get(path, {})
        for column, tool, theirs in others_values(extension, tags, *ffprobe[path]):
            value, is_equal = row.get(column) or "", FORMS.get(column, same(plain))
            compared += 1
            if not any(is_equal(value, text) for text in theirs):
                found.append((path, column, value, tool, theirs))
    return compared, found


# How streams are made, and the codecs that they have then.
MADE = {extension: (options, names) for extension, options, names in (row.split("|") for row in """\
mp3|-c:a libmp3lame|MP3;flac||FLAC;ogg|-c:a libvorbis|Vorbis;opus|-c:a libopus|Opus;\
wav||Linear PCM;caf||Linear PCM;aiff|-write_id3v2 1|Linear PCM;au||Linear PCM;ac3||AC-3;\
m4a|-c:a alac|Apple Lossless;wv||WavPack;wma||Windows Media Audio 2;\
mp4|-c:a aac -c:v libx264 -preset ultrafast|AAC, H.264;\
mov|-c:a pcm_s16be -c:v mpeg4|Linear PCM, MPEG-4 Video;\
mkv|-c:a flac -c:v mpeg2video|FLAC, MPEG-2 Video;\
webm|-c:a libvorbis -c:v libvpx -deadline realtime|Vorbis, VP8;\
avi|-c:a libmp3lame -c:v mpeg4|MP3, MPEG-4 Video;\
mpg|-c:a mp2 -c:v mpeg2video|MP2, MPEG-2 Video;\
ts|-c:a mp2 -c:v mpeg2video|MP2, MPEG-2 Video""".split(";"))}
TITLE = "T\u00eftle"
UNTITLED = ("ac3", "mpg", "ts")


def make_streams(folder):
    """A second of a tone, and with the codec of a film also of a picture."""
    command = ["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=r=48000:d=1",
               "-f", "lavfi", "-i", "testsrc=s=64x48:r=25:d=1"]
    for extension, (options, _) in MADE.items():
        command += ["-map", "0", *(["-map", "1"] if "-c:v" in options else []), *options.split()]
        for name, text in (("title", TITLE), ("artist", "Artist"), ("album", "Album"),
                           ("copyright", "\u00a9 me"), ("date", "2004")):
            command += ["-metadata", f"{name}={text}"]
        command.append(str(folder / f"made.{extension}"))
    subprocess.run(command, check=True, timeout=120)


def with_chunk(file, kind, content):
    """A RIFF or AIFF file with one more chunk at its end."""
    order = "little" if file.startswith(b"RIFF") else "big"
    file += kind + len(content).to_bytes(4, order) + content + bytes(len(content) % 2)
    return file[:4] + (len(file) - 8).to_bytes(4, order) + file[8:]


def column_of(key):
    name = key.removeprefix("commonKey").removesuffix("Name").removeprefix("Last")
    return "av_" + re.sub(r"(?<!^)(?=[A-Z])", "_", name).lower()


class SoundValuesTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="marquell-")).resolve()
        self.addCleanup(shutil.rmtree, self.folder)

    def agree(self, least):
        """All three tools, on so many values."""
        compared, found = differences([str(self.folder)])
        self.assertEqual(found, [])
        self.assertGreaterEqual(compared, least)

    def rows(self, columns):
        """What isn't empty, by the name of the file."""
        return {Path(path).name: {column: row[column] for column in columns if row.get(column)}
                for path, row in our_values([str(self.folder)], columns).items()}

    def test_every_frame_once(self):
        """Of each version, by itself and in the containers that have tags of this kind."""
        mp3 = 40 * (b"\xff\xfb\x90\0" + bytes(413))
        expected = {}
        for version in (2, 3, 4):
            tag, texts = id3_bytes.full_tag(version)
            forms = {column: texts[frame] for column, frames in FRAMES.items()
                     for frame in frames if frame in texts}
            for name, content in (
                    ("mp3", tag + mp3), ("wav", with_chunk(sound_bytes.wave(1)[0], b"id3 ", tag)),
                    ("aiff", with_chunk(sound_bytes.aiff(1)[0], b"ID3 ", tag))):
                (self.folder / f"{version}.{name}").write_bytes(content)
                expected[f"{version}.{name}"] = forms
        self.assertEqual(self.rows(list(FRAMES)), expected)
        self.assertEqual({column for forms in expected.values() for column in forms}, set(FRAMES))
        self.agree(850)

    def test_every_field_once(self):
        """In each container that holds it; in FLAC only what has columns for files of any kind."""
        expected = {}
        for number, (extension, make) in enumerate(sound_bytes.FILES.items()):
            content, texts = make(number)
            (self.folder / f"a.{extension}").write_bytes(content)
            expected[f"a.{extension}"] = {} if extension == "flac" else {
                column_of(key): text for key, text in texts.items()}
        columns = [column for column in COMMON if column.startswith("av_")]
        self.assertEqual(self.rows([*columns, *FRAMES]), expected)
        self.assertEqual({column for texts in expected.values() for column in texts}, set(columns))
        self.agree(300)

    def test_streams(self):
        make_streams(self.folder)
        rows = self.rows(["codecs", "title", "mediatypes"])
        for extension, (options, codecs_then) in MADE.items():
            with self.subTest(extension=extension):
                expected = {"codecs": codecs_then, "title": TITLE,
                            "mediatypes": "Sound, Video" if "-c:v" in options else "Sound"}
                if extension in UNTITLED:
                    del expected["title"]
                self.assertEqual(rows[f"made.{extension}"], expected)
        self.agree(300)


def main():
    compared, found = differences(sys.argv[1:])
    for path, column, ours, tool, theirs in found:
        print(f"{path}: {column}: {ours!r}, {tool} {theirs!r}")
    print(f"{compared} values compared, {len(found)} differ, "
          f"{100 * (1 - len(found) / max(1, compared)):.2f} % equal")


if __name__ == "__main__":
    if len(sys.argv) > 1:
        main()
    else:
        unittest.main()
