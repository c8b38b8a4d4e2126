// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/EncodedWords.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "helpers/documents/CharsetName.h"
#include "helpers/documents/DocumentText.h"

namespace marquell::helpers {
namespace {

/// Six bits for each character, up to the first that stands for none.
std::string fromBase64(std::string_view text) {
    constexpr std::string_view alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    std::uint32_t bits = 0;
    unsigned count = 0;
    for (const char character : text) {
        const std::size_t value = alphabet.find(character);
        if (value == std::string_view::npos) break;
        bits = (bits << 6U | static_cast<std::uint32_t>(value)) & 0xFFFFFFU;
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes.push_back(static_cast<char>(bits >> count & 0xFFU));
    }
    return bytes;
}

std::string fromQuotedPrintable(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        std::uint8_t value = 0;
        const char* const code = text.data() + 1;
        const bool isCode = text.size() >= 3 && text.front() == '=' &&
                            std::from_chars(code, code + 2, value, 16).ptr == code + 2;
        if (isCode) {
            bytes.push_back(static_cast<char>(value));
        } else {
            bytes.push_back(text.front() == '_' ? ' ' : text.front());
        }
        text.remove_prefix(isCode ? 3 : 1);
    }
    return bytes;
}

/// Pieces of a text one after the other. Those that have an encoding in common are decoded
/// together, since a character may begin in one and end in the next.
class Pieces {
public:
    void add(std::string_view bytes, Charset charset) {
        if (charset != charset_) flush();
        charset_ = charset;
        bytes_.append(bytes);
    }

    std::string takeText() {
        flush();
        return std::move(text_);
    }

private:
    void flush() {
        const std::size_t end = bytes_.find_last_not_of(' ') + 1;
        text_.append(decodedText(bytes_, charset_)).append(bytes_.size() - end, ' ');
        bytes_.clear();
    }

    std::string text_;
    std::string bytes_;
    Charset charset_ = Charset::likely;
};

}  // namespace

std::optional<EncodedWord> encodedWordAt(std::string_view text) {
    if (!text.starts_with("=?")) return std::nullopt;
    EncodedWord word;
    const auto take = [&text](std::size_t begin) {
        const std::string_view rest = text.substr(begin);
        return rest.substr(0, rest.find_first_of("? \t\r\n"));
    };
    word.charset = take(2);
    const std::size_t encoding = 2 + word.charset.size() + 1;
    if (encoding + 2 > text.size() || text[encoding - 1] != '?' || text[encoding + 1] != '?') {
        return std::nullopt;
    }
    word.isBase64 = isSameName(text.substr(encoding, 1), "b");
    if (!word.isBase64 && !isSameName(text.substr(encoding, 1), "q")) return std::nullopt;
    word.text = take(encoding + 2);
    const std::size_t end = encoding + 2 + word.text.size();
    if (!text.substr(end).starts_with("?=")) return std::nullopt;
    word.length = end + 2;
    // A language may follow the name.
    word.charset = word.charset.substr(0, word.charset.find('*'));
    return word;
}

std::string decodedWords(std::string_view text) {
    Pieces pieces;
    bool isAfterWord = false;
    while (!text.empty()) {
        if (const auto word = encodedWordAt(text)) {
            pieces.add(word->isBase64 ? fromBase64(word->text) : fromQuotedPrintable(word->text),
                       charsetNamed(word->charset));
            text.remove_prefix(word->length);
            isAfterWord = true;
            continue;
        }
        const std::size_t next = std::min(text.find("=?", 1), text.size());
        const std::string_view plain = text.substr(0, next);
        text.remove_prefix(next);
        // Blanks between two words are not of the text.
        const bool isGap = isAfterWord && trimmed(plain).empty() && encodedWordAt(text).has_value();
        if (!isGap) pieces.add(plain, Charset::likely);
        isAfterWord = false;
    }
    return pieces.takeText();
}

}  // namespace marquell::helpers
