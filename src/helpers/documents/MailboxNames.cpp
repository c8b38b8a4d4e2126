// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/MailboxNames.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "helpers/documents/DocumentText.h"
#include "helpers/documents/EncodedWords.h"

namespace marquell::helpers {
namespace {

/// Takes a list apart from front to end.
class MailboxList {
public:
    explicit MailboxList(std::string_view list) : rest_(list) {}

    std::vector<std::string> takeNames() {
        while (!rest_.empty()) takeToken();
        endMailbox();
        return std::move(names_);
    }

private:
    void takeToken() {
        if (const auto word = encodedWordAt(rest_)) {
            // As a whole: some have commas and blanks inside.
            phrase_.append(rest_.substr(0, word->length));
            rest_.remove_prefix(word->length);
            return;
        }
        const char first = rest_.front();
        rest_.remove_prefix(1);
        if (first == '"') {
            takeQuoted(phrase_, '"');
        } else if (first == '<') {
            address_.clear();
            takeQuoted(address_, '>');
        } else if (first == '(') {
            takeComment();
        } else if (first == ',' || first == ';') {
            endMailbox();
        } else if (first == ':') {
            phrase_.clear();  // the name of a group
        } else {
            phrase_.push_back(first);
        }
    }

    void takeQuoted(std::string& text, char end) {
        while (!rest_.empty()) {
            const char byte = takeByte();
            if (byte == end) return;
            text.push_back(byte == '\\' && !rest_.empty() ? takeByte() : byte);
        }
    }

    void takeComment() {
        comment_.clear();
        for (int depth = 1; !rest_.empty();) {
            char byte = takeByte();
            if (byte == '(') ++depth;
            if (byte == ')' && --depth == 0) return;
            if (byte == '\\' && !rest_.empty()) byte = takeByte();
            comment_.push_back(byte);
        }
    }

    char takeByte() {
        const char byte = rest_.front();
        rest_.remove_prefix(1);
        return byte;
    }

    void endMailbox() {
        // Without brackets what looks like the name is the address.
        const std::string& better = address_.empty() ? comment_ : phrase_;
        const std::string& other = address_.empty() ? phrase_ : address_;
        std::string name = collapsed(decodedWords(better));
        if (name.empty() || trimmed(phrase_ + address_).empty()) {
            name = collapsed(decodedWords(other));
        }
        if (!name.empty()) names_.push_back(std::move(name));
        for (std::string* text : {&phrase_, &address_, &comment_}) text->clear();
    }

    std::string_view rest_;
    std::string phrase_;
    std::string address_;
    std::string comment_;
    std::vector<std::string> names_;
};

}  // namespace

std::vector<std::string> mailboxNames(std::string_view list) {
    return MailboxList(list).takeNames();
}

}  // namespace marquell::helpers
