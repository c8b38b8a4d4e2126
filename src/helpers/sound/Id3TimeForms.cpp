// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>

#include "helpers/common/Input.h"
#include "helpers/sound/Id3Fields.h"
#include "helpers/sound/Id3Forms.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t timeLength = 4;
constexpr std::uint64_t inFrames = 1;

/// A time of the sound, in frames of the stream or milliseconds as the format says.
std::string timeText(std::uint64_t format, std::uint64_t time) {
    if (format == inFrames) return "frame " + std::to_string(time);
    const std::string thousandths = std::to_string(1000 + time % 1000).substr(1);
    return std::to_string(time / 1000) + "." + thousandths + " s";
}

struct Event {
    std::uint64_t number;
    std::string_view name;
};

constexpr std::array events = {
    Event{0x00, "padding"},         Event{0x01, "end of initial silence"},
    Event{0x02, "intro start"},     Event{0x03, "main part start"},
    Event{0x04, "outro start"},     Event{0x05, "outro end"},
    Event{0x06, "verse start"},     Event{0x07, "refrain start"},
    Event{0x08, "interlude start"}, Event{0x09, "theme start"},
    Event{0x0A, "variation start"}, Event{0x0B, "key change"},
    Event{0x0C, "time change"},     Event{0x0D, "momentary unwanted noise"},
    Event{0x0E, "sustained noise"}, Event{0x0F, "sustained noise end"},
    Event{0x10, "intro end"},       Event{0x11, "main part end"},
    Event{0x12, "verse end"},       Event{0x13, "refrain end"},
    Event{0x14, "theme end"},       Event{0x15, "profanity"},
    Event{0x16, "profanity end"},   Event{0xFD, "audio end"},
    Event{0xFE, "audio file ends"},
};

std::string eventName(std::uint64_t number) {
    const auto* const found = std::ranges::find(events, number, &Event::number);
    return found == events.end() ? "event " + std::to_string(number) : std::string(found->name);
}

/// 2 to 510 beats per minute take one or two bytes.
std::string takeTempo(Id3Fields& fields) {
    std::uint64_t tempo = fields.number(1);
    if (tempo == 0xFF) tempo += fields.number(1);
    if (tempo == 0) return "no beat";
    return tempo == 1 ? "single beat" : std::to_string(tempo) + " bpm";
}

std::string takeEvent(Id3Fields& fields) { return eventName(fields.number(1)); }

/// What each moment has, in a list with the times.
std::optional<Id3Text> moments(std::string_view content, std::string (*take)(Id3Fields&)) {
    Id3Fields fields(content);
    const std::uint64_t format = fields.number(1);
    std::vector<std::string> parts;
    while (parts.size() < maximumSteps) {
        const std::string what = take(fields);
        if (fields.left() < timeLength) break;
        parts.push_back(timeText(format, fields.number(timeLength)) + ": " + what);
    }
    if (parts.empty()) return std::nullopt;
    return Id3Text{{}, joinedTexts(parts)};
}

bool endsWithBlank(std::string_view bytes) {
    return bytes.ends_with(' ') || bytes.ends_with(std::string_view(" \0", 2));
}

/// Whole lines, or syllables of which the first one of a line begins with a line break.
std::string joinedLyrics(const std::vector<std::string>& parts) {
    const bool haveBreaks = std::ranges::any_of(
        parts, [](const std::string& part) { return part.find('\n') != std::string::npos; });
    std::string joined;
    for (const std::string& part : parts) {
        if (!haveBreaks && !joined.empty()) joined += '\n';
        joined += part;
    }
    joined.erase(0, std::min(joined.find_first_not_of('\n'), joined.size()));
    joined.resize(joined.find_last_not_of(" \n") + 1);
    return joined;
}

}  // namespace

std::optional<Id3Text> id3Events(std::string_view content) { return moments(content, takeEvent); }

std::optional<Id3Text> id3Tempo(std::string_view content) { return moments(content, takeTempo); }

std::optional<Id3Text> id3Position(std::string_view content) {
    Id3Fields fields(content);
    const std::uint64_t format = fields.number(1);
    if (fields.left() < timeLength) return std::nullopt;
    return Id3Text{{}, timeText(format, fields.number(timeLength))};
}

std::optional<Id3Text> id3TimedLyrics(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    constexpr std::size_t languageFormatAndKind = 5;
    fields.bytes(languageFormatAndKind);
    std::string description = fields.text();
    std::vector<std::string> parts;
    while (fields.left() > 0 && parts.size() < maximumSteps) {
        const std::string_view bytes = fields.textBytes();
        parts.push_back(fields.decoded(bytes));
        if (endsWithBlank(bytes)) parts.back() += ' ';
        fields.bytes(timeLength);
    }
    return Id3Text{std::move(description), joinedLyrics(parts)};
}

}  // namespace marquell::helpers
