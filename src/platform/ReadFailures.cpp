// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ReadFailures.h"

#include <utility>

namespace marquell::platform {
namespace {

ReadFailureListener& listenerSlot() {
    // Never destroyed: threads may still report while the process ends.
    static auto* const slot = new ReadFailureListener;
    return *slot;
}

}  // namespace

void setReadFailureListener(ReadFailureListener listener) { listenerSlot() = std::move(listener); }

void reportReadFailure(std::string_view path, int error) {
    if (const ReadFailureListener& listener = listenerSlot()) listener(path, error);
}

}  // namespace marquell::platform
