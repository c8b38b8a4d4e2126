// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "helpers/sound/Id3Fields.h"
#include "helpers/sound/Id3Forms.h"
#include "helpers/sound/Id3Genres.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t languageLength = 3;

std::string takeJoinedTexts(Id3Fields& fields) { return joinedTexts(fields.texts()); }

/// A description and a text. Some programs leave out the description with what ends it.
Id3Text takeDescribedText(Id3Fields& fields) {
    const std::size_t before = fields.left();
    const std::string_view first = fields.textBytes();
    std::string decoded = fields.decoded(first);
    if (first.size() == before) return {{}, std::move(decoded)};
    return {std::move(decoded), fields.text()};
}

}  // namespace

std::optional<Id3Text> id3PlainText(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    return Id3Text{{}, takeJoinedTexts(fields)};
}

std::optional<Id3Text> id3Genre(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    std::vector<std::string> values = fields.texts();
    for (std::string& value : values) value = id3GenreText(value);
    return Id3Text{{}, joinedTexts(values)};
}

std::optional<Id3Text> id3People(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    const std::vector<std::string> texts = fields.texts();
    std::vector<std::string> people;
    for (std::size_t i = 0; i + 1 < texts.size(); i += 2) {
        people.push_back(Id3Text{texts[i], texts[i + 1]}.written());
    }
    if (texts.size() % 2 == 1) people.push_back(texts.back());
    return Id3Text{{}, joinedTexts(people)};
}

std::optional<Id3Text> id3UserText(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    std::string description = fields.text();
    return Id3Text{std::move(description), takeJoinedTexts(fields)};
}

std::optional<Id3Text> id3Comment(std::string_view content) {
    std::optional<Id3Text> comment = id3Lyrics(content);
    // One program keeps numbers for itself in comments.
    if (comment && comment->description.starts_with("iTun")) return std::nullopt;
    return comment;
}

std::optional<Id3Text> id3Lyrics(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    fields.bytes(languageLength);
    return takeDescribedText(fields);
}

std::optional<Id3Text> id3TermsOfUse(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    fields.bytes(languageLength);
    return Id3Text{{}, fields.text()};
}

std::optional<Id3Text> id3Address(std::string_view content) {
    return Id3Text{{}, Id3Fields(content).latin()};
}

std::optional<Id3Text> id3UserAddress(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    std::string description = fields.text();
    return Id3Text{std::move(description), fields.latin()};
}

std::optional<Id3Text> id3Link(std::string_view content) {
    Id3Fields fields(content);
    // ID3v2.3 says 3 bytes, means 4, and is read either way. Addresses begin in lower case.
    const bool isShort = content.size() > 3 && content[3] >= 'a' && content[3] <= 'z';
    std::string id = decodedText(fields.bytes(isShort ? 3 : 4), Charset::likely);
    std::vector<std::string> texts = {fields.latin()};
    while (fields.left() > 0 && texts.size() < 3) texts.push_back(fields.latin());
    return Id3Text{std::move(id), joinedTexts(texts)};
}

std::optional<Id3Text> id3Unknown(std::string_view content) {
    if (!isReadableText(content)) return std::nullopt;
    return Id3Text{{}, decodedText(content, Charset::likely)};
}

}  // namespace marquell::helpers
