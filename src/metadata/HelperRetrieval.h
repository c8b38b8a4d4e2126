// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "metadata/Extraction.h"
#include "pipeline/KeySort.h"
#include "pipeline/Node.h"
#include "platform/HelperPool.h"

namespace marquell::metadata {

/// Gives the processes to read with, which must outlive whoever has this. Asked when there is a
/// file to read: even to look for their program would be too early.
using Readers = std::function<platform::HelperPool&()>;

/// How the retrieval of values by other processes goes; `properties` are what a reader found.
struct HelperRetrieval {
    /// What is to be read of a node; nothing if no reader is for it.
    std::function<std::optional<platform::HelperJob>(const pipeline::Node&)> jobFor;
    std::function<void(const pipeline::Node&, const platform::PropertyDictionary& properties)>
        store;
};

/// Has the readers read the nodes that there is a job for, and finishes the others at once. What
/// can't be read is also reported as a read failure; content that no reader knows, or a broken one,
/// is not.
void retrieveByHelpers(const HelperRetrieval& retrieval, const Readers& readers,
                       std::span<pipeline::Node* const> nodes, const NodeFinished& finished,
                       const pipeline::StopCheck& shouldStop);

/// Reports what kept a file from being read, if anything did.
void reportOutcome(const platform::HelperPool& readers, const platform::HelperJob& job,
                   platform::HelperOutcome outcome);

/// The extension of a node's name in lower case, without the dot.
std::string lowerCaseExtension(const pipeline::Node& node);

}  // namespace marquell::metadata
