// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/IndexEntry.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "platform/ContentType.h"
#include "platform/FileSystem.h"
#include "platform/Path.h"
#include "platform/ReadFailures.h"
#include "platform/RegularFile.h"
#include "platform/Utf8.h"

namespace marquell::metadata {
namespace {

using Attribute = platform::IndexAttribute;
using platform::EntryAttributes;

constexpr std::array<std::pair<unsigned, const char*>, 5> specialTypes = {{
    {S_IFDIR, "inode/directory"},
    {S_IFIFO, "inode/fifo"},
    {S_IFSOCK, "inode/socket"},
    {S_IFCHR, "inode/chardevice"},
    {S_IFBLK, "inode/blockdevice"},
}};

std::optional<EntryAttributes> lookedAt(const std::string& path) {
    int error = 0;
    auto attributes = platform::targetAttributesOf(path, error);
    if (attributes) return attributes;
    int entryError = 0;
    const bool isDangling =
        (error == ENOENT || error == ELOOP) && platform::entryExists(path, entryError);
    if (!isDangling) platform::reportReadFailure(path, error);
    return std::nullopt;
}

std::string extendedText(const std::string& path, const char* name) {
    int error = 0;
    const auto value = platform::extendedAttribute(path, name, error);
    if (!value) return {};
    return platform::displayText(value->substr(0, value->find('\0')));
}

void addExtendedAttributes(IndexItem& item, const std::string& path) {
    std::string comment = extendedText(path, "user.xdg.comment");
    if (!comment.empty()) item.emplace(Attribute::kMDItemFinderComment, std::move(comment));
    std::vector<std::string> origins;
    for (const char* name : {"user.xdg.origin.url", "user.xdg.referrer.url"}) {
        std::string origin = extendedText(path, name);
        const bool isKnown = std::ranges::find(origins, origin) != origins.end();
        if (!origin.empty() && !isKnown) origins.push_back(std::move(origin));
    }
    if (!origins.empty()) item.emplace(Attribute::kMDItemWhereFroms, std::move(origins));
}

void addDates(IndexItem& item, const EntryAttributes& attributes) {
    if (attributes.modification) {
        item.emplace(Attribute::kMDItemContentModificationDate, *attributes.modification);
    }
    if (!attributes.creation) return;
    item.emplace(Attribute::kMDItemContentCreationDate, *attributes.creation);
    item.emplace(Attribute::kMDItemDateAdded, *attributes.creation);
    if (item.contains(Attribute::kMDItemWhereFroms)) {
        item.emplace(Attribute::kMDItemDownloadedDate, *attributes.creation);
    }
}

/// The bytes that the type is told by; none if the file can't be read, which is then reported.
std::string startOf(const std::string& path) {
    int error = 0;
    const platform::RegularFile file = platform::openRegularFile(path, error);
    if (!file.descriptor.isOpen()) {
        if (error != 0) platform::reportReadFailure(path, error);
        return {};
    }
    std::string start(platform::typeBytes, '\0');
    const ssize_t length = ::pread(file.descriptor.get(), start.data(), start.size(), 0);
    if (length < 0) platform::reportReadFailure(path, errno);
    start.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return start;
}

/// Of a regular file of some size. What can't be read has the type that its name says.
platform::ContentType typeOf(const std::string& path) {
    return platform::contentType(platform::lastPathComponent(path), startOf(path));
}

void addType(IndexEntry& entry, const std::string& path, unsigned fileType) {
    const auto* const special =
        std::find_if(specialTypes.begin(), specialTypes.end(),
                     [fileType](const auto& row) { return row.first == fileType; });
    std::string type;
    if (special != specialTypes.end()) {
        type = special->second;
    } else {
        platform::ContentType found = typeOf(path);
        type = std::move(found.type);
        entry.readerType = std::move(found.readerType);
    }
    entry.item.emplace(Attribute::kMDItemContentType, std::move(type));
}

}  // namespace

std::optional<IndexEntry> indexEntry(const std::string& path, FileIndex::Depth depth) {
    const auto attributes = lookedAt(path);
    if (!attributes) return std::nullopt;
    IndexEntry entry;
    addExtendedAttributes(entry.item, path);
    addDates(entry.item, *attributes);
    if (depth != FileIndex::Depth::entry) addType(entry, path, attributes->type);
    return entry;
}

}  // namespace marquell::metadata
