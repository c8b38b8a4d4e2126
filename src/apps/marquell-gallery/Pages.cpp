// SPDX-License-Identifier: GPL-3.0-or-later
#include "Pages.h"

namespace marquell::gallery {

const std::vector<Page>& pages() {
    static const std::vector<Page> all{
        {"States", buildStates},
        {"Bricks and sizes", buildSizes},
        {"Form", buildForm},
        {"Form, text scale 1.5", buildForm, 1.5},
        {"Form, long words", buildForm, 0, true},
        {"Fragments", buildFragments},
        {"Walls and borders", buildWalls},
        {"Builders", buildBuilders},
        {"Builders, text scale 1.5", buildBuilders, 1.5},
        {"Skins", buildSkins},
        {"Drawings", buildDrawings},
    };
    return all;
}

}  // namespace marquell::gallery
