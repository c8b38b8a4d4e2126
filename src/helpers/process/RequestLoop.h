// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/HelperProtocol.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Reads the requested file; the descriptor stays the caller's. Absent: nothing to say. May throw.
using RequestReader = std::function<std::optional<platform::PropertyDictionary>(
    const platform::HelperRequest& request, int descriptor)>;

/// Tells the program that this helper is ready, under these protections, and answers its requests,
/// one after another, until it closes the socket. Returns false if the program says anything but
/// requests, or is not there.
bool answerRequests(int socket, std::uint32_t protections, const RequestReader& read);

}  // namespace marquell::helpers
