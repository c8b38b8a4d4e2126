// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "helpers/sound/Id3Text.h"
#include "helpers/sound/PlainTagNames.h"
#include "helpers/sound/SoundTags.h"
#include "helpers/sound/TagFields.h"

namespace marquell::helpers {

/// What the frames of one tag say for the common keys and what is beside them.
class Id3CommonKeys {
public:
    /// Takes a frame by its current identifier.
    void add(std::string_view id, const Id3Text& text);

    /// Adds what is not set yet. Frames go before user texts.
    void addTo(SoundTags& tags) const;

private:
    TagFields frames_;
    NamedTagFields userTexts_;
};

}  // namespace marquell::helpers
