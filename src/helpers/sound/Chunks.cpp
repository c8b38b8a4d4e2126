// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Chunks.h"

#include <algorithm>
#include <string>

#include "helpers/common/Numbers.h"

namespace marquell::helpers {
namespace {

constexpr std::uint32_t openLength = 0xFFFFFFFF;

}  // namespace

std::uint64_t chunkNumber(ChunkForm form, std::string_view bytes, std::size_t offset,
                          std::size_t length) {
    return form == ChunkForm::littleEndian ? littleEndian(bytes, offset, length)
                                           : bigEndian(bytes, offset, length);
}

ChunkWalk::ChunkWalk(Input& input, ChunkForm form, std::uint64_t begin, std::uint64_t end)
    : input_(input), form_(form), position_(begin), end_(std::min(end, input.size())) {}

bool ChunkWalk::next(Chunk& chunk) {
    const std::size_t headerLength = form_ == ChunkForm::wide ? 12 : 8;
    if (position_ >= end_ || end_ - position_ < headerLength || steps_++ == maximumSteps) {
        return false;
    }
    const std::string header = input_.bytesAt(position_, headerLength);
    if (header.size() < headerLength) return false;
    chunk.type = static_cast<std::uint32_t>(bigEndian(header, 0, 4));
    chunk.begin = position_ + headerLength;
    const std::uint64_t stated = chunkNumber(form_, header, 4, headerLength - 4);
    const std::uint64_t length = std::min(contentLength(chunk, stated), end_ - chunk.begin);
    chunk.end = chunk.begin + length;
    const bool isPadded = form_ != ChunkForm::wide && length % 2 == 1;
    position_ = chunk.end + (isPadded ? 1 : 0);
    return true;
}

std::uint64_t ChunkWalk::contentLength(const Chunk& chunk, std::uint64_t stated) {
    if (form_ == ChunkForm::wide) return stated;  // -1 is more than any file has
    if (chunk.type == fourCharacters("ds64")) {
        longDataLength_ = chunkNumber(form_, input_.bytesAt(chunk.begin, 16), 8, 8);
    }
    if (chunk.type != fourCharacters("data")) return stated;
    if (stated == openLength) return longDataLength_ > 0 ? longDataLength_ : end_ - chunk.begin;
    if (stated != 0) return stated;
    // Nothing in them, or nobody came back to write the length: then neither to the file's.
    const std::uint64_t fileEnd = 8 + chunkNumber(form_, input_.bytesAt(0, 8), 4, 4);
    const bool isFinished = fileEnd > chunk.begin && fileEnd <= end_;
    return isFinished ? 0 : end_ - chunk.begin;
}

ChunkFile chunkFileOf(Input& input) {
    const std::string start = input.bytesAt(0, 12);
    ChunkFile file;
    file.type = static_cast<std::uint32_t>(bigEndian(start, 8, 4));
    const std::string_view magic = std::string_view(start).substr(0, 4);
    const bool isWave = file.type == fourCharacters("WAVE");
    const bool isAiff = file.type == fourCharacters("AIFF") || file.type == fourCharacters("AIFC");
    file.form = magic == "RIFX" || magic == "FORM" ? ChunkForm::bigEndian : ChunkForm::littleEndian;
    file.isKnown = magic == "FORM" ? isAiff
                                   : isWave && (magic == "RIFF" || magic == "RIFX" ||
                                                magic == "RF64" || magic == "BW64");
    return file;
}

}  // namespace marquell::helpers
