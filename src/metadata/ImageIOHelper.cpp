// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ImageIOHelper.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "metadata/LightReaders.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/TextHelpers.h"
#include "platform/DateParser.h"
#include "platform/NumberText.h"
#include "platform/Path.h"
#include "platform/ReadFailures.h"

namespace marquell::metadata {
namespace {

using pipeline::Node;
using platform::HelperOutcome;
using platform::PropertyDictionary;
using platform::PropertyValue;

std::string lowerCaseExtension(const Node& node) {
    std::string extension(
        platform::splitExtension(platform::lastPathComponent(node.absolutePath())).extension);
    for (char& letter : extension) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return extension;
}

bool isSupported(std::string_view extension) {
    const auto types = ImageIOHelper::supportedFileTypes();
    return std::find(types.begin(), types.end(), extension) != types.end();
}

/// What is to be read of a node; nothing if its type is none of the supported ones.
std::optional<platform::HelperJob> jobFor(const Node& node) {
    std::string extension = lowerCaseExtension(node);
    if (!isSupported(extension)) return std::nullopt;
    return platform::HelperJob{std::string(node.absolutePath()), std::move(extension)};
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

void ImageIOHelper::endReaders() {
    if (hasRead_) readers_().endIdle();
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

void ImageIOHelper::receive(const Node& node, const platform::HelperJob& job, HelperOutcome outcome,
                            const PropertyDictionary& properties) const {
    switch (outcome) {
        case HelperOutcome::values:
            extract(node.pathKey(), properties, instructions_);
            break;
        case HelperOutcome::givenUp:
            platform::reportReadFailure(node.absolutePath(), platform::ReadFailure::readerFailed);
            break;
        case HelperOutcome::unavailable:
            platform::reportReadFailure(readers_().program(),
                                        platform::ReadFailure::readersUnavailable);
            break;
        case HelperOutcome::unreadable:
            if (job.error != 0) platform::reportReadFailure(job.path, job.error);
            break;
        case HelperOutcome::nothing:
        case HelperOutcome::stopped:
            break;
    }
}

void ImageIOHelper::retrieveAndStoreAllTagsFor(std::span<Node* const> nodes,
                                               const NodeFinished& finished,
                                               const pipeline::StopCheck& shouldStop) {
    std::vector<platform::HelperJob> jobs;
    std::vector<std::size_t> places;  // among the nodes, of each job
    for (std::size_t i = 0; i < nodes.size() && !shouldStop(); ++i) {
        if (auto job = jobFor(*nodes[i])) {
            jobs.push_back(*std::move(job));
            places.push_back(i);
        } else {
            finished(i);
        }
    }
    if (jobs.empty()) return;
    hasRead_ = true;
    readers_().read(
        platform::HelperTask::image, jobs,
        [&](std::size_t job, HelperOutcome outcome, const PropertyDictionary& properties) {
            receive(*nodes[places[job]], jobs[job], outcome, properties);
            if (outcome != HelperOutcome::stopped) finished(places[job]);
        },
        shouldStop);
}

}  // namespace marquell::metadata
