// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pipeline/Node.h"

namespace marquell::metadata {

/// The cheapest source: one look at a file's entry gives its size and dates.
struct GetBasicInformationOperation {
    /// Stores what the file system says of the node's entry itself (of a link, not of its target;
    /// of a folder, not of its contents). Stores nothing if it can't be examined, which is also
    /// reported as a read failure. Any thread.
    static void retrieveInformation(const pipeline::Node& node);
};

}  // namespace marquell::metadata
