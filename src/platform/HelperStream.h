// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileDescriptor.h"
#include "platform/HelperProtocol.h"

namespace marquell::platform {

/// The program's end of the socket to a helper: requests out, replies in, nothing waits. What comes
/// in may be anything; only the reply that is due is let through. One thread at a time.
class HelperStream {
public:
    /// A socket that does not block, with the helper's `ready` still to come.
    explicit HelperStream(FileDescriptor socket);

    enum class Sending {
        sent,
        full,     ///< not before the helper has read more
        refused,  ///< not now: the system is short of something
        closed,
    };
    /// Sends a request with its descriptor, under the next id.
    Sending send(HelperRequest request, int descriptor);

    /// Takes in some of what has arrived, if anything. False once the helper has closed its end.
    bool receive();

    enum class Taking { reply, incomplete, nonsense };
    /// Hands out the next reply of what was received: `ready` first, then one for each request in
    /// their order. The content is good until the next receive().
    Taking take(HelperReply& reply, std::string_view& content);

    /// Whether all requests were answered and nothing was received beyond.
    bool isSettled() const { return answered_ == sent_ && received_.size() == taken_; }

    /// For poll().
    int descriptor() const { return socket_.get(); }

private:
    bool isDue(const HelperReply& reply) const;

    FileDescriptor socket_;
    std::vector<char> block_;  // filled by one system call
    std::string received_;
    std::size_t taken_ = 0;  // of received_
    bool isReady_ = false;
    std::uint64_t sent_ = 0;  // the last id
    std::uint64_t answered_ = 0;
};

}  // namespace marquell::platform
