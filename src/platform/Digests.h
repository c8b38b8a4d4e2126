// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace marquell::platform {

enum class DigestAlgorithm : std::uint8_t { md5, sha1, sha256, sha384, sha512 };

/// The algorithms' names, by their number.
inline constexpr std::array<std::string_view, 5> digestNames{"md5", "sha1", "sha256", "sha384",
                                                             "sha512"};
inline constexpr std::size_t digestCount = digestNames.size();

/// A bit for each algorithm, by its number.
using DigestSet = std::bitset<digestCount>;

/// The digest of bytes that come in pieces. One thread at a time.
class Digest {
public:
    explicit Digest(DigestAlgorithm algorithm);

    void update(std::string_view bytes);

    /// The digest of all bytes so far in lower-case hexadecimal, and the end of this object's use.
    /// Absent if the system's cryptography does not offer the algorithm, as where MD5 is forbidden.
    std::optional<std::string> finish();

private:
    struct Release {
        void operator()(evp_md_ctx_st* context) const;
    };
    std::unique_ptr<evp_md_ctx_st, Release> context_;  // none once a step has failed
};

}  // namespace marquell::platform
