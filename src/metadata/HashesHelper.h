// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <span>
#include <string>

#include "pipeline/Node.h"
#include "platform/Digests.h"

namespace marquell::metadata {

/// The dearest source: digests of a file's whole content, made in one reading of it.
class HashesHelper {
public:
    static HashesHelper& shared();

    /// Which digests are made from now on: those among `keys`, whatever else is there; all until
    /// set. A program that asks for no others later saves most of the time so. Not to be called
    /// while extraction runs.
    void setWantedDigests(std::span<const std::string> keys);

    /// Stores the digests of the file that the node's path leads to, in lower-case hexadecimal.
    /// Stores nothing for what has no content of its own, as folders; nor for what can't be read or
    /// keeps changing meanwhile, which is also reported as a read failure. `shouldStop` is asked
    /// every few milliseconds on the caller's thread; false if that ended it, then nothing is
    /// stored. Any thread, several at a time.
    bool retrieveAndStoreAllTagsFor(const pipeline::Node& node,
                                    const std::function<bool()>& shouldStop);

private:
    platform::DigestSet wanted_ = platform::DigestSet().set();
};

}  // namespace marquell::metadata
