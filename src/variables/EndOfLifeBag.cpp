// SPDX-License-Identifier: GPL-3.0-or-later
#include "variables/EndOfLifeBag.h"

#include <cstdio>

namespace marquell::variables {

EndOfLifeBag::~EndOfLifeBag() {
    for (const auto& closure : closures) closure();
#ifndef NDEBUG
    std::fputs("disposing of end of life bag\n", stderr);
#endif
}

}  // namespace marquell::variables
