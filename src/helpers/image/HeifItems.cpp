// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/HeifItems.h"

#include <algorithm>

#include "helpers/common/Numbers.h"
#include "helpers/image/HeifLocations.h"

namespace marquell::helpers {
namespace {

std::uint32_t number32(IsoReader& reader, std::size_t length) {
    return static_cast<std::uint32_t>(reader.number(length));
}

std::optional<HeifItem> readItem(Input& input, const IsoBox& box) {
    IsoReader reader(input, box);
    const IsoVersion version(reader);
    if (version.version < 2 || version.version > 3) return std::nullopt;
    HeifItem item;
    item.id = number32(reader, version.version == 2 ? 2 : 4);
    const bool isEncrypted = reader.number(2) != 0;
    item.type = number32(reader, 4);
    if (item.type == fourCharacters("mime")) {
        reader.text();  // the name
        item.contentType = reader.text();
        const bool isCompressed = reader.position() < box.end && !reader.text().empty();
        if (isCompressed) item.contentType.clear();
    }
    if (reader.hasFailed() || isEncrypted) return std::nullopt;
    return item;
}

/// The numbers of an item's properties, counted from 1, as one `ipma` box tells them. `steps` is
/// what is left for all such boxes.
std::vector<std::size_t> readAssociations(Input& input, const IsoBox& box, HeifItemId wanted,
                                          std::size_t& steps) {
    std::vector<std::size_t> indices;
    IsoReader reader(input, box);
    const IsoVersion version(reader);
    const bool isWide = (version.flags & 1) != 0;
    const std::size_t width = isWide ? 2 : 1;
    const std::uint64_t entries = reader.number(4);
    for (std::uint64_t entry = 0; entry < entries && steps > 0 && !reader.hasFailed(); ++entry) {
        --steps;
        const HeifItemId item = number32(reader, version.version < 1 ? 2 : 4);
        const std::uint64_t count = reader.number(1);
        if (item != wanted) {
            reader.skip(count * width);
            continue;
        }
        for (std::uint64_t i = 0; i < count; ++i) {
            // The upper bit tells that the property must be understood.
            indices.push_back(reader.number(width) & (isWide ? 0x7FFF : 0x7F));
        }
        break;
    }
    return indices;
}

}  // namespace

HeifItems::HeifItems(Input& input) : input_(input) {
    const auto meta = findBox(input, 0, input.size(), fourCharacters("meta"));
    if (!meta || meta->length() < 4) return;
    constexpr std::uint64_t versionLength = 4;
    IsoBoxWalk walk(input, meta->begin + versionLength, meta->end);
    for (IsoBox box; walk.next(box);) children_.push_back(box);
}

std::optional<IsoBox> HeifItems::find(std::uint32_t type) const {
    const auto found = std::ranges::find(children_, type, &IsoBox::type);
    if (found == children_.end()) return std::nullopt;
    return *found;
}

std::optional<HeifItemId> HeifItems::primary() const {
    const auto box = find(fourCharacters("pitm"));
    if (!box) return std::nullopt;
    IsoReader reader(input_, *box);
    const IsoVersion version(reader);
    const HeifItemId item = number32(reader, version.version == 0 ? 2 : 4);
    if (reader.hasFailed()) return std::nullopt;
    return item;
}

std::vector<HeifItem> HeifItems::items() const {
    std::vector<HeifItem> items;
    const auto box = find(fourCharacters("iinf"));
    if (!box) return items;
    IsoReader reader(input_, *box);
    const IsoVersion version(reader);
    reader.skip(version.version == 0 ? 2 : 4);  // how many there are
    if (reader.hasFailed()) return items;
    IsoBoxWalk walk(input_, reader.position(), box->end);
    for (IsoBox entry; walk.next(entry);) {
        if (entry.type != fourCharacters("infe")) continue;
        const auto item = readItem(input_, entry);
        if (item) items.push_back(*item);
    }
    return items;
}

std::vector<IsoBox> HeifItems::properties(HeifItemId item) const {
    std::vector<IsoBox> found;
    const auto parent = find(fourCharacters("iprp"));
    if (!parent) return found;
    std::vector<std::size_t> indices;
    std::vector<IsoBox> all;
    std::size_t steps = maximumSteps;
    IsoBoxWalk walk(input_, parent->begin, parent->end);
    for (IsoBox box; walk.next(box);) {
        if (box.type == fourCharacters("ipma") && indices.empty()) {
            indices = readAssociations(input_, box, item, steps);
        } else if (box.type == fourCharacters("ipco") && all.empty()) {
            IsoBoxWalk children(input_, box.begin, box.end);
            for (IsoBox property; children.next(property);) all.push_back(property);
        }
    }
    for (const std::size_t index : indices) {
        if (index >= 1 && index <= all.size()) found.push_back(all[index - 1]);
    }
    return found;
}

std::vector<HeifItemId> HeifItems::references(HeifItemId from, std::uint32_t type) const {
    std::vector<HeifItemId> targets;
    const auto parent = find(fourCharacters("iref"));
    if (!parent || parent->length() < 4) return targets;
    IsoReader start(input_, *parent);
    const IsoVersion version(start);
    const std::size_t width = version.version == 0 ? 2 : 4;
    IsoBoxWalk walk(input_, start.position(), parent->end);
    for (IsoBox box; walk.next(box);) {
        if (box.type != type) continue;
        IsoReader reader(input_, box);
        if (number32(reader, width) != from) continue;
        const std::uint64_t count = reader.number(2);
        for (std::uint64_t i = 0; i < count && targets.size() < maximumSteps; ++i) {
            const HeifItemId target = number32(reader, width);
            if (reader.hasFailed()) break;
            targets.push_back(target);
        }
    }
    return targets;
}

std::string HeifItems::data(HeifItemId item, std::size_t maximum) const {
    const auto locations = find(fourCharacters("iloc"));
    if (!locations) return {};
    const auto location = findHeifLocation(input_, *locations, item);
    if (!location) return {};
    IsoBox source{0, 0, input_.size()};
    if (location->isInMeta) source = find(fourCharacters("idat")).value_or(IsoBox{});
    return readHeifLocation(input_, *location, source, maximum);
}

}  // namespace marquell::helpers
