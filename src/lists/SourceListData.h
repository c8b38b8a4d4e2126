// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "lists/StoredListData.h"

namespace marquell::lists {

/// A message that the user has to close. The texts are in the user's language.
struct Alert {
    std::string message;
    std::string informativeText;
    std::string button;
};

/// The files and folders that the user named, in the order shown; absolute paths, as bytes. They
/// are in the settings' keys for this run of the program only, never in the file.
class SourceListData : public StoredListData {
public:
    explicit SourceListData(std::shared_ptr<platform::UserDefaults> defaults);

    /// Shows an alert and doesn't wait for its end. Supplied by the interface.
    std::function<void(const Alert& alert)> showAlert;

    /// Appends paths, but refuses each that is in the list as it was before the call, or has a
    /// folder above it that is. Decided by the paths alone, nothing is looked for on disk. The
    /// other paths are added all the same; if there were refused ones, `interactive` shows one
    /// alert.
    void add(const std::vector<std::string>& paths, bool interactive);
};

}  // namespace marquell::lists
