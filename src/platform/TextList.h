// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace marquell::platform {

/// A list of texts that never changes, so that copies share it: a user may have a hundred thousand
/// sources, and every change of a setting takes a copy of all settings. Copies may be used by
/// several threads.
class TextList {
public:
    using value_type = std::string;
    using const_iterator = std::vector<std::string>::const_iterator;

    TextList() = default;
    TextList(std::vector<std::string> texts)  // NOLINT(google-explicit-constructor): the same value
        : texts_(std::make_shared<const std::vector<std::string>>(std::move(texts))) {}
    TextList(std::initializer_list<std::string> texts) : TextList(std::vector(texts)) {}

    const std::vector<std::string>& texts() const {
        static const std::vector<std::string> none;
        return texts_ != nullptr ? *texts_ : none;
    }
    const_iterator begin() const { return texts().begin(); }
    const_iterator end() const { return texts().end(); }
    std::size_t size() const { return texts().size(); }
    bool empty() const { return texts().empty(); }

    friend bool operator==(const TextList& a, const TextList& b) {
        return a.texts_ == b.texts_ || a.texts() == b.texts();
    }

private:
    std::shared_ptr<const std::vector<std::string>> texts_;
};

}  // namespace marquell::platform
