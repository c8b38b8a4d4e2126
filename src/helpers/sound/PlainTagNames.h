// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "helpers/sound/SoundTags.h"
#include "helpers/sound/TagFields.h"

namespace marquell::helpers {

/// Fields whose names are words, as many formats have them: "title", "ALBUM_ARTIST", "recorded
/// date", or with a domain in front, "com.apple.quicktime.title".
class NamedTagFields {
public:
    void add(std::string_view name, const std::string& text);

    /// Adds what is not set yet. Names of Apple's domain go before all others.
    void addTo(SoundTags& tags) const;

private:
    TagFields apple_;
    TagFields other_;
};

}  // namespace marquell::helpers
