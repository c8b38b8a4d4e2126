// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "helpers/common/Input.h"
#include "helpers/common/IsoBoxes.h"

namespace marquell::helpers {

using HeifItemId = std::uint32_t;

struct HeifItem {
    HeifItemId id = 0;
    std::uint32_t type = 0;
    std::string contentType;  ///< of an item of type `mime` that is stored as it is
};

/// The items of a HEIF file: images, tiles and blocks of metadata, with their properties. Nothing
/// but where the boxes are is kept; a file is asked only a few questions.
class HeifItems {
public:
    explicit HeifItems(Input& input);

    std::optional<HeifItemId> primary() const;
    /// All that are not encrypted, in the order of the file, up to maximumSteps.
    std::vector<HeifItem> items() const;
    /// The property boxes of an item in their order.
    std::vector<IsoBox> properties(HeifItemId item) const;
    /// Where a reference of a type leads to from an item.
    std::vector<HeifItemId> references(HeifItemId from, std::uint32_t type) const;
    /// The bytes of an item; empty if there are more than `maximum` or not all of them are there.
    std::string data(HeifItemId item, std::size_t maximum) const;

private:
    std::optional<IsoBox> find(std::uint32_t type) const;

    Input& input_;
    std::vector<IsoBox> children_;  // of the `meta` box
};

}  // namespace marquell::helpers
