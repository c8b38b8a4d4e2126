// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/DateProviderAPI.h"
#include "shell/LaunchTrigger.h"
#include "variables/DefaultsStorageAPI.h"

namespace marquell::shell {

struct LaunchListItem {
    LaunchTrigger trigger;
    std::function<void()> function;
};

class LaunchManagerAPI {
public:
    virtual ~LaunchManagerAPI() = default;

    /// To be called once at each launch of the program: counts it, then runs what is due, in the
    /// order of the list.
    virtual void applicationDidLaunch() = 0;
};

/// Keeps its counters in the settings, under keys that begin with `defaultsKeyRoot` and a dot.
/// They are written before anything runs, so that a task that brings the program down isn't met
/// again at each launch. Whether an item is due is judged at its turn: a task may set the key that
/// a later one waits for. The store and the provider have to outlive the manager. Main thread only.
class LaunchManager : public LaunchManagerAPI {
public:
    LaunchManager(std::string defaultsKeyRoot, std::vector<LaunchListItem> launchList,
                  variables::DefaultsStorageAPI& defaultsStorageAPI,
                  const DateProviderAPI& dateProviderAPI);

    void applicationDidLaunch() override;

private:
    const std::string defaultsKeyRoot_;
    const std::vector<LaunchListItem> launchList_;
    variables::DefaultsStorageAPI& defaultsStorageAPI_;
    const DateProviderAPI& dateProviderAPI_;
};

}  // namespace marquell::shell
