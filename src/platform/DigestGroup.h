// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Digests.h"

namespace marquell::platform {

/// Texts of digests, by the algorithms' numbers; absent are those that were not wanted or are not
/// to be had.
using DigestTexts = std::array<std::optional<std::string>, digestCount>;

/// Several digests of the same bytes. All groups of the process together keep at most workerCount()
/// threads busy, unless more than that call: while there are fewer, they help with large pieces.
/// One thread at a time for each group.
class DigestGroup {
public:
    explicit DigestGroup(DigestSet wanted);

    /// Returns when all digests have taken the bytes.
    void update(std::string_view bytes);

    /// The digests of all bytes so far, and the end of this object's use.
    DigestTexts finish();

private:
    struct Member {
        DigestAlgorithm algorithm;
        Digest digest;
    };
    std::vector<Member> members_;  // the dearest first
};

}  // namespace marquell::platform
