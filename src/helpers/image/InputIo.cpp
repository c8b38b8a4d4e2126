// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/InputIo.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace marquell::helpers {

int InputIo::open() {
    offset_ = 0;
    isAtEnd_ = false;
    return 0;
}

int InputIo::close() { return 0; }

long InputIo::write(const Exiv2::byte*, long) { return 0; }

long InputIo::write(BasicIo&) { return 0; }

int InputIo::putb(Exiv2::byte) { return EOF; }

void InputIo::transfer(BasicIo&) { throw Exiv2::Error(Exiv2::kerErrorMessage, "not writable"); }

Exiv2::DataBuf InputIo::read(long length) {
    if (length < 0) throw Exiv2::Error(Exiv2::kerInvalidMalloc);
    // What a file claims to hold costs no memory that it doesn't.
    const std::uint64_t left = offset_ < input_.size() ? input_.size() - offset_ : 0;
    Exiv2::DataBuf buffer(
        static_cast<long>(std::min<std::uint64_t>(left, static_cast<std::uint64_t>(length))));
    buffer.size_ = buffer.size_ == 0 ? 0 : read(buffer.pData_, buffer.size_);
    if (buffer.size_ < length) isAtEnd_ = true;
    return buffer;
}

long InputIo::read(Exiv2::byte* buffer, long length) {
    if (length <= 0) return 0;
    const std::size_t count =
        input_.readAt(offset_, {reinterpret_cast<char*>(buffer), static_cast<std::size_t>(length)});
    offset_ += count;
    if (count < static_cast<std::size_t>(length)) isAtEnd_ = true;
    return static_cast<long>(count);
}

int InputIo::getb() {
    // Parsers search for marks like this, and would go through a hole of terabytes.
    constexpr std::size_t most = std::size_t{4} * 1024 * 1024;
    if (++singleBytes_ > most) {
        isAtEnd_ = true;
        return EOF;
    }
    Exiv2::byte byte = 0;
    return read(&byte, 1) == 1 ? byte : EOF;
}

int InputIo::seek(int64_t offset, Position from) {
    const auto size = static_cast<std::int64_t>(input_.size());
    std::int64_t base = 0;
    if (from == cur) base = static_cast<std::int64_t>(offset_);
    if (from == end) base = size;
    std::int64_t target = 0;
    if (__builtin_add_overflow(base, offset, &target) || target < 0) return 1;
    // Like a stream in memory: beyond the end is an error that leaves the place at the end.
    isAtEnd_ = target > size;
    offset_ = static_cast<std::uint64_t>(std::min(target, size));
    return isAtEnd_ ? 1 : 0;
}

Exiv2::byte* InputIo::mmap(bool isWriteable) {
    if (isWriteable) throw Exiv2::Error(Exiv2::kerErrorMessage, "not writable");
    const std::string_view bytes = input_.allBytes();
    // A parser would take the size without asking where the bytes are.
    if (bytes.empty() && input_.size() > 0) throw Exiv2::Error(Exiv2::kerInputDataReadFailed);
    // It only reads; its interface comes from a time before const.
    return const_cast<Exiv2::byte*>(reinterpret_cast<const Exiv2::byte*>(bytes.data()));
}

int InputIo::munmap() { return 0; }

}  // namespace marquell::helpers
