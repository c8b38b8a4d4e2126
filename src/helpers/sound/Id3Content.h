// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/common/Input.h"
#include "helpers/sound/Id3FrameWalk.h"

namespace marquell::helpers {

/// Takes out the zeros that keep a tag from looking like sound. Bytes that such zeros should have
/// been put into, but were not, stay as they are: that a tag says so doesn't make it true.
void undoUnsynchronisation(std::string& bytes);

/// Reads the contents of a tag's frames in their plain form.
class Id3Contents {
public:
    /// `isUnsynchronised`: what the tag says of all its frames. `bytesLeft` counts down what they
    /// take.
    Id3Contents(Input& input, unsigned version, bool isUnsynchronised, std::size_t& bytesLeft)
        : input_(input),
          version_(version),
          isUnsynchronised_(isUnsynchronised),
          bytesLeft_(bytesLeft) {}

    /// Absent if it is encrypted, broken or too long.
    std::optional<std::string> read(const Id3FrameHeader& frame);

private:
    std::optional<std::string> inflated(std::string_view compressed);

    Input& input_;
    const unsigned version_;
    const bool isUnsynchronised_;
    std::size_t& bytesLeft_;
};

}  // namespace marquell::helpers
