// SPDX-License-Identifier: GPL-3.0-or-later
#include "StoredSettings.h"

#include "pipeline/DataModel.h"
#include "platform/UserDefaults.h"

namespace marquell::apps {

StoredSettings readStoredSettings() {
    StoredSettings settings;
    const auto store = platform::UserDefaults::open(
        platform::UserDefaults::standardFile(),
        [&settings](const std::string& problem) { settings.problems.push_back(problem); });
    settings.snapshot = pipeline::DataModel(store).createSnapshot();
    return settings;
}

}  // namespace marquell::apps
