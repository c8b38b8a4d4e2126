// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <any>
#include <optional>
#include <string>
#include <vector>

namespace marquell::variables {

/// What logic asks of a store of settings, so that it can run on another than the user's own.
class DefaultsStorageAPI {
public:
    virtual ~DefaultsStorageAPI() = default;

    /// Whether the key has a value.
    virtual bool defined(const std::string& key) const = 0;

    // Without a value of the type these give false, 0, 0 seconds and nothing.
    virtual bool getBoolean(const std::string& key) const = 0;
    virtual int getInteger(const std::string& key) const = 0;
    virtual double getTimeInterval(const std::string& key) const = 0;
    virtual std::optional<std::vector<std::any>> getArray(const std::string& key) const = 0;

    /// A default counts as the key's value while nothing is stored.
    virtual void registerDefault(bool value, const std::string& forKey) = 0;
    virtual void registerDefault(int value, const std::string& forKey) = 0;
    virtual void registerDefault(double value, const std::string& forKey) = 0;
    virtual void registerDefault(const std::vector<std::any>& value, const std::string& forKey) = 0;

    virtual void store(bool value, const std::string& forKey) = 0;
    virtual void store(int value, const std::string& forKey) = 0;
    virtual void store(double value, const std::string& forKey) = 0;
    virtual void store(const std::vector<std::any>& value, const std::string& forKey) = 0;
};

}  // namespace marquell::variables
