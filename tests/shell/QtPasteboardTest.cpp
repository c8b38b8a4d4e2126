// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "shell/QtPasteboard.h"

namespace marquell::shell {
namespace {

using platform::PasteboardType;

class QtPasteboardTest : public testing::Test {
protected:
    ~QtPasteboardTest() override { QGuiApplication::clipboard()->clear(); }

    static std::shared_ptr<const platform::TextBuffer> textOf(std::string_view text) {
        auto buffer = std::make_shared<platform::TextBuffer>();
        buffer->append(text);
        return buffer;
    }
    static const QMimeData& clipboard() { return *QGuiApplication::clipboard()->mimeData(); }
    static QByteArray bytes(const char* format) {
        return clipboard().data(QString::fromLatin1(format));
    }

    QtPasteboard pasteboard;
};

TEST_F(QtPasteboardTest, OffersWhatHasDataWithTheBestFirst) {
    const QString tabular = QStringLiteral("text/tab-separated-values");
    const QStringList plain = {QStringLiteral("text/plain"),
                               QStringLiteral("text/plain;charset=utf-8")};
    QGuiApplication::clipboard()->setText(QStringLiteral("of before"));
    pasteboard.clearContents();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString());
    pasteboard.declareTypes({PasteboardType::tabularText, PasteboardType::string});
    const auto text = textOf("a\t日本\r\n\"\u0308\"\n");
    pasteboard.setData(PasteboardType::string, text);
    EXPECT_EQ(clipboard().formats(), plain);
    EXPECT_FALSE(clipboard().hasFormat(tabular)) << "there is no data for it";
    pasteboard.setData(PasteboardType::tabularText, text);
    EXPECT_EQ(clipboard().formats(), QStringList(tabular) + plain);
    for (const char* format :
         {"text/tab-separated-values", "text/plain", "text/plain;charset=utf-8"}) {
        EXPECT_EQ(bytes(format).toStdString(), text->view()) << format;
    }
    EXPECT_EQ(clipboard().text().toStdString(), text->view());
    EXPECT_EQ(bytes("text/html"), QByteArray());
    // The next copy has nothing of this one, nor has one that comes after another program's.
    pasteboard.clearContents();
    pasteboard.declareTypes({PasteboardType::tabularText, PasteboardType::string});
    pasteboard.setData(PasteboardType::string, textOf(""));
    EXPECT_EQ(clipboard().formats(), plain);
    EXPECT_EQ(clipboard().text(), QString());
    QGuiApplication::clipboard()->setText(QStringLiteral("of another"));
    pasteboard.setData(PasteboardType::tabularText, text);
    EXPECT_EQ(clipboard().formats(), QStringList(tabular));
    pasteboard.declareTypes({PasteboardType::string});
    pasteboard.setData(PasteboardType::tabularText, textOf("undeclared"));
    EXPECT_EQ(bytes("text/tab-separated-values").toStdString(), text->view());
}

TEST_F(QtPasteboardTest, GivesReadersTheTextItselfForAsLongAsTheyWant) {
    auto text = textOf("text");
    const char* const place = text->view().data();
    const std::weak_ptr<const platform::TextBuffer> watched = text;
    const auto replace = [this](std::string_view by) {
        pasteboard.clearContents();
        pasteboard.declareTypes({PasteboardType::string});
        pasteboard.setData(PasteboardType::string, textOf(by));
    };
    pasteboard.declareTypes({PasteboardType::tabularText, PasteboardType::string});
    pasteboard.setData(PasteboardType::tabularText, text);
    pasteboard.setData(PasteboardType::string, text);
    text.reset();
    QByteArray read = bytes("text/plain");
    QByteArray changed = bytes("text/tab-separated-values");
    EXPECT_EQ(read.constData(), place);
    EXPECT_EQ(changed.constData(), place);
    changed[0] = 'n';
    replace("other");
    EXPECT_EQ(read, QByteArray("text"));
    EXPECT_EQ(read.constData(), place) << "not moved, nor changed by the other reader";
    read.clear();
    replace("third");
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(bytes("text/plain"), QByteArray("third"));
}

}  // namespace
}  // namespace marquell::shell
