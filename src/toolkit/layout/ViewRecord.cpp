// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/ViewRecord.h"

#include <unordered_map>

namespace marquell::toolkit {
namespace {

/// Never destroyed: views may go later than any static object.
std::unordered_map<const QObject*, ViewRecord>& records() {
    static auto& all = *new std::unordered_map<const QObject*, ViewRecord>;
    return all;
}

}  // namespace

ViewRecord& recordOf(const QWidget* view) {
    const auto [found, isNew] = records().try_emplace(view);
    if (isNew) {
        QObject::connect(view, &QObject::destroyed,
                         [](const QObject* gone) { records().erase(gone); });
    }
    return found->second;
}

ViewRecord* existingRecordOf(const QWidget* view) {
    const auto found = records().find(view);
    return found == records().end() ? nullptr : &found->second;
}

}  // namespace marquell::toolkit
