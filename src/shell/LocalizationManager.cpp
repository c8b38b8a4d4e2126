// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/LocalizationManager.h"

namespace marquell::shell {
namespace {

std::string_view language(std::string_view localeName) {
    return localeName.substr(0, localeName.find_first_of("_.@"));
}

}  // namespace

LocalizationManager::LocalizationManager(std::string_view localeName)
    : german(language(localeName) == "de"), english(language(localeName) == "en") {}

}  // namespace marquell::shell
