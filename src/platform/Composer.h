// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/ucnv.h>
#include <unicode/unorm2.h>
#include <unicode/uset.h>

#include <memory>
#include <span>
#include <string>

namespace marquell::platform {

/// Composes text (NFC) for an encoding. Left as they are: characters that composing would exchange
/// for others although the encoding has them, such as the second forms of some ideographs.
class Composer {
public:
    explicit Composer(const UConverter* encoding);

    /// Returns `units` themselves if there is nothing to compose, else what is good until the next
    /// call.
    std::span<char16_t> compose(std::span<char16_t> units, UErrorCode& status);

private:
    std::unique_ptr<USet, decltype(&uset_close)> composable_;
    std::unique_ptr<UNormalizer2, decltype(&unorm2_close)> normalizer_;
    std::u16string composed_;
};

}  // namespace marquell::platform
