// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/PdfBytes.h"

#include <sys/mman.h>
#include <sys/time.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>

namespace marquell::helpers {
namespace {

/// Smaller files are read as a whole: of a mapped one that gets shorter a touch is a fault.
constexpr std::uint64_t largestCopy = std::uint64_t{64} << 20;

constexpr itimerval processorTime = {{0, 0}, {1, 0}};

/// What the signal is for; null in between.
std::atomic<PdfBytes*> current;
static_assert(decltype(current)::is_always_lock_free);

std::span<const char> copied(Input& input) {
    const auto length = static_cast<std::size_t>(input.size());
    void* const memory =
        ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return {};
    const std::span bytes(static_cast<char*>(memory), length);
    input.readAt(0, bytes);
    return bytes;
}

}  // namespace

PdfBytes::PdfBytes(Input& input) {
    if (input.size() <= largestCopy) {
        bytes_ = copy_ = copied(input);
    } else {
        bytes_ = input.allBytes();
    }
    current = this;
    struct sigaction action {};
    action.sa_handler = blank;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGPROF, &action, nullptr);
    ::setitimer(ITIMER_PROF, &processorTime, nullptr);
}

PdfBytes::~PdfBytes() {
    constexpr itimerval never{};
    ::setitimer(ITIMER_PROF, &never, nullptr);
    current = nullptr;
    if (!copy_.empty()) ::munmap(const_cast<char*>(copy_.data()), copy_.size());
}

void PdfBytes::blank(int /*signal*/) {
    PdfBytes* const document = current;
    if (document == nullptr) return;
    const int error = errno;
    // In the place of the pages, which a mapped file does not let write.
    const void* const zeros =
        ::mmap(const_cast<char*>(document->bytes_.data()), document->bytes_.size(), PROT_READ,
               MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0);
    document->isBlank_ = zeros != MAP_FAILED ? 1 : 0;
    errno = error;
}

}  // namespace marquell::helpers
