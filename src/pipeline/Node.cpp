// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/Node.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <vector>

#include "pipeline/SortKeys.h"
#include "pipeline/StripedLocks.h"
#include "pipeline/TextHelpers.h"
#include "platform/FileTags.h"
#include "platform/Path.h"
#include "platform/Utf8.h"

namespace marquell::pipeline {
namespace {

StripedLocks& tagLocks() {
    static StripedLocks locks;
    return locks;
}

}  // namespace

Node::Node(NodeBlock& block, std::size_t nameLength, std::string_view absolutePath,
           std::size_t relativePathLength)
    : block_(block),
      path_(absolutePath.data()),
      pathLength_(static_cast<std::uint32_t>(absolutePath.size())),
      nameLength_(static_cast<std::uint32_t>(nameLength)),
      relativePathLength_(static_cast<std::uint32_t>(relativePathLength)),
      isText_(platform::isValidUtf8(absolutePath)) {}

Node::~Node() = default;

std::shared_ptr<Node> Node::shared() { return {block_.shared_from_this(), this}; }

std::string_view Node::relativePath() const {
    if (relativePathLength_ == 0) return {};
    const std::size_t end = pathLength_ - nameLength_ - 1;
    return absolutePath().substr(end - relativePathLength_, relativePathLength_);
}

std::string_view Node::fileName() const { return platform::splitExtension(name()).stem; }

std::string_view Node::fileNameUpToFirstPeriod() const {
    return name().substr(0, name().find('.'));
}

std::string_view Node::parent() const {
    if (absolutePath() == "/") return {};
    return platform::lastPathComponent(absoluteParentPath());
}

std::string_view Node::absoluteParentPath() const {
    return platform::deletingLastPathComponent(absolutePath());
}

std::optional<std::string_view> Node::fileExtension() const {
    const std::string_view extension = platform::splitExtension(name()).extension;
    return extension.empty() ? std::nullopt : std::optional(extension);
}

const std::string* Node::tags() const {
    const std::lock_guard lock(tagLocks().of(this));
    if (!tagsAreRead_) {
        std::vector<std::string> names = platform::fileTags(std::string(absolutePath()));
        for (std::string& tag : names) tag = platform::displayText(tag);
        if (!names.empty()) tags_ = std::make_unique<std::string>(asCommaSeparatedString(names));
        tagsAreRead_ = true;
    }
    return tags_.get();
}

bool Node::areTagsRead() const {
    const std::lock_guard lock(tagLocks().of(this));
    return tagsAreRead_;
}

std::string Node::text(std::string_view bytes) const {
    return isText_ ? std::string(bytes) : platform::displayText(bytes);
}

NodeComparisonResult Node::compare(Node& a, Node& b, int mode) {
    const SortKeyMaker maker(mode);
    if (!maker.isKnown()) return NodeComparisonResult::aComesFirst;
    const int order = maker.key(a).compare(maker.key(b));
    if (order == 0) return NodeComparisonResult::same;
    return (order < 0) != maker.isDescending() ? NodeComparisonResult::aComesFirst
                                               : NodeComparisonResult::bComesFirst;
}

NodeComparisonResult Node::caseInsensitiveStringCompare(std::string_view a, std::string_view b) {
    const int order = textSortKey(a).compare(textSortKey(b));
    if (order == 0) return NodeComparisonResult::same;
    return order < 0 ? NodeComparisonResult::aComesFirst : NodeComparisonResult::bComesFirst;
}

metadata::PathKey Node::pathKey() const {
    std::size_t hash = pathHash_.load(std::memory_order_relaxed);
    if (hash == 0) {
        hash = metadata::PathKey(absolutePath()).hash;
        pathHash_.store(hash, std::memory_order_relaxed);
    }
    return {absolutePath(), hash, recordPlace_};
}

}  // namespace marquell::pipeline
