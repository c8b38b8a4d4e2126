// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// A chunk of a file of the RIFF, IFF or CAF kind. Its content lies within the file, whatever
/// length it claims.
struct Chunk {
    std::uint32_t type = 0;
    std::uint64_t begin = 0;  ///< of the content
    std::uint64_t end = 0;

    std::uint64_t length() const { return end - begin; }
};

/// How a kind of file writes numbers and chunks.
enum class ChunkForm {
    littleEndian,  ///< RIFF
    bigEndian,     ///< RIFX, IFF
    wide,          ///< CAF: big-endian with lengths of 8 bytes, nothing in between
};

/// The number that `length` bytes at the offset make in files of the form.
std::uint64_t chunkNumber(ChunkForm form, std::string_view bytes, std::size_t offset,
                          std::size_t length);

/// Goes over the chunks from `begin` to `end`, siblings only, at most maximumSteps of them. The
/// data of a file that was written to a pipe, without knowing how many there would be, reach to
/// the end; those of an RF64 file are as long as its ds64 chunk says.
class ChunkWalk {
public:
    ChunkWalk(Input& input, ChunkForm form, std::uint64_t begin, std::uint64_t end);

    /// False at the end and at what is no chunk.
    bool next(Chunk& chunk);

private:
    /// How long the content is, given what its header says.
    std::uint64_t contentLength(const Chunk& chunk, std::uint64_t stated);

    Input& input_;
    const ChunkForm form_;
    std::uint64_t position_;
    const std::uint64_t end_;
    std::uint64_t longDataLength_ = 0;  ///< from ds64
    std::size_t steps_ = 0;
};

/// What a RIFF or IFF file says of itself in its first 12 bytes.
struct ChunkFile {
    bool isKnown = false;  ///< else the rest means nothing
    ChunkForm form = ChunkForm::littleEndian;
    std::uint32_t type = 0;  ///< "WAVE", "AIFF", "AIFC"
};

ChunkFile chunkFileOf(Input& input);

}  // namespace marquell::helpers
