// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>

#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"

namespace marquell::tests {

/// Settings of a test's own, and what they hold under "key".
class OneSetting : public testing::Test {
protected:
    std::optional<platform::DefaultsValue> stored() const { return defaults->object("key"); }
    void store(platform::DefaultsValue value) const {
        defaults->setObject(std::move(value), "key");
    }

    const TemporaryFolder folder;
    const std::shared_ptr<platform::UserDefaults> defaults =
        platform::UserDefaults::open(folder / "settings.json", [](const auto&) {});
};

}  // namespace marquell::tests
