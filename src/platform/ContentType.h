// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace marquell::platform {

/// What a regular file is, as MIME types of the system's table (shared-mime-info).
struct ContentType {
    /// By name and content: the name decides, unless the content is plainly something else. A file
    /// of no known type is application/octet-stream or, if it is readable, text/plain.
    std::string type;
    /// Of the reader that suits the content. Differs from `type` where a kind of container has
    /// several types by its name or is misnamed: a video's for an .m4a.
    std::string readerType;
};

/// So many bytes from the beginning of a file are enough to tell its type.
inline constexpr std::size_t typeBytes = 4096;

/// Any thread. `name` may be any bytes; `start` is the beginning of the content.
ContentType contentType(std::string_view name, std::string_view start);

}  // namespace marquell::platform
