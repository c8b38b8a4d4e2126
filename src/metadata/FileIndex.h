// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "metadata/HelperRetrieval.h"
#include "pipeline/KeySort.h"
#include "pipeline/Node.h"
#include "platform/Date.h"
#include "platform/IndexAttributes.h"

namespace marquell::metadata {

using IndexValue = std::variant<double, std::string, std::vector<std::string>, std::vector<double>,
                                platform::Date, std::vector<platform::Date>>;

/// What is known of one file: what cannot be known is absent.
using IndexItem = std::map<platform::IndexAttribute, IndexValue>;

/// Looks up the attributes that files of all types have in common. Nothing is kept of them: each is
/// read from the file system and from the file itself. Any thread, several at a time.
class FileIndex {
public:
    /// How far a look goes. Each takes in those before it and costs many times as much.
    enum class Depth { entry, type, content };
    /// The one that an attribute takes.
    static Depth depthOf(platform::IndexAttribute attribute);

    FileIndex(Readers light, Readers heavy);

    /// Hands out an item for each node that there is a file of; links are followed. When
    /// `shouldStop` ends it early, some are missing. What can't be read is reported as a read
    /// failure. Calls `finished` for each node behind its item, if any.
    using Receiver = std::function<void(const pipeline::Node& node, const IndexItem& item)>;
    void lookUp(std::span<pipeline::Node* const> nodes, Depth depth, const Receiver& receive,
                const NodeFinished& finished, const pipeline::StopCheck& shouldStop) const;

private:
    class Batch;

    const Readers light_;
    const Readers heavy_;
};

}  // namespace marquell::metadata
