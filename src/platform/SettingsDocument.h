// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/DefaultsValue.h"

namespace marquell::platform {

using DefaultsValues = std::map<std::string, DefaultsValue>;
/// What is to be changed: the new value of a key, absent where the key is to go.
using DefaultsChanges = std::map<std::string, std::optional<DefaultsValue>>;

// The content of a settings file: a JSON object, the member "settings" of which has the values.
// Bytes and numbers that JSON has no form for are objects of one member, {"data": base64} and
// {"number": "nan"}. All else is kept as it is: what readers can't use, members beside "settings",
// a version number from the future.

/// A document without settings.
inline constexpr std::string_view emptySettings = R"({"version": 1})";

/// The values of a document. Absent if it is none; `problem` then says where, what was found and
/// what was expected.
std::optional<DefaultsValues> settingsIn(std::string_view text, std::string& problem);

/// The document `text` with the changes made: `text` itself if they change nothing. An empty text
/// if it is no document.
std::string withChanges(const std::string& text, const DefaultsChanges& changes);

}  // namespace marquell::platform
