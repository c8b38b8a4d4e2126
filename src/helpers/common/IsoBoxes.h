// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// A box of an ISO base media or JPEG 2000 file. Its content lies within that of its parent,
/// whatever length it claims.
struct IsoBox {
    std::uint32_t type = 0;
    std::uint64_t begin = 0;  ///< of the content
    std::uint64_t end = 0;

    std::uint64_t length() const { return end - begin; }
};

/// Goes over the boxes from `begin` to `end`, siblings only, at most maximumSteps of them.
class IsoBoxWalk {
public:
    IsoBoxWalk(Input& input, std::uint64_t begin, std::uint64_t end);

    /// False at the end and at what is no box.
    bool next(IsoBox& box);

private:
    Input& input_;
    std::uint64_t position_;
    const std::uint64_t end_;
    std::size_t steps_ = 0;
};

/// The first box of the type between `begin` and `end`.
std::optional<IsoBox> findBox(Input& input, std::uint64_t begin, std::uint64_t end,
                              std::uint32_t type);

/// Takes numbers and texts off the front of a box. After one that doesn't fit into the box all are
/// 0 or empty.
class IsoReader {
public:
    IsoReader(Input& input, const IsoBox& box)
        : input_(input), position_(box.begin), end_(box.end) {}

    bool hasFailed() const { return hasFailed_; }
    std::uint64_t position() const { return position_; }

    /// Big-endian, of at most 8 bytes; 0 of 0 bytes.
    std::uint64_t number(std::size_t length);
    /// Ends with NUL or with the box; a longer one than 255 bytes fails.
    std::string text();
    void skip(std::uint64_t length);

private:
    Input& input_;
    std::uint64_t position_;
    const std::uint64_t end_;
    bool hasFailed_ = false;
};

/// The version in front of a box that has one, which is taken off with the flags.
struct IsoVersion {
    explicit IsoVersion(IsoReader& reader) : version(reader.number(1)), flags(reader.number(3)) {}

    std::uint64_t version;
    std::uint64_t flags;
};

}  // namespace marquell::helpers
