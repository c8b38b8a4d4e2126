// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/process/RequestLoop.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <exception>
#include <string>

namespace marquell::helpers {
namespace {

using platform::HelperReply;
using platform::HelperRequest;
using platform::HelperStatus;

enum class Received { request, end, nonsense };

/// The one descriptor of a message; -1 if there is none or more, which are closed then.
int descriptorOf(msghdr& message) {
    int descriptor = -1;
    int count = 0;
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr;
         part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS) continue;
        for (std::size_t at = CMSG_LEN(0); at + sizeof(int) <= part->cmsg_len; at += sizeof(int)) {
            if (descriptor >= 0) ::close(descriptor);
            std::memcpy(&descriptor, reinterpret_cast<const char*>(part) + at, sizeof(int));
            ++count;
        }
    }
    if (count == 1 && (message.msg_flags & MSG_CTRUNC) == 0) return descriptor;
    if (descriptor >= 0) ::close(descriptor);
    return -1;
}

Received receiveRequest(int socket, HelperRequest& request, int& descriptor) {
    iovec bytes = {&request, sizeof(request)};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(4 * sizeof(int))> control{};
    msghdr message{};
    message.msg_iov = &bytes;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    ssize_t length = 0;
    do {
        length = ::recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    } while (length < 0 && errno == EINTR);
    if (length == 0) return Received::end;
    if (length < 0) return Received::nonsense;
    descriptor = descriptorOf(message);
    if (descriptor < 0) return Received::nonsense;
    if (length == sizeof(request) && request.magic == platform::helperMagic) {
        return Received::request;
    }
    ::close(descriptor);
    return Received::nonsense;
}

/// Sends a reply and its content, which must be as long as the reply says.
bool sendReply(int socket, HelperReply& reply, std::string& content) {
    std::array<iovec, 2> pieces = {{{&reply, sizeof(reply)}, {content.data(), content.size()}}};
    msghdr message{};
    message.msg_iov = pieces.data();
    message.msg_iovlen = pieces.size();
    while (message.msg_iovlen > 0) {
        const ssize_t sent = ::sendmsg(socket, &message, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0) return false;
        auto rest = static_cast<std::size_t>(sent);
        while (message.msg_iovlen > 0 && rest >= message.msg_iov->iov_len) {
            rest -= message.msg_iov->iov_len;
            ++message.msg_iov;
            --message.msg_iovlen;
        }
        if (message.msg_iovlen == 0) break;
        message.msg_iov->iov_base = static_cast<char*>(message.msg_iov->iov_base) + rest;
        message.msg_iov->iov_len -= rest;
    }
    return true;
}

/// The file's properties as bytes. Absent also when its reader fails or memory runs out over it.
std::optional<std::string> contentFor(const HelperRequest& request, int descriptor,
                                      const RequestReader& read) {
    try {
        const auto properties = read(request, descriptor);
        if (properties) return platform::encodeProperties(*properties);
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): nothing to say
    }
    return std::nullopt;
}

}  // namespace

bool answerRequests(int socket, std::uint32_t protections, const RequestReader& read) {
    HelperReply ready;
    ready.status = HelperStatus::ready;
    ready.protections = protections;
    std::string none;
    if (!sendReply(socket, ready, none)) return false;
    for (;;) {
        HelperRequest request;
        int descriptor = -1;
        const Received received = receiveRequest(socket, request, descriptor);
        if (received != Received::request) return received == Received::end;
        auto content = contentFor(request, descriptor, read);
        ::close(descriptor);
        HelperReply reply;
        reply.id = request.id;
        if (content) {
            reply.status = HelperStatus::values;
            reply.length = static_cast<std::uint32_t>(content->size());
        }
        if (!sendReply(socket, reply, content ? *content : none)) return false;
    }
}

}  // namespace marquell::helpers
