// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>

namespace marquell::tests {

struct TranslatedText {
    const char* context;
    const char* english;
    const char* translation;
};

/// While it lives, the process speaks German as far as `texts` go. Changes the process's locale
/// and environment, so no other thread may run meanwhile.
class InstalledTranslation {
public:
    explicit InstalledTranslation(std::initializer_list<TranslatedText> texts);
    ~InstalledTranslation();
    InstalledTranslation(const InstalledTranslation&) = delete;
    InstalledTranslation& operator=(const InstalledTranslation&) = delete;

private:
    const std::filesystem::path folder_;
    const std::string earlierLocale_;
    const std::string earlierFolder_;
};

}  // namespace marquell::tests
