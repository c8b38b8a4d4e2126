// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/Extraction.h"
#include "metadata/HelperRetrieval.h"
#include "metadata/MetadataKey.h"
#include "metadata/PathKey.h"
#include "platform/AudioVisualAsset.h"

namespace marquell::metadata {

/// Stores the tags of sound and video files: the keys that all formats share, ID3 frames, lyrics.
/// Other processes read the files. Any thread, several at a time.
class AVKitHelper {
public:
    /// A common key or the identifier of an ID3 frame, and the column that it goes to.
    struct StringValueKey {
        std::string_view key;
        std::string_view storedKey;
    };

    explicit AVKitHelper(Readers readers);
    static AVKitHelper& shared();

    /// The extensions of the files that are looked at, in lower case.
    static std::span<const std::string_view> supportedFileExtensions();
    static std::span<const StringValueKey> stringValueKeys();

    /// Which columns are stored from now on: those among `ids`, whatever else is there; all until
    /// set. Not to be called while extraction runs.
    void setWantedColumns(std::span<const std::string> ids);

    /// Reads and stores; for nodes of other file types that is nothing. What can't be read is also
    /// reported as a read failure.
    void retrieveAndStoreAllTagsFor(std::span<pipeline::Node* const> nodes,
                                    const NodeFinished& finished,
                                    const pipeline::StopCheck& shouldStop) const;

    /// Stores what is known of a file, all as text. Of several items for one column the last
    /// stands. A frame with a text and no column goes to the console.
    void store(const PathKey& path, const platform::AudioVisualAsset& asset) const;

private:
    struct Column {
        MetadataKey key;
        bool isWanted;
    };

    const Readers readers_;
    std::map<std::string_view, Column> columns_;  ///< by the keys above
    bool wantsLyrics_ = true;
};

}  // namespace marquell::metadata
