// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ReadFailures.h"

#include <string>
#include <utility>

namespace marquell::platform {
namespace {

ReadFailureListener& listenerSlot() {
    // Never destroyed: threads may still report while the process ends.
    static auto* const slot = new ReadFailureListener;
    return *slot;
}

class ReadFailureCategory : public std::error_category {
public:
    const char* name() const noexcept override { return "reading"; }
    std::string message(int failure) const override {
        switch (static_cast<ReadFailure>(failure)) {
            case ReadFailure::changedMeanwhile:
                return "changed while it was read";
            case ReadFailure::readerFailed:
                return "its content was given up: the process that read it crashed or hung";
            case ReadFailure::readersUnavailable:
                return "this reader of files does not start: its columns are not filled, or not "
                       "any further";
        }
        return "unknown failure";
    }
};

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): see the header
std::error_code make_error_code(ReadFailure failure) {
    static const ReadFailureCategory category;
    return {static_cast<int>(failure), category};
}

void setReadFailureListener(ReadFailureListener listener) { listenerSlot() = std::move(listener); }

void reportReadFailure(std::string_view path, const std::error_code& why) {
    if (const ReadFailureListener& listener = listenerSlot()) listener(path, why);
}

void reportReadFailure(std::string_view path, int error) {
    reportReadFailure(path, std::error_code(error, std::generic_category()));
}

}  // namespace marquell::platform
