// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "metadata/DataIsReadyObserver.h"
#include "metadata/DisplayStringWrapper.h"
#include "metadata/MetadataSource.h"
#include "metadata/MetadataStorage.h"
#include "metadata/WrappedMetaDataValue.h"
#include "pipeline/Column.h"
#include "pipeline/NodeArena.h"
#include "pipeline/NodeObservers.h"
#include "platform/Date.h"

namespace marquell::pipeline {

enum class NodeComparisonResult { bComesFirst, aComesFirst, same };

/// Whether anybody still wants a source's values for a node.
enum class ObserverInterest {
    none,     ///< nobody registered since the source last finished or was asked for anew
    present,  ///< an observer waits
    lost,     ///< there were observers, and all have gone
};

/// One item of a list: a file or folder on disk. Made by a NodeArena, always held by shared_ptr,
/// shared between lists of different runs. The path never changes and may be read from any thread.
///
/// Names and paths are bytes as the file system gives them; the views point into the node. Where
/// they become text, go through text(), which costs nothing for the usual valid UTF-8.
class Node {
public:
    virtual ~Node();
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    /// Another reference to this node.
    std::shared_ptr<Node> shared();

    std::string_view name() const { return absolutePath().substr(pathLength_ - nameLength_); }
    std::string_view absolutePath() const { return {path_, pathLength_}; }
    /// The name without its extension.
    std::string_view fileName() const;
    std::string_view fileNameUpToFirstPeriod() const;
    /// Name of the containing folder; empty for the root, "/" for what lies directly in it.
    std::string_view parent() const;
    std::string_view absoluteParentPath() const;
    std::string_view relativePath() const;
    std::optional<std::string_view> fileExtension() const;

    /// The file's tags as one text; absent when it has none. Read from disk once.
    const std::string* tags() const;
    bool areTagsRead() const;

    /// Whether all of the path is valid UTF-8, so that its views are texts as they stand.
    bool isText() const { return isText_; }
    /// `bytes`, one of this node's views, as valid UTF-8.
    std::string text(std::string_view bytes) const;

    /// Order of two nodes under a sort mode, 0 to 15; any other gives aComesFirst.
    static NodeComparisonResult compare(Node& a, Node& b, int mode);
    static NodeComparisonResult caseInsensitiveStringCompare(std::string_view a,
                                                             std::string_view b);

    /// The store's key of this node, good as long as the node. Hashed at the first call.
    metadata::PathKey pathKey() const;
    /// Asks memory for what a look-up of this node's metadata will want soon.
    void prefetchMetadata() const { recordPlace_.prefetch(); }

    /// A value as cells show it; starts the extraction when it is not known and doesn't wait.
    metadata::DisplayStringWrapper getDisplayString(std::string_view forMetaDataKey);

    /// The value; runs the extraction on the caller's thread when it is not known.
    metadata::WrappedMetaDataValue getWrappedValueSync(const Column& column);
    metadata::WrappedMetaDataValue getWrappedValueSync(std::string_view forMetaDataKey);
    /// platform::distantPast and 0 when there is no such value of that type. These two know no keys
    /// of the node itself.
    platform::Date getDateValueSync(const Column& column);
    std::int64_t getIntValueSync(const Column& column);

    /// The observer is told once, when the key's source has finished, also when that happened
    /// before the call. A key without a source is ignored.
    void addDataObserver(const std::shared_ptr<metadata::DataIsReadyObserver>& observer,
                         std::string_view forMetaDataKey);
    void remove(const metadata::DataIsReadyObserver& observer, metadata::MetadataSource forSource);
    /// Has the source's observers called on the main thread. Any thread.
    void signalDataIsNowReady(metadata::MetadataSource forSource);
    ObserverInterest interest(metadata::MetadataSource forSource) const;
    /// Turns a lost interest into none: whoever asks for the source anew may register only later.
    void forgetLostObservers(metadata::MetadataSource forSource);

protected:
    /// For NodeBlock, which keeps the bytes of the path: the other two are parts of it.
    Node(NodeBlock& block, std::size_t nameLength, std::string_view absolutePath,
         std::size_t relativePathLength);

private:
    std::optional<metadata::WrappedMetaDataValue> ownValue(const Column& column) const;
    metadata::WrappedMetaDataValue extractedValueSync(const Column& column);
    void tellObservers(metadata::MetadataSource source);
    void dropObserversIfIdle();

    NodeBlock& block_;
    const char* path_;
    std::uint32_t pathLength_;
    std::uint32_t nameLength_;
    std::uint32_t relativePathLength_;
    bool isText_;
    mutable bool tagsAreRead_ = false;  // guarded by the node's stripe of the tag locks
    mutable std::unique_ptr<const std::string> tags_;  // likewise
    mutable metadata::RecordPlace recordPlace_;
    mutable std::atomic<std::size_t> pathHash_ = 0;  ///< 0: not known yet
    std::unique_ptr<NodeObservers>
        observers_;  // guarded by the node's stripe of the observer locks
};

class FileNode final : public Node {
    friend class NodeBlock;
    using Node::Node;
};

class FolderNode final : public Node {
    friend class NodeBlock;
    using Node::Node;
};

/// Stands for an item that is not on disk. The scanner makes none.
class GhostNode final : public Node {
    friend class NodeBlock;
    using Node::Node;
};

}  // namespace marquell::pipeline
