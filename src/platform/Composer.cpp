// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Composer.h"

#include <algorithm>

namespace marquell::platform {
namespace {

/// All but what composing exchanges although the encoding has it.
USet* composableIn(const UConverter* encoding) {
    UErrorCode status = U_ZERO_ERROR;
    USet* set = uset_openPattern(u"[:NFC_Quick_Check=No:]", -1, &status);
    const std::unique_ptr<USet, decltype(&uset_close)> known(uset_openEmpty(), &uset_close);
    ucnv_getUnicodeSet(encoding, known.get(), UCNV_ROUNDTRIP_SET, &status);
    if (U_FAILURE(status)) return set;
    uset_retainAll(set, known.get());
    uset_complement(set);
    uset_freeze(set);
    return set;
}

UNormalizer2* openNormalizer(const USet* composable) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* all = unorm2_getNFCInstance(&status);
    return unorm2_openFiltered(all, composable, &status);
}

}  // namespace

Composer::Composer(const UConverter* encoding)
    : composable_(composableIn(encoding), &uset_close),
      normalizer_(openNormalizer(composable_.get()), &unorm2_close) {}

std::span<char16_t> Composer::compose(std::span<char16_t> units, UErrorCode& status) {
    const auto length = static_cast<std::int32_t>(units.size());
    if (U_SUCCESS(status) && normalizer_ == nullptr) status = U_MISSING_RESOURCE_ERROR;
    if (U_FAILURE(status)) return {};
    if (unorm2_spanQuickCheckYes(normalizer_.get(), units.data(), length, &status) == length) {
        return units;
    }
    // No text has more units composed than three times its own.
    composed_.resize(std::max(composed_.size(), 3 * units.size()));
    const std::int32_t made =
        unorm2_normalize(normalizer_.get(), units.data(), length, composed_.data(),
                         static_cast<std::int32_t>(composed_.size()), &status);
    if (U_FAILURE(status)) return {};
    return std::span(composed_).first(static_cast<std::size_t>(made));
}

}  // namespace marquell::platform
