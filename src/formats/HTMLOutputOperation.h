// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "formats/ListOutputOperation.h"

namespace marquell::formats {

/// A table in an HTML document. Each row below is a line with the number of its level in front:
///
///     0  <!DOCTYPE html>                    htmlHeader
///     0  <html>
///     1  <head>
///     2  <title>File List</title>
///     2  <meta charset="UTF-8">
///     1  </head>
///     1  <body>
///     2  <table>
///     3  <tr>                               titles, unless htmlColumnIdHeaderMode is 0
///     4  <th>title</th>                     of each column
///     3  </tr>
///     3  <tr>                               each node
///     4  <td>value</td>                     of each column
///     3  </tr>
///     2  </table>
///     1  </body>                            htmlFooter
///     0  </html>                            without a line break behind it
class HTMLOutputOperation : public ListOutputOperation {
public:
    HTMLOutputOperation(const SharedSnapshot& snapshot, pipeline::StageOwner& owner,
                        SharedList list);

protected:
    virtual void htmlHeader(platform::TextBuffer& text) const;
    virtual void htmlFooter(platform::TextBuffer& text) const;
    /// How many levels the table stands further left than in the document.
    virtual int disIndentBy() const { return 0; }

private:
    bool hasTitles() const override;
    void appendStart(platform::TextBuffer& text) override;
    void appendTitle(platform::TextBuffer& text, std::size_t column) const override;
    void appendRowStart(platform::TextBuffer& text) const override;
    void appendCell(platform::TextBuffer& text, std::size_t column,
                    const Cell& cell) const override;
    void appendRowEnd(platform::TextBuffer& text, bool isLast) const override;
    void appendEnd(platform::TextBuffer& text) const override;

    void appendLine(platform::TextBuffer& text, int level, std::string_view line) const;
    std::string_view tabs(int level) const;

    std::string_view lineBreak_;
    std::size_t indentationUnit_;          ///< bytes of one level
    std::string indentation_;              ///< of the deepest level
    std::vector<std::string> cellStarts_;  ///< of each column, up to the text
    std::string cellEnd_;
};

}  // namespace marquell::formats
