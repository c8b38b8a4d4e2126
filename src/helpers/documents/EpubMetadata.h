// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pugixml.hpp>

#include "helpers/documents/DocumentFields.h"

namespace marquell::helpers {

/// Adds what the metadata of an EPUB 2 or 3 package document say.
void addEpubMetadata(DocumentFields& fields, pugi::xml_node package);

}  // namespace marquell::helpers
