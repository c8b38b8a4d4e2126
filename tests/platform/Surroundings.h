// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace marquell::tests {

/// A folder of the test's own, gone with all that is in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "marquell-XXXXXX").string();
        path_ = std::filesystem::canonical(::mkdtemp(pattern.data()));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string operator/(const std::string& name) const { return (path_ / name).string(); }
    std::string path() const { return path_.string(); }
    std::set<std::string> names() const {
        std::set<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            all.insert(entry.path().filename().string());
        }
        return all;
    }

private:
    std::filesystem::path path_;
};

inline void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return (std::ostringstream() << file.rdbuf()).str();
}

/// Sets variables of the environment as long as it lives. No other thread may run.
class Environment {
public:
    Environment(std::initializer_list<std::pair<const char*, const char*>> variables) {
        for (const auto& [name, value] : variables) {
            const char* old = std::getenv(name);
            earlier_[name] = old == nullptr ? std::nullopt : std::optional<std::string>(old);
            ::setenv(name, value, 1);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        for (const auto& [name, value] : earlier_) {
            if (value) {
                ::setenv(name.c_str(), value->c_str(), 1);
            } else {
                ::unsetenv(name.c_str());
            }
        }
    }

private:
    std::map<std::string, std::optional<std::string>> earlier_;
};

}  // namespace marquell::tests
