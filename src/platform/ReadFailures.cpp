// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ReadFailures.h"

#include <utility>

namespace marquell::platform {
namespace {

ReadFailureListener& listenerSlot() {
    static ReadFailureListener slot;
    return slot;
}

}  // namespace

void setReadFailureListener(ReadFailureListener listener) { listenerSlot() = std::move(listener); }

void reportReadFailure(std::string_view path, int error) {
    if (const ReadFailureListener& listener = listenerSlot()) listener(path, error);
}

}  // namespace marquell::platform
