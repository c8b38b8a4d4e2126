// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace marquell::helpers {

/// The most segments, chunks, boxes or items of one file that are looked at, each kind by itself.
inline constexpr std::size_t maximumSteps = 10'000;

/// An untrusted file as the readers see it: bytes at offsets. Little reads near each other cost one
/// system call together. One thread.
class Input {
public:
    virtual ~Input() = default;
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    std::uint64_t size() const { return size_; }

    /// Reads at an offset until `buffer` is full or the file ends. Returns how much was read; 0 on
    /// errors and outside the file.
    std::size_t readAt(std::uint64_t offset, std::span<char> buffer);

    /// `length` bytes at the offset, all of them or none.
    bool readExactly(std::uint64_t offset, std::span<char> buffer) {
        return readAt(offset, buffer) == buffer.size();
    }

    /// All bytes, good as long as this. A file is mapped, so that one of any size costs the pages
    /// that are looked at. Empty if that fails; touching bytes that a file has lost since is a
    /// fault that ends the process.
    virtual std::string_view allBytes() = 0;

    /// Up to `length` bytes at the offset, fewer at the end of the file. No more memory is taken
    /// than the file has bytes there.
    std::string bytesAt(std::uint64_t offset, std::size_t length);

protected:
    explicit Input(std::uint64_t size) : size_(size) {}

private:
    /// Like readAt, uncached.
    virtual std::size_t fetch(std::uint64_t offset, std::span<char> buffer) = 0;

    const std::uint64_t size_;
    std::array<char, 16384> cache_{};
    std::uint64_t cacheOffset_ = 0;
    std::size_t cacheLength_ = 0;
};

/// An open file, read with pread. The descriptor stays the caller's.
class FileInput : public Input {
public:
    FileInput(int descriptor, std::uint64_t size) : Input(size), descriptor_(descriptor) {}

    ~FileInput() override;

    std::string_view allBytes() override;

private:
    std::size_t fetch(std::uint64_t offset, std::span<char> buffer) override;

    const int descriptor_;
    void* mapped_ = nullptr;
};

/// Bytes in memory, which must live as long.
class MemoryInput : public Input {
public:
    explicit MemoryInput(std::string_view bytes) : Input(bytes.size()), bytes_(bytes) {}

    std::string_view allBytes() override { return bytes_; }

private:
    std::size_t fetch(std::uint64_t offset, std::span<char> buffer) override;

    const std::string_view bytes_;
};

}  // namespace marquell::helpers
