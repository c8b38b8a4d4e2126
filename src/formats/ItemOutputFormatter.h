// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "formats/MetadataItemFormatterType.h"
#include "pipeline/DataModelSnapshot.h"
#include "platform/DateFormatter.h"

namespace marquell::formats {

/// Values as the settings of a list have them. All formats but JSON use it as it is, their
/// dates following dateFormatMode.
class ItemOutputFormatter : public MetadataItemFormatterType {
public:
    explicit ItemOutputFormatter(const pipeline::DataModelSnapshot& snapshot)
        : ItemOutputFormatter(snapshot, snapshot.dateFormatMode) {}

    void formatDate(std::string& text, const platform::Date& date) override;
    void formatNullValue(std::string& text) override;
    void formatBoolValue(std::string& text, bool value) override;
    void formatNumber(std::string& text, std::int64_t number) override;
    void formatSize(std::string& text, std::int64_t bytes) override;

protected:
    ItemOutputFormatter(const pipeline::DataModelSnapshot& snapshot, int dateMode);

private:
    platform::DateFormatter dateFormatter_;
    std::string_view nullText_;
    std::string_view trueText_;
    std::string_view falseText_;
};

class JSONItemOutputFormatter final : public ItemOutputFormatter {
public:
    explicit JSONItemOutputFormatter(const pipeline::DataModelSnapshot& snapshot)
        : ItemOutputFormatter(snapshot, snapshot.jsonDateFormatMode) {}
};

}  // namespace marquell::formats
