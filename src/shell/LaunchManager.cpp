// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/LaunchManager.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <variant>

namespace marquell::shell {
namespace {

constexpr double secondsPerDay = 24 * 60 * 60;

/// What the settings hold of the launches, this one included. Times are seconds since
/// platform::referenceDate.
struct LaunchRecord {
    int number;
    double first;
    double latestBefore;  // only with number > 1
};

LaunchRecord record(const std::string& root, variables::DefaultsStorageAPI& storage, double now) {
    const std::string numberKey = root + ".launches";
    const std::string firstKey = root + ".firstLaunch";
    const std::string latestKey = root + ".latestLaunch";
    const int earlier =
        std::clamp(storage.getInteger(numberKey), 0, std::numeric_limits<int>::max() - 1);
    if (earlier == 0) storage.store(now, firstKey);
    const LaunchRecord result = {earlier + 1, storage.getTimeInterval(firstKey),
                                 storage.getTimeInterval(latestKey)};
    storage.store(result.number, numberKey);
    // Not the latest by the calendar if the system's clock was set back: a day is reached once
    // only.
    storage.store(earlier == 0 ? now : std::max(now, result.latestBefore), latestKey);
    return result;
}

/// Judges a trigger; one operation for each kind.
struct DueTest {
    const LaunchRecord& launch;
    double now;
    const variables::DefaultsStorageAPI& storage;

    bool operator()(const AfterDays& trigger) const {
        const double due = launch.first + trigger.days * secondsPerDay;
        return launch.number == 1 ? now >= due : now >= due && launch.latestBefore < due;
    }
    bool operator()(const AfterLaunches& trigger) const {
        return launch.number == trigger.launches;
    }
    bool operator()(const UntilDefaultsKeyIsSet& trigger) const {
        return !storage.defined(trigger.defaultsKey);
    }
    bool operator()(const FirstLaunch& /*trigger*/) const { return launch.number == 1; }
    bool operator()(const EveryTime& /*trigger*/) const { return true; }
};

}  // namespace

LaunchManager::LaunchManager(std::string defaultsKeyRoot, std::vector<LaunchListItem> launchList,
                             variables::DefaultsStorageAPI& defaultsStorageAPI,
                             const DateProviderAPI& dateProviderAPI)
    : defaultsKeyRoot_(std::move(defaultsKeyRoot)),
      launchList_(std::move(launchList)),
      defaultsStorageAPI_(defaultsStorageAPI),
      dateProviderAPI_(dateProviderAPI) {}

void LaunchManager::applicationDidLaunch() {
    const double now = dateProviderAPI_.currentTimeIntervalFromReferenceDate();
    const LaunchRecord launch = record(defaultsKeyRoot_, defaultsStorageAPI_, now);
    const DueTest isDue = {launch, now, defaultsStorageAPI_};
    for (const LaunchListItem& item : launchList_) {
        if (std::visit(isDue, item.trigger)) item.function();
    }
}

}  // namespace marquell::shell
