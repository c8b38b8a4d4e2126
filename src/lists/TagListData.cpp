// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/TagListData.h"

#include "metadata/TagManager.h"

namespace marquell::lists {
namespace {

const auto& ids() { return metadata::TagManager::shared().columnIDs; }

}  // namespace

TagListData::TagListData() : data(ids().begin(), ids().end()) {}

}  // namespace marquell::lists
