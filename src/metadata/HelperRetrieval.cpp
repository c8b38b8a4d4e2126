// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/HelperRetrieval.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/Path.h"
#include "platform/ReadFailures.h"

namespace marquell::metadata {

using pipeline::Node;
using platform::HelperJob;
using platform::HelperOutcome;
using platform::PropertyDictionary;

std::string lowerCaseExtension(const Node& node) {
    std::string extension(
        platform::splitExtension(platform::lastPathComponent(node.absolutePath())).extension);
    for (char& letter : extension) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return extension;
}

void reportOutcome(const platform::HelperPool& readers, const HelperJob& job,
                   HelperOutcome outcome) {
    switch (outcome) {
        case HelperOutcome::givenUp:
            platform::reportReadFailure(job.path, platform::ReadFailure::readerFailed);
            break;
        case HelperOutcome::unavailable:
            platform::reportReadFailure(readers.program(),
                                        platform::ReadFailure::readersUnavailable);
            break;
        case HelperOutcome::unreadable:
            if (job.error != 0) platform::reportReadFailure(job.path, job.error);
            break;
        case HelperOutcome::values:
        case HelperOutcome::nothing:
        case HelperOutcome::stopped:
            break;
    }
}

void retrieveByHelpers(const HelperRetrieval& retrieval, const Readers& readers,
                       std::span<Node* const> nodes, const NodeFinished& finished,
                       const pipeline::StopCheck& shouldStop) {
    std::vector<HelperJob> jobs;
    std::vector<std::size_t> places;  // among the nodes, of each job
    for (std::size_t i = 0; i < nodes.size() && !shouldStop(); ++i) {
        if (auto job = retrieval.jobFor(*nodes[i])) {
            jobs.push_back(*std::move(job));
            places.push_back(i);
        } else {
            finished(i);
        }
    }
    if (jobs.empty()) return;
    platform::HelperPool& pool = readers();
    pool.read(
        jobs,
        [&](std::size_t job, HelperOutcome outcome, const PropertyDictionary& properties) {
            if (outcome == HelperOutcome::values) retrieval.store(*nodes[places[job]], properties);
            reportOutcome(pool, jobs[job], outcome);
            if (outcome != HelperOutcome::stopped) finished(places[job]);
        },
        shouldStop);
}

}  // namespace marquell::metadata
