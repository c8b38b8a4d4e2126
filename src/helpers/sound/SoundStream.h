// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// What the header of a sound file with one stream says of it.
struct SoundStream {
    std::string codec;                      ///< for people: "Linear PCM", "FLAC"
    std::optional<double> seconds;          ///< not negative, finite
    std::optional<double> bitRate;          ///< bits per second of the sound
    std::optional<unsigned> bitsPerSample;  ///< of codecs that have such a thing
};

/// Reads the headers of WAV (with RF64), AIFF and AIFC, CAF, AU and FLAC; absent for all else.
std::optional<SoundStream> readSoundStream(Input& input);

}  // namespace marquell::helpers
