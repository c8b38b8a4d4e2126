// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>
#include <system_error>

namespace marquell::platform {

/// What keeps a file's content from being known, beside the errors of the system.
enum class ReadFailure {
    changedMeanwhile = 1,  ///< while it was read, twice
    readerFailed,          ///< the process that read it crashed or hung, twice
    readersUnavailable,    ///< of the program that reads: its processes don't start
};
// NOLINTNEXTLINE(readability-identifier-naming): the name that the standard library looks for
std::error_code make_error_code(ReadFailure failure);

/// Told of each path that should have been readable and was not. Called on whichever thread met the
/// failure, several at a time; a path may come more than once.
using ReadFailureListener = std::function<void(std::string_view path, const std::error_code& why)>;

/// Installs the process's listener, an empty one to remove it. Not to be called while stages or
/// extractions run. Without a listener failures go unmentioned, as the window wants it.
void setReadFailureListener(ReadFailureListener listener);

void reportReadFailure(std::string_view path, const std::error_code& why);
/// The same for an errno.
void reportReadFailure(std::string_view path, int error);

}  // namespace marquell::platform

template <>
struct std::is_error_code_enum<marquell::platform::ReadFailure> : std::true_type {};
