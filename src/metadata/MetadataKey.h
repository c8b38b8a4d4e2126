// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace marquell::metadata {

/// A column id or internal key as the store keeps it: a number in place of the text. Equal texts
/// have equal numbers for the life of the process. The named ones are those of the basic record.
enum class MetadataKey : std::uint16_t {
    retrieved,  ///< true once a source has finished with a path, whether or not it found anything
    size,
    creation_date,
    modification_date,
    size_in_bytes,
    human_readable_size,
    size_in_kb,
    size_in_mb,
};

/// Any thread. A program that makes up keys without end would run out at 65,536; ours come from
/// the catalogue.
MetadataKey metadataKey(std::string_view text);

}  // namespace marquell::metadata
