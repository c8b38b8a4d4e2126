// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "formats/OutputFormatType.h"
#include "pipeline/OutputEngineDisplay.h"
#include "platform/TextEncoding.h"

namespace marquell::pipeline {

/// The search for the first character of `text` that the encoding lacks, to be run on any thread.
/// `origin`, which nobody runs or asks otherwise, is an operation that would make the same text:
/// it tells where in the list a character comes from, unless it is abandoned.
std::function<std::optional<LackingCharacter>()> lackingCharacterSearch(
    formats::SharedText text, platform::TextEncoding encoding,
    std::shared_ptr<formats::OutputFormatOperationType> origin);

}  // namespace marquell::pipeline
