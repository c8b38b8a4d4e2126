// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "pipeline/DataModelSnapshot.h"

namespace marquell::apps {

struct StoredSettings {
    pipeline::DataModelSnapshot snapshot;  ///< as the window last left it, but without sources
    std::vector<std::string> problems;     ///< why some of it may be that of a first launch
};

/// The user's settings as they are now. Leaves them as they are, whatever state they are in.
StoredSettings readStoredSettings();

}  // namespace marquell::apps
