// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "pipeline/DataModelSnapshot.h"

namespace marquell::apps {

struct ListRequest {
    pipeline::DataModelSnapshot snapshot;
    std::vector<std::string> settingsProblems;
    std::optional<std::string> outputFile;  ///< standard output if absent
    std::optional<unsigned> jobs;
    bool quiet = false;
};

struct HelpRequest {};
struct VersionRequest {};
struct CatalogueRequest {};

struct UsageProblem {
    std::string message;
};

using Request =
    std::variant<ListRequest, HelpRequest, VersionRequest, CatalogueRequest, UsageProblem>;

/// What the arguments of `main` ask for. Reads the file of --from0.
Request parseCommandLine(int argumentCount, char** arguments);

std::string helpText();

}  // namespace marquell::apps
