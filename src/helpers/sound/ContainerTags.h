// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "helpers/sound/Chunks.h"
#include "helpers/sound/TagFields.h"

namespace marquell::helpers {

// Each adds what files of one kind say of themselves, where nothing is set yet. The caller has seen
// by its first bytes that the file is of that kind.
void addWaveTags(SoundTags& tags, TagInput& input, ChunkForm form);
void addAiffTags(SoundTags& tags, TagInput& input);
void addCafTags(SoundTags& tags, TagInput& input);
void addAuTags(SoundTags& tags, TagInput& input);
void addFlacTags(SoundTags& tags, TagInput& input, std::uint64_t begin);
void addQuickTimeTags(SoundTags& tags, TagInput& input);

}  // namespace marquell::helpers
