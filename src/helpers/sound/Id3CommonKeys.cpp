// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3CommonKeys.h"

#include <algorithm>
#include <array>
#include <string>

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

constexpr std::string_view userText = "TXXX";
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
    TagRow{"USLT", TagPlace::lyrics},
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

}  // namespace

void Id3CommonKeys::add(std::string_view id, const Id3Text& text) {
    if (id == userText) {
        userTexts_.add(text.description, text.text);
    } else {
        const bool isDescribed = id == comment && !text.description.empty();
        frames_.add(isDescribed ? describedComment : id, text.text);
    }
}

void Id3CommonKeys::addTo(SoundTags& tags) const {
    TagFields fields;
    fields.add("TYER", datedYear(frames_));
    for (const auto& [id, text] : frames_.all()) fields.add(id, text);
    addFields(tags, fields, rows);
    userTexts_.addTo(tags);
}

}  // namespace marquell::helpers
