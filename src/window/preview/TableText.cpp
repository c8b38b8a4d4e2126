// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TableText.h"

#include "metadata/DataCoordinator.h"
#include "metadata/RunAhead.h"
#include "metadata/TagManager.h"
#include "pipeline/NodePrefetch.h"
#include "platform/Disposal.h"

namespace marquell::window {
namespace {

using metadata::DisplayStringWrapper;
using pipeline::Column;
using pipeline::Node;
using platform::TextBuffer;

/// The values of nodes that are gone through from first to last.
class ShownValues {
public:
    ShownValues(const TableText& demand, const TableText::Nodes& nodes)
        : demand_(demand),
          nodes_(nodes),
          columns_(demand.columnIds.begin(), demand.columnIds.end()),
          ahead_(nodes, columns_, demand.shouldStop) {}

    // False if it was stopped.

    /// To be called before the node's values are read.
    bool goTo(std::size_t node) {
        if (demand_.shouldStop()) return false;
        pipeline::prefetchAhead(nodes_, node);
        node_ = nodes_[node].get();
        return ahead_.waitFor(node);
    }

    bool append(TextBuffer& text, std::size_t column) const {
        for (;;) {
            const DisplayStringWrapper answer = node_->getDisplayString(columns_[column].id);
            switch (answer.kind) {
                case DisplayStringWrapper::Kind::string:
                    text.append(answer.text);
                    return true;
                case DisplayStringWrapper::Kind::noValue:
                    text.append(demand_.noValue);
                    return true;
                case DisplayStringWrapper::Kind::notRetrievedYet:
                    break;  // another thread is at it, or the values were cleared just now
            }
            metadata::DataCoordinator::shared().retrieveDataSynchronously(
                *node_, *columns_[column].source, demand_.shouldStop);
            if (demand_.shouldStop()) return false;
        }
    }

private:
    const TableText& demand_;
    const TableText::Nodes& nodes_;
    const std::vector<Column> columns_;
    metadata::RunAhead ahead_;
    Node* node_ = nullptr;
};

}  // namespace

TableText::Text TableText::ofNodes(const Nodes& nodes) const {
    auto text = platform::makeDisposedOnWorker<TextBuffer>();
    ShownValues values(*this, nodes);
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        if (node > 0) text->append('\n');
        if (!values.goTo(node)) return nullptr;
        for (std::size_t column = 0; column < columnIds.size(); ++column) {
            if (column > 0) text->append('\t');
            if (!values.append(*text, column)) return nullptr;
        }
    }
    return text;
}

TableText::Text TableText::ofColumns(const std::shared_ptr<Node>& node, bool withTitles) const {
    auto text = platform::makeDisposedOnWorker<TextBuffer>();
    const Nodes nodes = {node};
    ShownValues values(*this, nodes);
    if (!values.goTo(0)) return nullptr;
    for (std::size_t column = 0; column < columnIds.size(); ++column) {
        if (column > 0) text->append('\n');
        if (withTitles) {
            text->append(metadata::TagManager::shared().displayName(columnIds[column]));
            text->append('\t');
        }
        if (!values.append(*text, column)) return nullptr;
    }
    return text;
}

}  // namespace marquell::window
