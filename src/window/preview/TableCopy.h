// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "pipeline/FlatFileList.h"
#include "pipeline/Node.h"
#include "platform/OperationQueue.h"
#include "shell/QtPasteboard.h"
#include "toolkit/tables/CellTable.h"
#include "window/preview/TableText.h"

namespace marquell::window {

/// Puts rows on the clipboard as tab-separated text, as the cells show them. Values that are still
/// to come are extracted first, on a thread of its own; the clipboard stays as it is until then,
/// and a newer copy, of whichever table, takes the place of one under way. Main thread only.
class TableCopy {
public:
    TableCopy();
    /// Ends a copy that is under way.
    ~TableCopy();
    TableCopy(const TableCopy&) = delete;
    TableCopy& operator=(const TableCopy&) = delete;

    /// A line for each of the list's rows in `rows`.
    void copyRows(std::shared_ptr<const pipeline::FlatFileList> list,
                  std::vector<toolkit::RowRange> rows, std::vector<std::string> columnIds);

    /// A line for each column of one node: the value, with the column's title before it if wanted.
    void copyValues(std::shared_ptr<pipeline::Node> node, std::vector<std::string> columnIds,
                    bool withTitles);

private:
    using Compose = std::function<TableText::Text(const TableText& demand)>;
    class Operation;

    void start(std::vector<std::string> columnIds, Compose compose);
    void finish(const TableText::Text& text, std::uint64_t number);

    shell::QtPasteboard pasteboard_;
    QObject receiver_;  // of what the thread tells, so the thread has to end before it
    platform::OperationQueue queue_{"table copy"};
};

}  // namespace marquell::window
