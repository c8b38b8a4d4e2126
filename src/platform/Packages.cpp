// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Packages.h"

#include <algorithm>
#include <array>

#include "platform/Path.h"

namespace marquell::platform {
namespace {

/// Only unmistakable bundles: each entry hides a subtree from every list.
constexpr std::array<std::string_view, 24> packageExtensions = {
    "app",          "appex",      "bundle",        "kext",      "prefPane",      "saver",
    "qlgenerator",  "mdimporter", "wdgt",          "rtfd",      "photoslibrary", "photolibrary",
    "aplibrary",    "fcpbundle",  "imovielibrary", "tvlibrary", "musiclibrary",  "logicx",
    "sparsebundle", "xcodeproj",  "xcworkspace",   "xcarchive", "dSYM",          "scptd",
};

constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

}  // namespace

bool isPackageName(std::string_view name) {
    const std::string_view extension = splitExtension(name).extension;
    return std::any_of(
        packageExtensions.begin(), packageExtensions.end(),
        [extension](std::string_view known) { return equalIgnoringCase(known, extension); });
}

}  // namespace marquell::platform
