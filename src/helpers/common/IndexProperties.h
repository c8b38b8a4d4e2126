// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/IndexAttributes.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

// Each sets an attribute that is not set yet; what is empty or absent sets nothing. A list is cut
// to what a dictionary may hold.

inline void addText(platform::PropertyDictionary& properties, platform::IndexAttribute attribute,
                    std::string text) {
    if (text.empty()) return;
    properties.emplace(static_cast<platform::PropertyKey>(attribute), std::move(text));
}

inline void addTexts(platform::PropertyDictionary& properties, platform::IndexAttribute attribute,
                     std::vector<std::string> texts) {
    std::erase(texts, "");
    texts.resize(std::min(texts.size(), platform::maximumListLength));
    if (texts.empty()) return;
    properties.emplace(static_cast<platform::PropertyKey>(attribute), std::move(texts));
}

inline void addNumber(platform::PropertyDictionary& properties, platform::IndexAttribute attribute,
                      std::optional<double> number) {
    if (!number || !std::isfinite(*number)) return;
    properties.emplace(static_cast<platform::PropertyKey>(attribute), *number);
}

}  // namespace marquell::helpers
