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
#include "pipeline/NodeObservers.h"
#include "platform/Date.h"

namespace marquell::pipeline {

enum class NodeComparisonResult { bComesFirst, aComesFirst, same };

/// Whether anybody still wants a source's values for a node.
enum class ObserverInterest {
    none,     ///< nobody registered since the source last finished
    present,  ///< an observer waits
    lost,     ///< there were observers, and all have gone
};

/// One item of a list: a file or folder on disk. Made by the scanner, always held by shared_ptr,
/// shared between lists of different runs. The path never changes and may be read from any thread.
///
/// Names and paths are bytes as the file system gives them; the views point into the node. Where
/// they become text, go through text(), which costs nothing for the usual valid UTF-8.
class Node : public std::enable_shared_from_this<Node> {
public:
    /// `name` is the last component of `absolutePath`, and `relativePath` the components before it
    /// that lead from the source to the containing folder: empty for a source itself and for what
    /// lies directly in it. The node keeps the one path and where the other two stand in it.
    Node(std::string_view name, std::string_view absolutePath, std::string_view relativePath);
    virtual ~Node();
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    std::string_view name() const { return view(name_); }
    std::string_view absolutePath() const { return {bytes_.get(), pathLength_}; }
    /// The name without its extension.
    std::string_view fileName() const;
    std::string_view fileNameUpToFirstPeriod() const;
    /// Name of the containing folder; empty for the root, "/" for what lies directly in it.
    std::string_view parent() const;
    std::string_view absoluteParentPath() const;
    std::string_view relativePath() const { return view(relativePath_); }
    std::optional<std::string_view> fileExtension() const;

    /// The file's tags as one text; absent when it has none. Read from disk once.
    const std::string* tags() const;

    /// Whether all of the path is valid UTF-8, so that its views are texts as they stand.
    bool isText() const { return isText_; }
    /// `bytes`, one of this node's views, as valid UTF-8.
    std::string text(std::string_view bytes) const;

    /// Name and path with numbers padded to sort by value. Made anew at each call: a sort makes the
    /// keys it needs once, and nobody else wants them.
    std::string smartName() const;
    std::string smartAbsolutePath() const;

    /// Order of two nodes under a sort mode, 0 to 15; any other gives aComesFirst.
    static NodeComparisonResult compare(Node& a, Node& b, int mode);
    static NodeComparisonResult caseInsensitiveStringCompare(std::string_view a,
                                                             std::string_view b);

    /// The store's key of this node. Hashed at the first call.
    metadata::PathKey pathKey() const;

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

private:
    struct Range {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
    };

    static Range rangeBefore(std::size_t end, std::string_view part);
    std::string_view view(Range range) const { return {bytes_.get() + range.start, range.length}; }
    std::optional<metadata::WrappedMetaDataValue> ownValue(const Column& column) const;
    metadata::WrappedMetaDataValue extractedValueSync(const Column& column);
    void tellObservers(metadata::MetadataSource source);

    std::unique_ptr<char[]> bytes_;
    std::uint32_t pathLength_;
    Range name_;
    Range relativePath_;
    bool isText_;
    mutable bool tagsAreRead_ = false;  // guarded by the node's stripe of the tag locks
    mutable std::unique_ptr<const std::string> tags_;  // likewise
    mutable std::atomic<std::size_t> pathHash_ = 0;    ///< 0: not known yet
    std::unique_ptr<NodeObservers>
        observers_;  // guarded by the node's stripe of the observer locks
};

class FileNode final : public Node {
public:
    using Node::Node;
};

class FolderNode final : public Node {
public:
    using Node::Node;
};

}  // namespace marquell::pipeline
