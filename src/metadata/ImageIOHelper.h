// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/Extraction.h"
#include "metadata/HelperRetrieval.h"
#include "metadata/PathKey.h"
#include "pipeline/KeySort.h"
#include "pipeline/Node.h"
#include "platform/ImageProperties.h"
#include "platform/PropertyDictionary.h"

namespace marquell::metadata {

/// What becomes of a property. All but dates are stored as text.
enum class Transformation { date, integer, decimal, string };

/// Stores what images say of themselves: size and colours, EXIF, GPS and IPTC fields. Other
/// processes read the files. Any thread, several at a time.
class ImageIOHelper {
public:
    struct Instruction {
        platform::ImagePropertyKey property;
        std::string_view storedKey;  ///< a column id
        Transformation transformation;
    };
    using ExtractionModel = std::span<const Instruction>;

    explicit ImageIOHelper(Readers readers);
    static ImageIOHelper& shared();

    static ExtractionModel imageMetadataExtractionModel();
    static ExtractionModel gpsMetadataExtractionModel();
    static ExtractionModel iptcMetadataExtractionModel();
    static ExtractionModel tiffMetadataExtractionModel();
    static ExtractionModel exifMetadataExtractionModel();

    /// The extensions of the files that are looked at, in lower case, and "m4b".
    static std::span<const std::string_view> supportedFileTypes();

    /// Which columns are stored from now on: those among `ids`, whatever else is there; all until
    /// set. A program that asks for no others later saves memory so. Not to be called while
    /// extraction runs.
    void setWantedColumns(std::span<const std::string> ids);

    /// Reads and stores; for nodes of other file types that is nothing. What can't be read is also
    /// reported as a read failure; content that is no image, or a broken one, is not.
    void retrieveAndStoreAllTagsFor(std::span<pipeline::Node* const> nodes,
                                    const NodeFinished& finished,
                                    const pipeline::StopCheck& shouldStop);

    /// Stores what the instructions name and the dictionary has: a number as plain decimal text, a
    /// text as it is, a list of texts as comma-separated text, a date from its text; a list of
    /// numbers and a broken date not at all.
    static void extract(const PathKey& path, const platform::PropertyDictionary& fromDic,
                        ExtractionModel withInstructions);

private:
    const Readers readers_;
    std::vector<Instruction> instructions_;  ///< of all models, as far as they are wanted
};

}  // namespace marquell::metadata
