// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3CommonKeys.h"

#include <algorithm>
#include <array>
#include <string>

#include "helpers/sound/PlainTagNames.h"
#include "helpers/sound/TagFields.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

constexpr std::string_view userText = "TXXX";
constexpr std::string_view lyrics = "USLT";
constexpr std::string_view comment = "COMM";
/// Counts less than one that stands for itself.
constexpr std::string_view describedComment = "COMM with a description";

/// By current identifiers. The years get days and times beforehand.
constexpr std::array rows = {
    TagRow{"TIT2", Key::commonKeyTitle},
    TagRow{"TPE1", Key::commonKeyArtist},
    TagRow{"TEXT", Key::commonKeyAuthor},
    TagRow{"TOLY", Key::commonKeyAuthor},
    TagRow{"TCOM", Key::commonKeyCreator},
    TagRow{"TALB", Key::commonKeyAlbumName},
    TagRow{"TPUB", Key::commonKeyPublisher},
    TagRow{"TPE4", Key::commonKeyContributor},
    TagRow{"TPE2", Key::commonKeyContributor},
    TagRow{"TIT1", Key::commonKeySubject},
    TagRow{"TIT3", Key::commonKeyDescription},
    TagRow{"TCON", Key::commonKeyType},
    TagRow{"TFLT", Key::commonKeyFormat},
    TagRow{"TMED", Key::commonKeyFormat},
    TagRow{"WOAS", Key::commonKeySource},
    TagRow{"TMED", Key::commonKeySource},
    TagRow{"UFID", Key::commonKeyIdentifier},
    TagRow{"TSRC", Key::commonKeyIdentifier},
    TagRow{"LINK", Key::commonKeyRelation},
    TagRow{"TOAL", Key::commonKeyRelation},
    TagRow{"TLAN", Key::commonKeyLanguage},
    TagRow{"TDRC", Key::commonKeyCreationDate},
    TagRow{"TYER", Key::commonKeyCreationDate},
    TagRow{"TDRL", Key::commonKeyCreationDate},
    TagRow{"TDTG", Key::commonKeyLastModifiedDate},
    TagRow{"TCOP", Key::commonKeyCopyrights},
    TagRow{"WCOP", Key::commonKeyCopyrights},
    TagRow{"TSSE", Key::commonKeySoftware},
    TagRow{"TENC", Key::commonKeySoftware},
    TagRow{lyrics, TagPlace::lyrics},
    TagRow{"SYLT", TagPlace::lyrics},
    TagRow{comment, TagPlace::comment},
    TagRow{describedComment, TagPlace::comment},
};

/// Whether the text is four digits that make two numbers from `least` on and below their ends.
bool isPair(std::string_view text, int least, int firstEnd, int secondEnd) {
    const auto isDigit = [](char letter) { return letter >= '0' && letter <= '9'; };
    if (text.size() != 4 || !std::ranges::all_of(text, isDigit)) return false;
    const int first = (text[0] - '0') * 10 + text[1] - '0';
    const int second = (text[2] - '0') * 10 + text[3] - '0';
    return first >= least && second >= least && first < firstEnd && second < secondEnd;
}

/// The year of a tag with the day ("DDMM") and the time ("hhmm") of frames of their own, as far as
/// they make sense.
std::string datedYear(const TagFields& frames) {
    const auto textOf = [&frames](std::string_view id) {
        const std::string* const text = frames.find(id);
        return text == nullptr ? std::string() : *text;
    };
    std::string date = textOf("TYER");
    const std::string day = textOf("TDAT");
    if (!isPair(date, 0, 100, 100) || !isPair(day, 1, 32, 13)) return date;
    date += "-" + day.substr(2) + "-" + day.substr(0, 2);
    const std::string time = textOf("TIME");
    if (!isPair(time, 0, 24, 60)) return date;
    return date + "T" + time.substr(0, 2) + ":" + time.substr(2);
}

/// What the text is by the names of other formats. Some programs can't write frames for lyrics:
/// they have user texts with the name of such a frame, or "lyrics-eng" for a language.
std::string_view userTextName(std::string_view description) {
    constexpr std::string_view inLanguage = "lyrics-";
    constexpr std::size_t languageLength = 3;
    const bool isLyrics =
        description == lyrics || (description.starts_with(inLanguage) &&
                                  description.size() == inLanguage.size() + languageLength);
    return isLyrics ? "lyrics" : description;
}

}  // namespace

void Id3CommonKeys::add(std::string_view id, const Id3Text& text) {
    if (!text.text.empty()) frames_.push_back({std::string(id), text.description, text.text});
}

void Id3CommonKeys::addTo(SoundTags& tags) const {
    TagFields frames;
    NamedTagFields userTexts;
    // The first of a name counts there.
    std::for_each(frames_.rbegin(), frames_.rend(), [&](const Frame& frame) {
        if (frame.id == userText) {
            userTexts.add(userTextName(frame.description), frame.text);
        } else {
            const bool isDescribed = frame.id == comment && !frame.description.empty();
            frames.add(isDescribed ? describedComment : std::string_view(frame.id), frame.text);
        }
    });
    TagFields fields;
    fields.add("TYER", datedYear(frames));
    for (const auto& [id, text] : frames.all()) fields.add(id, text);
    addFields(tags, fields, rows);
    userTexts.addTo(tags);
}

}  // namespace marquell::helpers
