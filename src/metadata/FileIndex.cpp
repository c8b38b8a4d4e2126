// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/FileIndex.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "metadata/IndexEntry.h"
#include "metadata/IndexTasks.h"
#include "platform/DateParser.h"

namespace marquell::metadata {
namespace {

using Attribute = platform::IndexAttribute;
using pipeline::Node;
using platform::HelperJob;
using platform::HelperOutcome;
using platform::PropertyDictionary;
using platform::PropertyValue;

constexpr std::array entryAttributes = {Attribute::kMDItemFinderComment,
                                        Attribute::kMDItemWhereFroms, Attribute::kMDItemDateAdded,
                                        Attribute::kMDItemDownloadedDate};

constexpr Attribute lastAttribute = Attribute::kMDItemDownloadedDate;

bool isDate(Attribute attribute) { return attribute >= Attribute::kMDItemContentModificationDate; }

/// Dates come as text from the readers.
std::optional<IndexValue> indexValue(Attribute attribute, const PropertyValue& value) {
    if (!isDate(attribute)) {
        return std::visit([](const auto& known) { return IndexValue(known); }, value);
    }
    const auto* text = std::get_if<std::string>(&value);
    const auto date = text != nullptr ? platform::parseIsoDate(*text) : std::nullopt;
    if (!date) return std::nullopt;
    return *date;
}

/// What the content says goes before what is known of the file.
void addContent(IndexItem& item, const PropertyDictionary& properties) {
    for (const auto& [key, value] : properties) {
        const auto attribute = static_cast<Attribute>(key);
        // A reader has no say in what only the file system knows.
        if (attribute > lastAttribute ||
            FileIndex::depthOf(attribute) != FileIndex::Depth::content) {
            continue;
        }
        if (auto known = indexValue(attribute, value)) {
            item.insert_or_assign(attribute, *std::move(known));
        }
    }
}

}  // namespace

/// The nodes of one look that wait for one of the readers.
class FileIndex::Batch {
public:
    Batch(const Readers& readers, const Receiver& receive, const NodeFinished& finished)
        : readers_(readers), receive_(receive), finished_(finished) {}

    void add(std::size_t place, const Node& node, HelperJob job, IndexItem item) {
        places_.push_back(place);
        nodes_.push_back(&node);
        jobs_.push_back(std::move(job));
        items_.push_back(std::move(item));
    }

    void read(const pipeline::StopCheck& shouldStop) {
        if (jobs_.empty()) return;
        platform::HelperPool& pool = readers_();
        pool.read(
            jobs_,
            [&](std::size_t index, HelperOutcome outcome, const PropertyDictionary& properties) {
                if (outcome == HelperOutcome::stopped) return;
                reportOutcome(pool, jobs_[index], outcome);
                addContent(items_[index], properties);
                receive_(*nodes_[index], items_[index]);
                finished_(places_[index]);
            },
            shouldStop);
    }

private:
    const Readers& readers_;
    const Receiver& receive_;
    const NodeFinished& finished_;
    // Each by job.
    std::vector<std::size_t> places_;
    std::vector<const Node*> nodes_;
    std::vector<HelperJob> jobs_;
    std::vector<IndexItem> items_;
};

FileIndex::FileIndex(Readers light, Readers heavy)
    : light_(std::move(light)), heavy_(std::move(heavy)) {}

FileIndex::Depth FileIndex::depthOf(Attribute attribute) {
    if (attribute == Attribute::kMDItemContentType) return Depth::type;
    const bool isOfEntry = std::find(entryAttributes.begin(), entryAttributes.end(), attribute) !=
                           entryAttributes.end();
    return isOfEntry ? Depth::entry : Depth::content;
}

void FileIndex::lookUp(std::span<Node* const> nodes, Depth depth, const Receiver& receive,
                       const NodeFinished& finished, const pipeline::StopCheck& shouldStop) const {
    Batch light(light_, receive, finished);
    Batch heavy(heavy_, receive, finished);
    for (std::size_t i = 0; i < nodes.size() && !shouldStop(); ++i) {
        const Node& node = *nodes[i];
        std::string path(node.absolutePath());
        auto entry = indexEntry(path, depth);
        const auto task =
            entry && depth == Depth::content ? indexTask(entry->readerType) : std::nullopt;
        if (!task) {
            if (entry) receive(node, entry->item);
            finished(i);
            continue;
        }
        Batch& batch = platform::isHeavy(*task) ? heavy : light;
        batch.add(i, node, HelperJob{std::move(path), lowerCaseExtension(node), *task},
                  std::move(entry->item));
    }
    light.read(shouldStop);
    heavy.read(shouldStop);
}

}  // namespace marquell::metadata
