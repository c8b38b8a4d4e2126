// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

class QMimeData;
class QObject;

namespace marquell::lists {

/// Whether what is dragged are files of another program. `source` is null for what comes from one.
bool areFilesFromOutside(const QMimeData& data, const QObject* source);

/// The paths of dropped files, with the exact bytes of their names.
std::vector<std::string> droppedPaths(const QMimeData& data);

}  // namespace marquell::lists
