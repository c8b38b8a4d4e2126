// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/SourceListData.h"

#include <string_view>
#include <unordered_map>
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

/// The new paths and all folders above them, and which of these are covered by the list. Built from
/// the new paths, so that adding a few to a list of very many is quick.
class Coverage {
public:
    Coverage(const std::vector<std::string>& newPaths, const platform::TextList& existing) {
        if (existing.empty()) return;
        states_.reserve(newPaths.size());
        for (const std::string& path : newPaths) {
            climb(path, [this](std::string_view each) {
                return states_.try_emplace(each, State::unknown).second;
            });
        }
        for (const std::string& path : existing) {
            const auto found = states_.find(path);
            if (found != states_.end()) found->second = State::covered;
        }
    }

    /// Whether one of the new paths, or a folder above it, is in the list.
    bool covers(std::string_view path) {
        if (states_.empty()) return false;
        std::vector<State*> passed;
        State known = State::open;
        climb(path, [&](std::string_view each) {
            State& state = states_.at(each);
            if (state != State::unknown) known = state;
            passed.push_back(&state);
            return state == State::unknown;
        });
        for (State* state : passed) *state = known;  // so that folders are climbed only once
        return known == State::covered;
    }

private:
    enum class State : char { unknown, covered, open };

    /// Visits an absolute path and the folders above it until `visit` returns false.
    template <typename Visit>
    static void climb(std::string_view path, const Visit& visit) {
        while (visit(path) && path != "/") path = platform::deletingLastPathComponent(path);
    }

    std::unordered_map<std::string_view, State> states_;
};

/// A dropped folder may come with a slash at its end, which the list's paths don't have.
std::vector<std::string> cleaned(const std::vector<std::string>& paths) {
    std::vector<std::string> all;
    all.reserve(paths.size());
    for (const std::string& path : paths) {
        std::string clean = platform::absolutePath(path, "/");
        if (!clean.empty()) all.push_back(std::move(clean));
    }
    return all;
}

}  // namespace

SourceListData::SourceListData(std::shared_ptr<platform::UserDefaults> defaults)
    : StoredListData("Sources", "marquell_sources", std::move(defaults)) {
    this->defaults().keepInMemory(storageKey);
}

void SourceListData::add(const std::vector<std::string>& paths, bool interactive) {
    const platform::TextList before = value();
    const std::vector<std::string> newPaths = cleaned(paths);
    Coverage coverage(newPaths, before);
    std::vector<std::string> list;
    list.reserve(before.size() + newPaths.size());
    list.assign(before.begin(), before.end());
    for (const std::string& path : newPaths) {
        if (!coverage.covers(path)) list.push_back(path);
    }
    const bool anyRefused = list.size() < before.size() + paths.size();
    store(std::move(list), before);
    if (anyRefused && interactive && showAlert) showAlert(refusalAlert());
}

}  // namespace marquell::lists
