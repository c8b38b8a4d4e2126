// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/Extraction.h"
#include "metadata/FileIndex.h"
#include "metadata/PathKey.h"
#include "platform/IndexAttributes.h"

namespace marquell::metadata {

/// Stores the attributes that files of all types have in common, as far as the file index knows
/// them. Any thread, several at a time.
class SpotlightHelper {
public:
    enum class RoundingPolicy { roundToOneDecimal = 0, dontRound = 1 };
    struct StringValueRow {
        std::string_view storedKey;  ///< a column id, or `layernames`, which has no column
        platform::IndexAttribute attribute;
    };
    struct NumericValueRow {
        std::string_view storedKey;
        platform::IndexAttribute attribute;
        RoundingPolicy rounding;
    };

    explicit SpotlightHelper(FileIndex index);
    static SpotlightHelper& shared();

    static std::span<const StringValueRow> allStringValues();
    static std::span<const StringValueRow> allStringArrayValues();
    static std::span<const NumericValueRow> allNumericValues();
    static std::span<const StringValueRow> allDateValues();

    /// Which columns are stored from now on: those among `ids`, whatever else is there, and no more
    /// is looked at than they take; all until set. Not to be called while extraction runs.
    void setWantedColumns(std::span<const std::string> ids);

    /// Looks up and stores. What can't be read is also reported as a read failure.
    void retrieveAndStoreAllTagsFor(std::span<pipeline::Node* const> nodes,
                                    const NodeFinished& finished,
                                    const pipeline::StopCheck& shouldStop) const;

    /// Stores what the rows name and the item has in a form that fits: texts, lists of texts as
    /// comma-separated text, numbers as plain decimal text, dates, of a list of dates the first. A
    /// duration is stored in its two written forms as well, and not at all if it is negative.
    void store(const PathKey& path, const IndexItem& item) const;

private:
    bool isWanted(std::string_view storedKey) const;

    const FileIndex index_;
    std::optional<std::vector<std::string>> wanted_;  ///< column ids; all unless set
    FileIndex::Depth depth_ = FileIndex::Depth::content;
};

}  // namespace marquell::metadata
