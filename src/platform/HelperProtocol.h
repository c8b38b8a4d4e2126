// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/PropertyDictionary.h"

namespace marquell::platform {

// What a program and its helper processes say to each other over a stream socket. Both ends are of
// the same build and machine, so the structures travel as they are. Requests are answered in the
// order they were sent. The program takes nothing that a helper says on trust: by then it may be
// run by a file.

/// Descriptors that a helper is started with, beside 0 to 2, which lead to /dev/null.
inline constexpr int helperSocket = 3;
/// The reading end of a pipe whose other end the program holds: it ends when the program does.
inline constexpr int helperLifeline = 4;

inline constexpr std::uint32_t helperMagic = 0x4d715231;

/// What is to be read of a file.
enum class HelperTask : std::uint32_t {
    image = 1,     ///< answered with properties by ImagePropertyKey
    soundTags,     ///< by AudioVisualPropertyKey
    imageIndex,    ///< by IndexAttribute, as all of the following
    soundIndex,    ///< of sound files whose headers say all: WAV, AIFF, CAF, AU, FLAC
    packageIndex,  ///< of documents that are ZIP files: OOXML, ODF, EPUB
    webPageIndex,
    messageIndex,  ///< of e-mail
    streamIndex,   ///< of all other sound and video files
    pdfIndex,
};

/// Whether it is for the heavy helper, whose libraries take longer to load, and not for the light
/// one.
constexpr bool isHeavy(HelperTask task) {
    return task == HelperTask::streamIndex || task == HelperTask::pdfIndex;
}

/// One message with exactly one descriptor beside it: the file, open for reading. Its offset is
/// nobody's; readers use pread.
struct HelperRequest {
    std::uint32_t magic = helperMagic;
    HelperTask task = HelperTask::image;
    std::uint64_t id = 0;
    std::uint64_t size = 0;  ///< of the file when it was opened
    /// The name's extension in lower case, padded with NUL; all NUL if there is none or it is
    /// longer. A hint for kinds without a signature, and untrusted like the content.
    std::array<char, 16> extension{};
};

inline std::string_view extensionOf(const HelperRequest& request) {
    const std::string_view padded(request.extension.data(), request.extension.size());
    return padded.substr(0, padded.find('\0'));
}

enum class HelperStatus : std::uint32_t {
    ready = 1,    ///< sent once at start, unasked, with id 0: the protections are in place
    values = 2,   ///< `length` bytes follow, for decodeProperties
    nothing = 3,  ///< no reader knows the content, or it is broken; nothing follows
};

/// Which protections a ready helper runs under; bits of HelperReply::protections.
inline constexpr std::uint32_t systemCallFilter = 1;
inline constexpr std::uint32_t fileSystemRules = 2;

struct HelperReply {
    std::uint32_t magic = helperMagic;
    HelperStatus status = HelperStatus::nothing;
    std::uint64_t id = 0;
    std::uint32_t length = 0;       ///< at most maximumPropertyBytes; 0 unless values
    std::uint32_t protections = 0;  ///< 0 unless ready
};

}  // namespace marquell::platform
