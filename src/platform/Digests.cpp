// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Digests.h"

#include <openssl/evp.h>

namespace marquell::platform {
namespace {

/// Null for what is not offered.
const EVP_MD* implementationOf(DigestAlgorithm algorithm) {
    // Looking one up takes longer than digesting a small file. Never freed: threads may still
    // digest while the process ends.
    static const auto implementations = [] {
        std::array<const EVP_MD*, digestCount> all{};
        for (std::size_t i = 0; i < digestCount; ++i) {
            all[i] = EVP_MD_fetch(nullptr, std::string(digestNames[i]).c_str(), nullptr);
        }
        return all;
    }();
    return implementations[static_cast<std::size_t>(algorithm)];
}

std::string lowerCaseHex(const unsigned char* bytes, std::size_t count) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(count * 2);
    for (std::size_t i = 0; i < count; ++i) {
        text += digits[bytes[i] >> 4U];
        text += digits[bytes[i] & 15U];
    }
    return text;
}

}  // namespace

void Digest::Release::operator()(evp_md_ctx_st* context) const { EVP_MD_CTX_free(context); }

Digest::Digest(DigestAlgorithm algorithm) {
    const EVP_MD* implementation = implementationOf(algorithm);
    if (implementation == nullptr) return;
    context_.reset(EVP_MD_CTX_new());
    if (!context_) return;
    if (EVP_DigestInit_ex2(context_.get(), implementation, nullptr) != 1) context_.reset();
}

void Digest::update(std::string_view bytes) {
    if (!context_) return;
    if (EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size()) != 1) context_.reset();
}

std::optional<std::string> Digest::finish() {
    if (!context_) return std::nullopt;
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned count = 0;
    if (EVP_DigestFinal_ex(context_.get(), bytes.data(), &count) != 1) return std::nullopt;
    return lowerCaseHex(bytes.data(), count);
}

}  // namespace marquell::platform
