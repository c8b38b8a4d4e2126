// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HelperPool.h"

namespace marquell::metadata {

/// The program's processes that read images. Lives until the process ends; any thread.
platform::HelperPool& lightReaders();

}  // namespace marquell::metadata
