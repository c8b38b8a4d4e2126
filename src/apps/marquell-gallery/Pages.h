// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace marquell::toolkit {
class Wall;
}

namespace marquell::gallery {

/// Something of the toolkit to look at.
struct Page {
    const char* name = nullptr;
    void (*build)(toolkit::Wall& wall) = nullptr;
    /// The user's text times this while the page is shown; 0: as it is.
    double textScale = 0;
    bool longWords = false;
};

const std::vector<Page>& pages();

void buildStates(toolkit::Wall& wall);
void buildSizes(toolkit::Wall& wall);
void buildForm(toolkit::Wall& wall);
void buildFragments(toolkit::Wall& wall);
void buildWalls(toolkit::Wall& wall);
void buildBuilders(toolkit::Wall& wall);
void buildSkins(toolkit::Wall& wall);
void buildDrawings(toolkit::Wall& wall);

}  // namespace marquell::gallery
