// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/Input.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace marquell::helpers {

std::size_t Input::readAt(std::uint64_t offset, std::span<char> buffer) {
    if (offset >= size_) return 0;
    const auto length =
        static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), size_ - offset));
    if (length > cache_.size()) return fetch(offset, buffer.first(length));
    const bool isCached = offset >= cacheOffset_ && offset + length <= cacheOffset_ + cacheLength_;
    if (!isCached) {
        cacheOffset_ = offset;
        cacheLength_ = fetch(offset, cache_);
    }
    const auto begin = static_cast<std::size_t>(offset - cacheOffset_);
    const std::size_t available = std::min(length, cacheLength_ - begin);
    std::memcpy(buffer.data(), cache_.data() + begin, available);
    return available;
}

std::string Input::bytesAt(std::uint64_t offset, std::size_t length) {
    if (offset >= size_) return {};
    std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(length, size_ - offset)),
                      '\0');
    bytes.resize(readAt(offset, bytes));
    return bytes;
}

FileInput::~FileInput() {
    if (mapped_ != nullptr) ::munmap(mapped_, static_cast<std::size_t>(size()));
}

std::string_view FileInput::allBytes() {
    const auto length = static_cast<std::size_t>(size());
    if (mapped_ == nullptr && length > 0) {
        void* const mapped = ::mmap(nullptr, length, PROT_READ, MAP_PRIVATE, descriptor_, 0);
        if (mapped == MAP_FAILED) return {};
        mapped_ = mapped;
    }
    return {static_cast<const char*>(mapped_), mapped_ == nullptr ? 0 : length};
}

std::size_t FileInput::fetch(std::uint64_t offset, std::span<char> buffer) {
    std::size_t done = 0;
    while (done < buffer.size()) {
        const ssize_t count = ::pread(descriptor_, buffer.data() + done, buffer.size() - done,
                                      static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::size_t MemoryInput::fetch(std::uint64_t offset, std::span<char> buffer) {
    const auto begin = static_cast<std::size_t>(offset);
    const std::size_t length = std::min(buffer.size(), bytes_.size() - begin);
    std::memcpy(buffer.data(), bytes_.data() + begin, length);
    return length;
}

}  // namespace marquell::helpers
