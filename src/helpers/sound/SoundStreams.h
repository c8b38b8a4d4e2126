// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/sound/Chunks.h"
#include "helpers/sound/SoundStream.h"

namespace marquell::helpers {

// Each reads the headers of files of one kind; the caller has seen by its first bytes that the file
// is of that kind. Absent if it has no format of the sound.
std::optional<SoundStream> readWaveStream(Input& input, ChunkForm form);
std::optional<SoundStream> readAiffStream(Input& input);
std::optional<SoundStream> readCafStream(Input& input);
std::optional<SoundStream> readAuStream(Input& input);
std::optional<SoundStream> readFlacStream(Input& input, std::uint64_t begin);

/// What kinds of files agree on: the numbers as headers have them, 0 where they don't say.
struct SoundNumbers {
    double sampleRate = 0;    ///< samples per second of a channel
    double frames = 0;        ///< samples of a channel
    double bitsPerFrame = 0;  ///< of what isn't compressed; else the rate follows from the bytes
    std::uint64_t bytes = 0;  ///< of the sound
    double statedBitRate = 0;
    std::uint64_t bitsPerSample = 0;
};

/// Sets all but the codec, with what doesn't make sense left out.
void setNumbers(SoundStream& stream, const SoundNumbers& numbers);

/// The name of a codec by its four characters in AIFF and CAF; unknown ones as they stand.
std::string codecOfCharacters(std::string_view code);

inline constexpr std::string_view linearPcm = "Linear PCM";
inline constexpr std::string_view floatingPcm = "Linear PCM, floating point";
inline constexpr std::string_view aLaw = "A-law";
inline constexpr std::string_view muLaw = "\u00B5-law";

/// Whether the samples of a codec lie there as they are, as many bits for each.
bool isUncompressed(std::string_view codec);

}  // namespace marquell::helpers
