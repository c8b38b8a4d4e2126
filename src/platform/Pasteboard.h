// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/TextBuffer.h"

namespace marquell::platform {

enum class PasteboardType {
    tabularText,  ///< rows of tab-separated fields
    string,       ///< plain text
};

/// The clipboard that programs share. Main thread only.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// Takes off what is there, whoever put it there.
    virtual void clearContents() = 0;

    /// Announces what is to come, the best first. A type that is announced and never set has no
    /// data.
    virtual void declareTypes(const std::vector<PasteboardType>& types) = 0;

    /// Sets UTF-8 bytes for a declared type; those of an undeclared one are dropped.
    virtual void setData(PasteboardType type, std::shared_ptr<const TextBuffer> bytes) = 0;
};

/// A pasteboard of the process's own, for tests and for programs without a screen.
class MemoryPasteboard final : public Pasteboard {
public:
    void clearContents() override;
    void declareTypes(const std::vector<PasteboardType>& types) override;
    void setData(PasteboardType type, std::shared_ptr<const TextBuffer> bytes) override;

    std::vector<PasteboardType> types() const;
    /// Absent for a type without data.
    std::optional<std::string_view> data(PasteboardType type) const;

private:
    struct Entry {
        PasteboardType type;
        std::shared_ptr<const TextBuffer> bytes;
    };
    std::vector<Entry> entries_;
};

}  // namespace marquell::platform
