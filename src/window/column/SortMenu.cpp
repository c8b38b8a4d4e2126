// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/column/SortMenu.h"

#include "toolkit/bricks/PopUpButtonBrick.h"
#include "window/Text.h"

namespace marquell::window {
namespace {

struct SortMode {
    const char* choice;
    const char* subtitle;
};

constexpr SortMode sortModes[] = {
    {"By name and sequence number", "(from A to Z)"},
    {"By name and sequence number", "(from Z to A)"},
    {"By full path and sequence number", "(from A to Z)"},
    {"By full path and sequence number", "(from Z to A)"},
    {"By creation date", "(from newest to oldest)"},
    {"By creation date", "(from oldest to newest)"},
    {"By modification date", "(from newest to oldest)"},
    {"By modification date", "(from oldest to newest)"},
    {"By content creation date", "(from newest to oldest)"},
    {"By content creation date", "(from oldest to newest)"},
    {"By size", "(from smallest to largest, files only)"},
    {"By size", "(from largest to smallest, files only)"},
    {"By name", "(from A to Z)"},
    {"By name", "(from Z to A)"},
    {"By full path", "(from A to Z)"},
    {"By full path", "(from Z to A)"},
};

}  // namespace

void addSortModes(toolkit::PopUpButtonBrick& popUp) {
    for (const SortMode& mode : sortModes) {
        popUp.addItem(localizedText(mode.choice, "popup menu choice"),
                      localizedText(mode.subtitle, "popup menu subtitle"));
    }
}

}  // namespace marquell::window
