// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/sound/SoundTags.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Adds the attributes (platform::IndexAttribute) that tags say something for, where not set yet.
void addSoundTagIndex(platform::PropertyDictionary& index, const SoundTags& tags);

}  // namespace marquell::helpers
