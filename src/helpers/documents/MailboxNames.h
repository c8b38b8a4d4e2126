// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marquell::helpers {

/// Whom a list of mailboxes names (RFC 5322: "Ann <a@b.c>, d@e.f (Dan), Friends: g@h.i;"): by the
/// name that is shown, else by the address. Clean UTF-8.
std::vector<std::string> mailboxNames(std::string_view list);

}  // namespace marquell::helpers
