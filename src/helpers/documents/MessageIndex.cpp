// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/common/IndexProperties.h"
#include "helpers/common/TextList.h"
#include "helpers/documents/DocumentReaders.h"
#include "helpers/documents/DocumentText.h"
#include "helpers/documents/EncodedWords.h"
#include "helpers/documents/MailboxNames.h"
#include "helpers/documents/MessageDate.h"

namespace marquell::helpers {
namespace {

using Attribute = platform::IndexAttribute;

/// How much of a message is looked at.
constexpr std::size_t maximumHeaders = std::size_t{256} * 1024;

/// A header of RFC 5322 with its lines as they stand in the message.
struct Header {
    std::string_view name;
    std::string_view content;
};

/// The next line with the break at its end, which is taken off.
std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n') + 1);
    const std::string_view taken = line.empty() ? text : line;
    text.remove_prefix(taken.size());
    return taken;
}

/// The headers up to the first line that is none.
std::vector<Header> headersOf(std::string_view message) {
    std::vector<Header> headers;
    // What precedes each message of a mailbox file.
    if (message.starts_with("From ")) takeLine(message);
    while (!message.empty() && headers.size() < maximumSteps) {
        const std::string_view line = takeLine(message);
        const std::size_t colon = line.find(':');
        const std::string_view name = trimmed(line.substr(0, std::min(colon, line.size())));
        const bool isHeader =
            colon != std::string_view::npos && !name.empty() && !isBlank(line.front()) &&
            std::ranges::all_of(name, [](char byte) { return byte > 0x20 && byte < 0x7F; });
        if (!isHeader) break;
        std::size_t length = line.size();
        while (!message.empty() && (message.front() == ' ' || message.front() == '\t')) {
            length += takeLine(message).size();
        }
        headers.push_back({name, std::string_view(line.data(), length).substr(colon + 1)});
    }
    return headers;
}

/// Whether it is a message, and no other text that has lines with colons.
bool isMessage(const std::vector<Header>& headers) {
    constexpr std::array<std::string_view, 7> usual = {"from",     "date",        "subject",   "to",
                                                       "received", "return-path", "message-id"};
    return headers.size() >= 2 && std::ranges::any_of(headers, [&](const Header& header) {
               return std::ranges::any_of(usual, [&header](std::string_view name) {
                   return isSameName(name, header.name);
               });
           });
}

class Message {
public:
    explicit Message(const std::vector<Header>& headers) : headers_(headers) {}

    /// The first header of the name; empty if there is none.
    std::string_view content(std::string_view name) const {
        for (const Header& header : headers_) {
            if (isSameName(header.name, name)) return header.content;
        }
        return {};
    }

    std::string text(std::string_view name) const { return collapsed(decodedWords(content(name))); }

    /// Those whom all headers of these names have, one name after the other.
    std::vector<std::string> people(const std::vector<std::string_view>& names) const {
        std::vector<std::string> people;
        for (const std::string_view name : names) {
            for (const Header& header : headers_) {
                if (!isSameName(header.name, name)) continue;
                for (std::string& person : mailboxNames(header.content)) {
                    people.push_back(std::move(person));
                }
            }
        }
        return people;
    }

private:
    const std::vector<Header>& headers_;
};

}  // namespace

std::optional<platform::PropertyDictionary> messageIndex(Input& input) {
    const std::string bytes = input.bytesAt(0, maximumHeaders);
    const std::vector<Header> headers = headersOf(bytes);
    if (!isMessage(headers)) return std::nullopt;
    const Message message(headers);
    platform::PropertyDictionary properties;
    addText(properties, Attribute::kMDItemTitle, message.text("subject"));
    addText(properties, Attribute::kMDItemComment, message.text("comments"));
    addTexts(properties, Attribute::kMDItemKeywords, listedTexts(message.text("keywords"), ",;"));
    addTexts(properties, Attribute::kMDItemAuthors, message.people({"from"}));
    addTexts(properties, Attribute::kMDItemParticipants, message.people({"to", "cc"}));
    addText(properties, Attribute::kMDItemContentCreationDate,
            messageDate(message.content("date")));
    return properties;
}

}  // namespace marquell::helpers
