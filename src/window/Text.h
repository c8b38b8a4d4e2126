// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "platform/Localization.h"

namespace marquell::window {

/// The user's text for an English one; see platform::localized.
inline QString localizedText(std::string_view english, const char* context) {
    return QString::fromStdString(platform::localized(english, context));
}

}  // namespace marquell::window
