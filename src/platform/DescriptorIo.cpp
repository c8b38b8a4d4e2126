// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DescriptorIo.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace marquell::platform {
namespace {

/// After a transfer that failed: whether it is worth trying again, having waited if need be.
bool mayTryAgain(int descriptor, short direction) {
    if (errno == EINTR) return true;
    if (errno != EAGAIN) return false;
    pollfd ready = {descriptor, direction, 0};
    ::poll(&ready, 1, -1);
    return true;
}

}  // namespace

int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (!mayTryAgain(descriptor, POLLOUT)) {
            return errno;
        }
    }
    return 0;
}

std::optional<std::string> readAll(int descriptor, int& error) {
    std::string bytes;
    std::array<char, 65536> block{};
    for (;;) {
        const ssize_t length = ::read(descriptor, block.data(), block.size());
        if (length == 0) return bytes;
        if (length > 0) {
            bytes.append(block.data(), static_cast<std::size_t>(length));
        } else if (!mayTryAgain(descriptor, POLLIN)) {
            error = errno;
            return std::nullopt;
        }
    }
}

}  // namespace marquell::platform
