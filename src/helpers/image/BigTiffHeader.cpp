// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"
#include "helpers/image/TiffDirectory.h"

namespace marquell::helpers {
namespace {

/// Numbers in the file's order of bytes.
class Reader {
public:
    Reader(Input& input, bool isBigEndian) : input_(input), isBigEndian_(isBigEndian) {}

    std::uint64_t number(std::string_view bytes, std::size_t offset, std::size_t length) const {
        return isBigEndian_ ? bigEndian(bytes, offset, length)
                            : littleEndian(bytes, offset, length);
    }
    std::uint64_t numberAt(std::uint64_t offset, std::size_t length) const {
        return number(input_.bytesAt(offset, length), 0, length);
    }
    Input& input() const { return input_; }

private:
    Input& input_;
    bool isBigEndian_;
};

/// A field of a directory: what it is, and its value or where that is.
class Field {
public:
    static constexpr std::size_t size = 20;

    Field(const Reader& reader, std::uint64_t offset)
        : reader_(reader), bytes_(reader.input().bytesAt(offset, size)) {}

    bool isThere() const { return bytes_.size() == size; }
    std::uint64_t tag() const { return reader_.number(bytes_, 0, 2); }
    std::uint64_t count() const { return reader_.number(bytes_, 4, 8); }
    std::uint64_t offset() const { return reader_.number(bytes_, valueAt, 8); }

    /// The first of its numbers; absent for types that the fields of interest don't have.
    std::optional<double> number() const {
        constexpr std::uint64_t fraction = 5;
        if (type() == fraction) return fractionInside();
        const std::size_t length = lengthOfType();
        if (length == 0) return std::nullopt;
        const bool isInside = count() <= 8 / length;
        return static_cast<double>(isInside ? reader_.number(bytes_, valueAt, length)
                                            : reader_.numberAt(offset(), length));
    }

private:
    static constexpr std::size_t valueAt = 12;

    std::uint64_t type() const { return reader_.number(bytes_, 2, 2); }
    std::optional<double> fractionInside() const {
        const auto denominator = static_cast<double>(reader_.number(bytes_, valueAt + 4, 4));
        if (count() != 1 || denominator == 0) return std::nullopt;
        return static_cast<double>(reader_.number(bytes_, valueAt, 4)) / denominator;
    }
    std::size_t lengthOfType() const {
        switch (type()) {
            case 1:
                return 1;
            case 3:
                return 2;
            case 4:
                return 4;
            case 16:
                return 8;
            default:
                return 0;
        }
    }

    const Reader& reader_;
    std::string bytes_;
};

}  // namespace

ImageHeader readBigTiffHeader(Input& input) {
    ImageHeader header;
    const std::string start = input.bytesAt(0, 16);
    if (!start.starts_with("II+") && !start.starts_with(std::string_view("MM\0+", 4)))
        return header;
    const Reader reader(input, start.starts_with("MM"));
    const std::uint64_t directory = reader.number(start, 8, 8);
    const std::uint64_t count =
        std::min<std::uint64_t>(reader.numberAt(directory, 8), maximumSteps);
    TiffDirectory fields;
    fields.depth = 1;  // as the standard has it
    for (std::uint64_t i = 0; i < count; ++i) {
        const Field field(reader, directory + 8 + i * Field::size);
        if (!field.isThere()) break;
        fields.take(field.tag(), field.number());
        constexpr std::uint64_t colorProfile = 0x8773;
        if (field.tag() != colorProfile) continue;
        header.colorProfile = profileAt(input, field.offset(), field.count());
    }
    fields.describeImage(header);
    fields.describeResolution(header);
    return header;
}

}  // namespace marquell::helpers
