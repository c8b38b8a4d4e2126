// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperStream.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace marquell::platform {
namespace {

constexpr std::size_t blockSize = 65536;

HelperStream::Sending failedSending(int error) {
    switch (error) {
        case EAGAIN:
            return HelperStream::Sending::full;
        case EINTR:
        case ENOMEM:
        case ENOBUFS:
        case ETOOMANYREFS:  // descriptors under way, of all processes of the user
            return HelperStream::Sending::refused;
        default:
            return HelperStream::Sending::closed;
    }
}

}  // namespace

HelperStream::HelperStream(FileDescriptor socket) : socket_(std::move(socket)), block_(blockSize) {}

HelperStream::Sending HelperStream::send(HelperRequest request, int descriptor) {
    request.id = sent_ + 1;
    iovec bytes = {&request, sizeof(request)};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
    msghdr message{};
    message.msg_iov = &bytes;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    cmsghdr* rights = CMSG_FIRSTHDR(&message);
    rights->cmsg_level = SOL_SOCKET;
    rights->cmsg_type = SCM_RIGHTS;
    rights->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(rights), &descriptor, sizeof(int));
    const ssize_t length = ::sendmsg(socket_.get(), &message, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (length < 0) return failedSending(errno);
    if (length != sizeof(request)) return Sending::closed;  // of no use any more
    ++sent_;
    return Sending::sent;
}

bool HelperStream::receive() {
    received_.erase(0, std::exchange(taken_, 0));
    // Descriptors that a helper might send along are dropped by the system.
    const ssize_t length = ::recv(socket_.get(), block_.data(), block_.size(), MSG_DONTWAIT);
    if (length < 0) return errno == EAGAIN || errno == EINTR;
    received_.append(block_.data(), static_cast<std::size_t>(length));
    return length > 0;
}

HelperStream::Taking HelperStream::take(HelperReply& reply, std::string_view& content) {
    const std::string_view rest = std::string_view(received_).substr(taken_);
    if (rest.size() < sizeof(reply)) return Taking::incomplete;
    std::memcpy(&reply, rest.data(), sizeof(reply));
    if (!isDue(reply)) return Taking::nonsense;
    if (rest.size() - sizeof(reply) < reply.length) return Taking::incomplete;
    content = rest.substr(sizeof(reply), reply.length);
    taken_ += sizeof(reply) + reply.length;
    if (isReady_) ++answered_;
    isReady_ = true;
    return Taking::reply;
}

bool HelperStream::isDue(const HelperReply& reply) const {
    if (reply.magic != helperMagic) return false;
    if (!isReady_) {
        constexpr std::uint32_t known = systemCallFilter | fileSystemRules;
        return reply.status == HelperStatus::ready && reply.id == 0 && reply.length == 0 &&
               (reply.protections & ~known) == 0;
    }
    if (answered_ == sent_ || reply.id != answered_ + 1 || reply.protections != 0) return false;
    if (reply.status == HelperStatus::nothing) return reply.length == 0;
    return reply.status == HelperStatus::values && reply.length <= maximumPropertyBytes;
}

}  // namespace marquell::platform
