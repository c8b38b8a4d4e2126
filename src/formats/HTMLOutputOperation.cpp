// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/HTMLOutputOperation.h"

#include <algorithm>
#include <utility>

#include "formats/ColumnTitle.h"
#include "formats/HtmlText.h"
#include "formats/Indentation.h"
#include "formats/ItemOutputFormatter.h"
#include "formats/LineBreaks.h"

namespace marquell::formats {
namespace {

using platform::TextBuffer;

constexpr int deepestLevel = 4;

/// How the cells of a column can be told apart in a style sheet.
enum class Naming { none, byNumber, byId };

/// The start of a tag up to where the column's name would stand, and the whole of it without one.
struct OpeningTag {
    std::string_view named;
    std::string_view plain;
};
constexpr OpeningTag headerTag = {"<th id=\"mql_th_", "<th>"};
constexpr OpeningTag cellTag = {"<td class =\"mql_td_", "<td>"};

constexpr std::array<Naming, 4> headerNamings = {Naming::none, Naming::none, Naming::byNumber,
                                                 Naming::byId};
constexpr std::array<Naming, 3> cellNamings = {Naming::none, Naming::byNumber, Naming::byId};

void appendOpeningTag(TextBuffer& text, const OpeningTag& tag, Naming naming,
                      std::string_view columnId, std::size_t counter) {
    if (naming == Naming::none) return text.append(tag.plain);
    text.append(tag.named);
    if (naming == Naming::byId) text.append(columnId);
    if (naming == Naming::byNumber) text.append(std::to_string(counter));
    text.append("\">");
}

}  // namespace

HTMLOutputOperation::HTMLOutputOperation(const SharedSnapshot& snapshot,
                                         pipeline::StageOwner& owner, SharedList list)
    : ListOutputOperation(snapshot, owner, std::move(list),
                          std::make_unique<ItemOutputFormatter>(*snapshot)),
      lineBreak_(formats::lineBreak(snapshot->linebreaksMode)),
      indentationUnit_(formats::indentationUnit(snapshot->htmlIndentationMode).size()) {
    cellEnd_ = "</td>" + std::string(lineBreak_);
    for (int level = 0; level < deepestLevel; ++level) {
        indentation_ += formats::indentationUnit(snapshot->htmlIndentationMode);
    }
}

void HTMLOutputOperation::htmlHeader(TextBuffer& text) const {
    appendLine(text, 0, "<!DOCTYPE html>");
    appendLine(text, 0, "<html>");
    appendLine(text, 1, "<head>");
    appendLine(text, 2, "<title>File List</title>");
    appendLine(text, 2, "<meta charset=\"UTF-8\">");
    appendLine(text, 1, "</head>");
    appendLine(text, 1, "<body>");
}

void HTMLOutputOperation::htmlFooter(TextBuffer& text) const {
    appendLine(text, 1, "</body>");
    text.append("</html>");
}

void HTMLOutputOperation::appendStart(TextBuffer& text) {
    const Naming naming = rowOfMode(cellNamings, dataModelSnapshot().htmlColumnClassMode);
    cellStarts_.clear();
    for (std::size_t column = 0; column < columns().size(); ++column) {
        TextBuffer start;
        start.append(tabs(4));
        appendOpeningTag(start, cellTag, naming, columns()[column].id, column + 1);
        cellStarts_.emplace_back(start.view());
    }
    htmlHeader(text);
    appendLine(text, 2, "<table>");
}

bool HTMLOutputOperation::hasTitles() const {
    return dataModelSnapshot().htmlColumnIdHeaderMode != 0;
}

void HTMLOutputOperation::appendTitle(TextBuffer& text, std::size_t column) const {
    const std::string& id = columns()[column].id;
    const Naming naming = rowOfMode(headerNamings, dataModelSnapshot().htmlColumnIdHeaderMode);
    text.append(tabs(4));
    appendOpeningTag(text, headerTag, naming, id, column + 1);
    text.append(columnTitle(id, 1));
    text.append("</th>");
    text.append(lineBreak_);
}

void HTMLOutputOperation::appendRowStart(TextBuffer& text) const { appendLine(text, 3, "<tr>"); }

void HTMLOutputOperation::appendCell(TextBuffer& text, std::size_t column, const Cell& cell) const {
    text.append(cellStarts_[column]);
    appendHtmlEscaped(text, cell.text);
    text.append(cellEnd_);
}

void HTMLOutputOperation::appendRowEnd(TextBuffer& text, bool) const {
    appendLine(text, 3, "</tr>");
}

void HTMLOutputOperation::appendEnd(TextBuffer& text) const {
    appendLine(text, 2, "</table>");
    htmlFooter(text);
}

void HTMLOutputOperation::appendLine(TextBuffer& text, int level, std::string_view line) const {
    text.append(tabs(level));
    text.append(line);
    text.append(lineBreak_);
}

std::string_view HTMLOutputOperation::tabs(int level) const {
    const int levels = std::max(level - disIndentBy(), 0);
    return std::string_view(indentation_)
        .substr(0, static_cast<std::size_t>(levels) * indentationUnit_);
}

}  // namespace marquell::formats
