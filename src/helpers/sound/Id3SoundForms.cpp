// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cmath>
#include <cstdlib>

#include "helpers/common/Input.h"
#include "helpers/sound/Id3Fields.h"
#include "helpers/sound/Id3Forms.h"
#include "platform/NumberText.h"

namespace marquell::helpers {
namespace {

/// Of 1/512 dB, as a signed number in 16 bits.
std::string decibels(std::uint64_t adjustment) {
    const double value = static_cast<std::int16_t>(adjustment) / 512.0;
    const long tenths = std::lround(value * 10);
    return (tenths < 0 ? "-" : "+") + std::to_string(std::labs(tenths) / 10) + "." +
           std::to_string(std::labs(tenths) % 10) + " dB";
}

std::string signedText(bool isIncrease, std::uint64_t amount) {
    return (isIncrease ? "+" : "-") + std::to_string(amount);
}

/// The bytes of numbers that have so many bits; 0 if there are no such numbers.
std::size_t numberLength(std::uint64_t bits) {
    return bits > 64 ? 0 : static_cast<std::size_t>(bits + 7) / 8;
}

struct Channel {
    std::string_view name;
    std::uint64_t increaseBit;
    std::size_t peaks;  ///< how many peak volumes stand behind the adjustment
};

/// In the order of the frame. Those of a pair come together, before the peaks of both.
constexpr std::array volumeChannels = {
    Channel{"right", 0x01, 0},     Channel{"left", 0x02, 2},   Channel{"right back", 0x04, 0},
    Channel{"left back", 0x08, 2}, Channel{"center", 0x10, 1}, Channel{"bass", 0x20, 1},
};

constexpr std::array<std::string_view, 9> volume2Channels = {
    "other",     "master volume", "front right", "front left", "back right",
    "back left", "front center",  "back center", "subwoofer",
};

struct ReverbField {
    std::string_view name;
    std::size_t length;
    std::string_view unit;
};

constexpr std::array reverbFields = {
    ReverbField{"left", 2, " ms"},
    ReverbField{"right", 2, " ms"},
    ReverbField{"bounces left", 1, ""},
    ReverbField{"bounces right", 1, ""},
    ReverbField{"feedback left to left", 1, ""},
    ReverbField{"feedback left to right", 1, ""},
    ReverbField{"feedback right to right", 1, ""},
    ReverbField{"feedback right to left", 1, ""},
    ReverbField{"premix left to right", 1, ""},
    ReverbField{"premix right to left", 1, ""},
};

/// Absent without parts.
std::optional<Id3Text> listText(std::string description, const std::vector<std::string>& parts) {
    if (parts.empty()) return std::nullopt;
    return Id3Text{std::move(description), joinedTexts(parts)};
}

}  // namespace

std::optional<Id3Text> id3Volume(std::string_view content) {
    Id3Fields fields(content);
    const std::uint64_t increases = fields.number(1);
    const std::size_t length = numberLength(fields.number(1));
    std::vector<std::string> parts;
    for (const Channel& channel : volumeChannels) {
        if (length == 0 || fields.left() < length) break;
        const bool isIncrease = (increases & channel.increaseBit) != 0;
        const std::string amount = signedText(isIncrease, fields.number(length));
        parts.push_back(std::string(channel.name) + " " + amount);
        fields.bytes(channel.peaks * length);
    }
    return listText({}, parts);
}

std::optional<Id3Text> id3Volume2(std::string_view content) {
    Id3Fields fields(content);
    std::string identification = fields.latin();
    constexpr std::size_t channelAndAdjustment = 3;
    std::vector<std::string> parts;
    while (fields.left() >= channelAndAdjustment && parts.size() < maximumSteps) {
        const auto channel = static_cast<std::size_t>(fields.number(1));
        const std::string name = channel < volume2Channels.size()
                                     ? std::string(volume2Channels[channel])
                                     : "channel " + std::to_string(channel);
        parts.push_back(name + " " + decibels(fields.number(2)));
        const std::uint64_t peakBits = fields.number(1);
        fields.bytes(static_cast<std::size_t>(peakBits + 7) / 8);
    }
    return listText(std::move(identification), parts);
}

std::optional<Id3Text> id3Equalization(std::string_view content) {
    Id3Fields fields(content);
    const std::size_t length = numberLength(fields.number(1));
    std::vector<std::string> parts;
    while (length > 0 && fields.left() >= 2 + length && parts.size() < maximumSteps) {
        const std::uint64_t band = fields.number(2);
        constexpr std::uint64_t increase = 0x8000;
        const std::string amount = signedText((band & increase) != 0, fields.number(length));
        parts.push_back(std::to_string(band & ~increase) + " Hz " + amount);
    }
    return listText({}, parts);
}

std::optional<Id3Text> id3Equalization2(std::string_view content) {
    Id3Fields fields(content);
    fields.bytes(1);  // how to interpolate
    std::string identification = fields.latin();
    std::vector<std::string> parts;
    while (fields.left() >= 4 && parts.size() < maximumSteps) {
        const double frequency = static_cast<double>(fields.number(2)) / 2;
        parts.push_back(platform::numberText(frequency) + " Hz " + decibels(fields.number(2)));
    }
    return listText(std::move(identification), parts);
}

std::optional<Id3Text> id3Reverb(std::string_view content) {
    Id3Fields fields(content);
    std::vector<std::string> parts;
    for (const ReverbField& field : reverbFields) {
        if (fields.left() < field.length) break;
        const std::string number = std::to_string(fields.number(field.length));
        parts.push_back(std::string(field.name) + " " + number + std::string(field.unit));
    }
    return listText({}, parts);
}

}  // namespace marquell::helpers
