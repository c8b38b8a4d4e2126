// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/PsdLayers.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/image/PhotoshopResources.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t maximumLayers = 10'000;
/// Of all layers together; one has a dozen or two.
constexpr std::size_t maximumBlocks = 200'000;
constexpr std::size_t maximumNameUnits = 512;

/// Blocks whose length has eight bytes in a PSB.
constexpr std::array<std::string_view, 12> longBlocks = {
    "LMsk", "Lr16", "Lr32", "Layr", "Mt16", "Mt32", "Mtrn", "Alph", "FMsk", "lnk2", "FEid", "FXid"};

/// Takes numbers off the front of a part of the file; 0 behind its end, which it has then failed.
class PsdReader {
public:
    PsdReader(Input& input, bool isLarge, std::uint64_t begin, std::uint64_t end)
        : input_(input),
          isLarge_(isLarge),
          position_(begin),
          end_(std::min(end, input.size())),
          hasFailed_(begin > end_) {}

    bool hasFailed() const { return hasFailed_; }
    bool isLarge() const { return isLarge_; }
    std::uint64_t position() const { return position_; }

    std::uint64_t number(std::size_t length) { return bigEndian(bytes(length), 0, length); }
    /// A length that a PSB has in eight bytes.
    std::uint64_t length() { return number(isLarge_ ? 8 : 4); }

    std::string bytes(std::size_t length) {
        std::string bytes = has(length) ? input_.bytesAt(position_, length) : std::string();
        skip(length);
        return bytes;
    }

    void skip(std::uint64_t length) {
        hasFailed_ = hasFailed_ || !has(length);
        if (!hasFailed_) position_ += length;
    }

    /// A reader of the next part, which is skipped.
    PsdReader part(std::uint64_t length) {
        const std::uint64_t begin = position_;
        skip(length);
        return {input_, isLarge_, hasFailed_ ? end_ : begin, hasFailed_ ? end_ : begin + length};
    }

    bool isAtEnd() const { return hasFailed_ || position_ >= end_; }

private:
    bool has(std::uint64_t length) const { return !hasFailed_ && length <= end_ - position_; }

    Input& input_;
    const bool isLarge_;
    std::uint64_t position_;
    const std::uint64_t end_;
    bool hasFailed_;
};

struct Block {
    std::string key;
    std::uint64_t length = 0;
};

/// The head of a block of additional information; absent where there is none.
std::optional<Block> nextBlock(PsdReader& reader) {
    const std::string mark = reader.bytes(4);
    if (mark != "8BIM" && mark != "8B64") return std::nullopt;
    Block block;
    block.key = reader.bytes(4);
    const bool isLong = reader.isLarge() && std::ranges::count(longBlocks, block.key) > 0;
    block.length = reader.number(isLong ? 8 : 4);
    if (reader.hasFailed()) return std::nullopt;
    return block;
}

struct Layer {
    std::string name;
    bool hasWideName = false;  ///< of UTF-16, which has no need to be short
    bool endsGroup = false;    ///< no layer, but a mark below the last of a group
};

void readBlock(const Block& block, PsdReader content, Layer& layer) {
    constexpr std::uint64_t groupEnd = 3;
    if (block.key == "luni" && !layer.hasWideName) {
        const std::uint64_t units = std::min<std::uint64_t>(content.number(4), maximumNameUnits);
        std::string name = decodedText(content.bytes(static_cast<std::size_t>(units) * 2),
                                       Charset::utf16BigEndian);
        if (!name.empty()) layer.name = std::move(name);
        layer.hasWideName = true;
    } else if (block.key == "lsct") {
        layer.endsGroup = content.number(4) == groupEnd;
    }
}

/// What stands behind the fixed fields of a layer. Counts its blocks.
Layer readExtra(PsdReader extra, std::size_t& blocks) {
    Layer layer;
    extra.skip(extra.number(4));  // mask
    extra.skip(extra.number(4));  // ranges of blending
    const std::uint64_t length = extra.number(1);
    layer.name = decodedText(extra.bytes(static_cast<std::size_t>(length)), Charset::likely);
    extra.skip(3 - length % 4);  // with its length it takes whole words
    for (; blocks < maximumBlocks && !extra.isAtEnd(); ++blocks) {
        const auto block = nextBlock(extra);
        if (!block) break;
        readBlock(*block, extra.part(block->length + block->length % 2), layer);
    }
    return layer;
}

/// The layers that begin with their number.
std::vector<std::string> layersOf(PsdReader reader) {
    std::vector<std::string> names;
    std::size_t blocks = 0;
    const auto signedCount = static_cast<std::int16_t>(reader.number(2));
    const auto count = static_cast<std::size_t>(std::abs(static_cast<int>(signedCount)));
    for (std::size_t i = 0; i < std::min(count, maximumLayers); ++i) {
        reader.skip(16);  // its rectangle
        const std::uint64_t channels = reader.number(2);
        reader.skip(channels * (reader.isLarge() ? 10 : 6));
        reader.skip(12);  // how it is blended
        const std::uint64_t length = reader.number(4);
        Layer layer = readExtra(reader.part(length), blocks);
        if (reader.hasFailed()) break;
        if (!layer.endsGroup && !layer.name.empty()) names.push_back(std::move(layer.name));
    }
    std::ranges::reverse(names);
    return names;
}

/// Files of more than 8 bits have their layers in a block behind the place for them.
std::vector<std::string> layersOfBlocks(PsdReader section) {
    section.skip(section.number(4));  // the mask of all layers
    for (std::size_t steps = 0; steps < maximumSteps && !section.isAtEnd(); ++steps) {
        const auto block = nextBlock(section);
        if (!block) break;
        PsdReader content = section.part((block->length + 3) / 4 * 4);
        if (block->key == "Lr16" || block->key == "Lr32") return layersOf(content);
    }
    return {};
}

}  // namespace

std::vector<std::string> readPsdLayerNames(Input& input) {
    const std::string start = input.bytesAt(0, 6);
    if (start.size() < 6 || !start.starts_with("8BPS")) return {};
    constexpr std::uint64_t large = 2;
    PsdReader file(input, bigEndian(start, 4, 2) == large, photoshopResourceSection(input).end,
                   input.size());
    PsdReader section = file.part(file.length());
    const std::uint64_t length = section.length();
    if (length > 0) return layersOf(section.part(length));
    return layersOfBlocks(section);
}

}  // namespace marquell::helpers
