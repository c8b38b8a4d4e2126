// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "pipeline/KeySort.h"
#include "pipeline/Node.h"
#include "platform/TextBuffer.h"
#include "window/Text.h"

namespace marquell::window {

/// What stands where a node has no value. Main thread only.
inline QString noValueText() { return localizedText("n/a", "table cell label"); }

/// Values as tab-separated text, each as its cell shows it, in full. No line end follows the last
/// line. Values that are not known are extracted here; any thread may do so.
struct TableText {
    using Nodes = std::vector<std::shared_ptr<pipeline::Node>>;
    using Text = std::shared_ptr<const platform::TextBuffer>;

    std::vector<std::string> columnIds;
    std::string noValue;
    pipeline::StopCheck shouldStop;

    /// A line for each node. Null if it was stopped.
    Text ofNodes(const Nodes& nodes) const;

    /// A line for each column, with the column's title before the value if wanted. Null if it was
    /// stopped.
    Text ofColumns(const std::shared_ptr<pipeline::Node>& node, bool withTitles) const;
};

}  // namespace marquell::window
