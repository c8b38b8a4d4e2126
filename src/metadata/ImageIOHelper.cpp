// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ImageIOHelper.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "metadata/FileReaders.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/TextHelpers.h"
#include "platform/DateParser.h"
#include "platform/NumberText.h"

namespace marquell::metadata {
namespace {

using pipeline::Node;
using platform::PropertyDictionary;
using platform::PropertyValue;

bool isSupported(std::string_view extension) {
    const auto types = ImageIOHelper::supportedFileTypes();
    return std::find(types.begin(), types.end(), extension) != types.end();
}

/// What is to be read of a node; nothing if its type is none of the supported ones.
std::optional<platform::HelperJob> jobFor(const Node& node) {
    std::string extension = lowerCaseExtension(node);
    if (!isSupported(extension)) return std::nullopt;
    return platform::HelperJob{std::string(node.absolutePath()), std::move(extension),
                               platform::HelperTask::image};
}

struct StoredForm {
    std::optional<StoredValue> operator()(double number) const {
        return platform::numberText(number);
    }
    std::optional<StoredValue> operator()(const std::string& text) const { return text; }
    std::optional<StoredValue> operator()(const std::vector<std::string>& texts) const {
        return pipeline::asCommaSeparatedString(texts);
    }
    std::optional<StoredValue> operator()(const std::vector<double>&) const { return std::nullopt; }
};

std::optional<StoredValue> transformed(const PropertyValue& value, Transformation transformation) {
    if (transformation != Transformation::date) return std::visit(StoredForm{}, value);
    const auto* text = std::get_if<std::string>(&value);
    const auto date = text != nullptr ? platform::parseCameraDate(*text) : std::nullopt;
    if (!date) return std::nullopt;
    return *date;
}

}  // namespace

ImageIOHelper::ImageIOHelper(Readers readers) : readers_(std::move(readers)) {
    for (const ExtractionModel model :
         {imageMetadataExtractionModel(), exifMetadataExtractionModel(),
          iptcMetadataExtractionModel(), gpsMetadataExtractionModel(),
          tiffMetadataExtractionModel()}) {
        instructions_.insert(instructions_.end(), model.begin(), model.end());
    }
}

ImageIOHelper& ImageIOHelper::shared() {
    static ImageIOHelper helper(&lightReaders);
    return helper;
}

void ImageIOHelper::setWantedColumns(std::span<const std::string> ids) {
    instructions_ = ImageIOHelper(readers_).instructions_;
    std::erase_if(instructions_, [ids](const Instruction& instruction) {
        return std::find(ids.begin(), ids.end(), instruction.storedKey) == ids.end();
    });
}

void ImageIOHelper::extract(const PathKey& path, const PropertyDictionary& fromDic,
                            ExtractionModel withInstructions) {
    std::vector<KeyedValue> values;
    for (const Instruction& instruction : withInstructions) {
        const auto found = fromDic.find(static_cast<platform::PropertyKey>(instruction.property));
        if (found == fromDic.end()) continue;
        if (auto value = transformed(found->second, instruction.transformation)) {
            values.push_back({metadataKey(instruction.storedKey), *std::move(value)});
        }
    }
    if (!values.empty()) MetadataStorage::shared().store(path, MetadataSource::imageIO, values);
}

void ImageIOHelper::retrieveAndStoreAllTagsFor(std::span<Node* const> nodes,
                                               const NodeFinished& finished,
                                               const pipeline::StopCheck& shouldStop) {
    const HelperRetrieval retrieval = {
        &jobFor, [this](const Node& node, const PropertyDictionary& properties) {
            extract(node.pathKey(), properties, instructions_);
        }};
    retrieveByHelpers(retrieval, readers_, nodes, finished, shouldStop);
}

}  // namespace marquell::metadata
