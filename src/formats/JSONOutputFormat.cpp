// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/JSONOutputFormat.h"

#include <utility>

#include "formats/Indentation.h"
#include "formats/ItemOutputFormatter.h"
#include "formats/LineBreaks.h"
#include "formats/ListOutputOperation.h"
#include "pipeline/TextHelpers.h"
#include "platform/Escapes.h"

namespace marquell::formats {
namespace {

using platform::TextBuffer;

/// JSON allows no control character in a string; the three of lineBreakAndTabEscapes are not here.
constexpr platform::Escapes stringEscapes = pipeline::lineBreakAndTabEscapes.with(
    {{'\\', "\\\\"},      {'"', "\\\""},       {'\x00', "\\u0000"}, {'\x01', "\\u0001"},
     {'\x02', "\\u0002"}, {'\x03', "\\u0003"}, {'\x04', "\\u0004"}, {'\x05', "\\u0005"},
     {'\x06', "\\u0006"}, {'\x07', "\\u0007"}, {'\x08', "\\u0008"}, {'\x0b', "\\u000b"},
     {'\x0c', "\\u000c"}, {'\x0e', "\\u000e"}, {'\x0f', "\\u000f"}, {'\x10', "\\u0010"},
     {'\x11', "\\u0011"}, {'\x12', "\\u0012"}, {'\x13', "\\u0013"}, {'\x14', "\\u0014"},
     {'\x15', "\\u0015"}, {'\x16', "\\u0016"}, {'\x17', "\\u0017"}, {'\x18', "\\u0018"},
     {'\x19', "\\u0019"}, {'\x1a', "\\u001a"}, {'\x1b', "\\u001b"}, {'\x1c', "\\u001c"},
     {'\x1d', "\\u001d"}, {'\x1e', "\\u001e"}, {'\x1f', "\\u001f"}});

class JSONOutputOperation final : public ListOutputOperation {
public:
    JSONOutputOperation(const SharedSnapshot& snapshot, pipeline::StageOwner& owner,
                        SharedList list)
        : ListOutputOperation(snapshot, owner, std::move(list),
                              std::make_unique<JSONItemOutputFormatter>(*snapshot)),
          indentation_(indentationUnit(snapshot->jsonIndentationMode)),
          lineBreak_(formats::lineBreak(snapshot->linebreaksMode)),
          memberEnd_("," + std::string(lineBreak_)) {
        for (const pipeline::Column& column : columns()) {
            TextBuffer start;
            start.append(indentation_);
            start.append(indentation_);
            appendString(start, column.id);
            start.append(':');
            memberStarts_.emplace_back(start.view());
        }
    }

private:
    void appendStart(TextBuffer& text) override { appendLine(text, {"["}); }
    void appendRowStart(TextBuffer& text) const override { appendLine(text, {indentation_, "{"}); }
    void appendCell(TextBuffer& text, std::size_t column, const Cell& cell) const override {
        text.append(memberStarts_[column]);
        appendValue(text, cell);
        text.append(column + 1 < columns().size() ? memberEnd_ : lineBreak_);
    }
    void appendRowEnd(TextBuffer& text, bool isLast) const override {
        appendLine(text, {indentation_, isLast ? "}" : "},"});
    }
    void appendEnd(TextBuffer& text) const override { text.append(']'); }

    static void appendValue(TextBuffer& text, const Cell& cell) {
        switch (cell.kind) {
            case CellKind::text:
            case CellKind::date:
                return appendString(text, cell.text);
            case CellKind::number:
                return text.append(cell.text);
            case CellKind::isTrue:
                return text.append("true");
            case CellKind::isFalse:
                return text.append("false");
            case CellKind::missing:
                return text.append("null");
        }
    }

    static void appendString(TextBuffer& text, std::string_view string) {
        text.append('"');
        stringEscapes.append(text, string);
        text.append('"');
    }

    void appendLine(TextBuffer& text, std::initializer_list<std::string_view> pieces) const {
        for (const std::string_view piece : pieces) text.append(piece);
        text.append(lineBreak_);
    }

    const std::string_view indentation_;
    const std::string_view lineBreak_;
    const std::string memberEnd_;            ///< of all but the last
    std::vector<std::string> memberStarts_;  ///< of each column, up to the value
};

}  // namespace

std::shared_ptr<OutputFormatOperationType> JSONOutputFormat::getOutputOperation(
    SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner, SharedList flatFileList) const {
    return std::make_shared<JSONOutputOperation>(dataModelSnapshot, owner, std::move(flatFileList));
}

}  // namespace marquell::formats
