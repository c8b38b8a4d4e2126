// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HelperPool.h"

namespace marquell::metadata {

// The program's processes that read files. They live until the process ends; any thread.

/// Of images, tags, documents and plain sound.
platform::HelperPool& lightReaders();
/// Of all other sound and video, and of PDF: those whose libraries take long to load.
platform::HelperPool& heavyReaders();

/// Ends those without work, if any were started; for a program that is about to end.
void endFileReaders();

}  // namespace marquell::metadata
