// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "helpers/sound/Id3Text.h"
#include "helpers/sound/SoundTags.h"

namespace marquell::helpers {

/// What the frames of a file say for the common keys and what is beside them. Of several frames of
/// one kind the last one counts.
class Id3CommonKeys {
public:
    /// Takes a frame by its current identifier. An empty one is none.
    void add(std::string_view id, const Id3Text& text);

    /// Adds what is not set yet. Frames go before user texts.
    void addTo(SoundTags& tags) const;

private:
    struct Frame {
        std::string id;
        std::string description;
        std::string text;
    };

    /// In the order of the file.
    std::vector<Frame> frames_;
};

}  // namespace marquell::helpers
