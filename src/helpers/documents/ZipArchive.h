// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// Single members of a ZIP file, found by name in the directory at its end. The directory is walked
/// in place and nothing else is kept of it, so that a million members cost little.
class ZipArchive {
public:
    /// The input must live as long.
    explicit ZipArchive(Input& input);

    bool hasDirectory() const { return !directory_.empty(); }

    bool contains(std::string_view name) const { return find(name).has_value(); }

    /// The content of a member, at most `maximum` bytes from its beginning; what precedes a fault.
    /// Empty if there is no such member or it is encrypted or packed in a rare way.
    std::string member(std::string_view name, std::size_t maximum) const;

private:
    struct Entry {
        std::uint64_t method;
        std::uint64_t length;  ///< as packed
        std::uint64_t offset;  ///< of the member's own header
    };

    std::optional<Entry> find(std::string_view name) const;

    Input& input_;
    std::string directory_;
};

}  // namespace marquell::helpers
