// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/SourceListData.h"

#include <string_view>
#include <unordered_set>
#include <utility>

#include "platform/Localization.h"
#include "platform/Path.h"

namespace marquell::lists {
namespace {

constexpr const char* kindOfText = "alert";

Alert refusalAlert() {
    const auto text = [](std::string_view english) {
        return platform::localized(english, kindOfText);
    };
    return {text("Some files could not be added."),
            text("You cannot add files that are located in folders that are already in the list. "
                 "This would compromise the \"subfolders and their contents\" feature."),
            text("OK")};
}

/// Whether the path, an absolute one, or a folder above it is among `existing`.
bool isCovered(std::string_view path, const std::unordered_set<std::string_view>& existing) {
    if (existing.empty()) return false;
    while (!existing.contains(path)) {
        if (path == "/") return false;
        path = platform::deletingLastPathComponent(path);
    }
    return true;
}

}  // namespace

SourceListData::SourceListData(std::shared_ptr<platform::UserDefaults> defaults)
    : StoredListData("Sources", "marquell_sources", std::move(defaults)) {
    this->defaults().keepInMemory(storageKey);
}

void SourceListData::add(const std::vector<std::string>& paths, bool interactive) {
    const platform::TextList before = value();
    const std::unordered_set<std::string_view> existing(before.begin(), before.end());
    std::vector<std::string> list = before.texts();
    bool anyRefused = false;
    for (const std::string& path : paths) {
        // A dropped folder may come with a slash at its end, which the list's paths don't have.
        std::string clean = platform::absolutePath(path, "/");
        if (clean.empty() || isCovered(clean, existing)) {
            anyRefused = true;
        } else {
            list.push_back(std::move(clean));
        }
    }
    store(std::move(list), before);
    if (anyRefused && interactive && showAlert) showAlert(refusalAlert());
}

}  // namespace marquell::lists
