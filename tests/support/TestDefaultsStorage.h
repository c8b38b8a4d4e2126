// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <any>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "variables/DefaultsStorageAPI.h"

namespace marquell::tests {

/// A store of settings in a dictionary.
class TestDefaultsStorage : public variables::DefaultsStorageAPI {
public:
    std::map<std::string, std::any> defaultsDictionary;

    bool defined(const std::string& key) const override { return defaultsDictionary.contains(key); }
    bool getBoolean(const std::string& key) const override {
        return get<bool>(key).value_or(false);
    }
    int getInteger(const std::string& key) const override { return get<int>(key).value_or(0); }
    double getTimeInterval(const std::string& key) const override {
        return get<double>(key).value_or(0);
    }
    std::optional<std::vector<std::any>> getArray(const std::string& key) const override {
        return get<std::vector<std::any>>(key);
    }

    void registerDefault(bool value, const std::string& forKey) override { add(value, forKey); }
    void registerDefault(int value, const std::string& forKey) override { add(value, forKey); }
    void registerDefault(double value, const std::string& forKey) override { add(value, forKey); }
    void registerDefault(const std::vector<std::any>& value, const std::string& forKey) override {
        add(value, forKey);
    }

    void store(bool value, const std::string& forKey) override { set(value, forKey); }
    void store(int value, const std::string& forKey) override { set(value, forKey); }
    void store(double value, const std::string& forKey) override { set(value, forKey); }
    void store(const std::vector<std::any>& value, const std::string& forKey) override {
        set(value, forKey);
    }

private:
    template <typename T>
    std::optional<T> get(const std::string& key) const {
        const auto found = defaultsDictionary.find(key);
        const T* value =
            found == defaultsDictionary.end() ? nullptr : std::any_cast<T>(&found->second);
        return value != nullptr ? std::optional(*value) : std::nullopt;
    }
    void add(const std::any& value, const std::string& key) {
        defaultsDictionary.try_emplace(key, value);
    }
    void set(const std::any& value, const std::string& key) { defaultsDictionary[key] = value; }
};

}  // namespace marquell::tests
