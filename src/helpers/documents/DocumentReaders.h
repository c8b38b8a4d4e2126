// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "helpers/common/Input.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

// The attributes of documents, by platform::IndexAttribute; absent if the content is of another
// type or broken. They take bounded time and memory whatever the bytes are.
std::optional<platform::PropertyDictionary> packageIndex(Input& input);
std::optional<platform::PropertyDictionary> webPageIndex(Input& input);
std::optional<platform::PropertyDictionary> messageIndex(Input& input);

}  // namespace marquell::helpers
