// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3FrameWalk.h"

#include <algorithm>

#include "helpers/common/Numbers.h"

namespace marquell::helpers {
namespace {

/// Identifier, length, and from ID3v2.3 on flags.
std::size_t headerLength(unsigned version) { return version == 2 ? 6 : 10; }

bool isIdLetter(char letter) {
    return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
}

/// The identifier that the bytes are; empty if they are none. In newer tags some programs leave the
/// shorter ones of ID3v2.2, with a blank or NUL behind them.
std::string_view frameId(std::string_view bytes) {
    if (bytes.size() == 4 && (bytes.back() == ' ' || bytes.back() == '\0')) bytes.remove_suffix(1);
    return std::ranges::all_of(bytes, isIdLetter) ? bytes : std::string_view();
}

bool isPrintable(char letter) { return letter >= ' ' && letter <= '~'; }

}  // namespace

bool Id3FrameWalk::next(Id3FrameHeader& frame) {
    const std::size_t wanted = headerLength(version_);
    while (stepsLeft_ > 0 && isWithin(0)) {
        --stepsLeft_;
        const std::string header = input_.bytesAt(position_, wanted);
        if (header.size() < wanted) return false;
        const std::string_view idBytes(header.data(), version_ == 2 ? 3 : 4);
        // Neither padding nor what isn't text can be stepped over.
        if (!isPrintable(idBytes.front())) return false;
        const auto length = frameLength(header);
        if (!length || !isWithin(*length)) return false;
        frame.id = frameId(idBytes);
        frame.begin = position_ + wanted;
        frame.length = *length;
        frame.flags = version_ == 2 ? 0 : bigEndian(header, 9, 1);
        position_ = frame.begin + frame.length;
        if (!frame.id.empty() && frame.length > 0) return true;
    }
    return false;
}

/// Whether a frame at the position, with content of the length, ends within the tag.
bool Id3FrameWalk::isWithin(std::uint64_t length) const {
    const std::uint64_t whole = headerLength(version_) + length;
    return position_ <= end_ && whole <= end_ - position_;
}

std::optional<std::uint64_t> Id3FrameWalk::frameLength(const std::string& header) const {
    if (version_ == 2) return bigEndian(header, 3, 3);
    const std::uint64_t plain = bigEndian(header, 4, 4);
    if (version_ == 3) return plain;
    // Some programs took the old form along into ID3v2.4. What comes next tells.
    const auto current = id3Number(header, 4);
    if (current == plain) return plain;
    const std::uint64_t content = position_ + headerLength(version_);
    const bool isPlain = isWithin(plain) && canEndFrame(content + plain) &&
                         !(current && isWithin(*current) && canEndFrame(content + *current));
    return isPlain ? plain : current;
}

/// Whether the end, padding or another frame is at the position.
bool Id3FrameWalk::canEndFrame(std::uint64_t position) const {
    const std::string bytes =
        input_.bytesAt(position, static_cast<std::size_t>(std::min<std::uint64_t>(
                                     end_ - std::min(end_, position), headerLength(version_))));
    if (std::ranges::all_of(bytes, [](char byte) { return byte == '\0'; })) return true;
    return bytes.size() == headerLength(version_) && !frameId(bytes.substr(0, 4)).empty();
}

std::optional<std::uint64_t> id3Number(std::string_view bytes, std::size_t offset) {
    if (bytes.size() < 4 || offset > bytes.size() - 4) return std::nullopt;
    std::uint64_t number = 0;
    for (const char byte : bytes.substr(offset, 4)) {
        const auto value = static_cast<unsigned char>(byte);
        if (value > 0x7F) return std::nullopt;
        number = number << 7U | value;
    }
    return number;
}

}  // namespace marquell::helpers
