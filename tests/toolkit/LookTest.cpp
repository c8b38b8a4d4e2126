// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QtTest/QTest>
#include <algorithm>
#include <cmath>
#include <memory>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/HouseStyle.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/PlainText.h"
#include "toolkit/look/StandardIcons.h"
#include "toolkit/look/Surface.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

constexpr Surface surfaces[] = {Surface::light, Surface::dark, Surface::column};

double luminance(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) +
           0.0722 * part(color.blueF());
}

double contrast(ColorRole one, ColorRole other, Surface surface) {
    const double a = luminance(color(one, surface));
    const double b = luminance(color(other, surface));
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

struct Pair {
    ColorRole drawn;
    std::vector<ColorRole> grounds;
    bool alsoOnColumn = true;
};

void expectContrast(const std::vector<Pair>& pairs, double least) {
    for (const Pair& pair : pairs) {
        for (const Surface surface : surfaces) {
            if (surface == Surface::column && !pair.alsoOnColumn) continue;
            for (const ColorRole ground : pair.grounds) {
                EXPECT_GE(contrast(pair.drawn, ground, surface), least)
                    << "role " << static_cast<int>(pair.drawn) << " on " << static_cast<int>(ground)
                    << ", surface " << static_cast<int>(surface);
            }
        }
    }
}

TEST(LookTest, textCanBeReadOnItsGrounds) {
    using enum ColorRole;
    expectContrast(
        {
            {text,
             {base, alternateBase, window, menu, page, tagBand, controlFill, controlFillHover,
              controlFillPressed, infoTabFill, infoTabHover, glyphHover, glyphPressed}},
            {headerText, {header}},
            {secondaryText, {base, alternateBase, menu, controlFill, controlFillHover}},
            {secondaryText, {page, window}, false},
            {waitingText, {base, alternateBase}},
            {selectionText, {selection}},
            {selectionSecondaryText, {selection}},
            {accentText, {accentFill, accentFillHover, accentFillPressed}},
            {selectedSegmentText, {selectedSegmentFill}},
        },
        4.5);
    for (const ColorRole ground : {effectGround, effectGroundInactive}) {
        EXPECT_GE(contrast(ground, text, Surface::dark), 4.5);
    }
}

TEST(LookTest, controlsCanBeToldFromTheirGrounds) {
    using enum ColorRole;
    expectContrast(
        {
            {controlBorder, {controlFill}},
            {controlBorderHover, {controlFill}},
            {controlBorder, {base, page}, false},
            {selectedSegmentBorder, {page}},
            {divider, {base}},
            {scrollThumb, {base}, false},
            {scrollThumbHover, {base}, false},
            {focusRing, {page, window, base}},
            {accentFill, {page}, false},
        },
        3);
}

TEST(LookTest, viewsLieOnTheSurfaceThatWasToldNearestAbove) {
    QWidget window;
    QWidget column(&window);
    QWidget list(&column);
    QWidget cell(&list);
    QWidget always(&window);
    setAppearance(&column, Appearance::column);
    setAppearance(&list, Appearance::system);
    setAppearance(&always, Appearance::light);
    QWidget popup(&column, Qt::Popup);

    for (const bool dark : {true, false}) {
        setSystemDark(dark);
        const Surface system = dark ? Surface::dark : Surface::light;
        EXPECT_EQ(surfaceOf(nullptr), system);
        EXPECT_EQ(surfaceOf(&window), system);
        EXPECT_EQ(surfaceOf(&column), Surface::column);
        EXPECT_EQ(surfaceOf(&cell), system);
        EXPECT_EQ(surfaceOf(&always), Surface::light);
        EXPECT_EQ(surfaceOf(&popup), system) << "popups stand apart";

        // What Qt draws by itself goes by the palettes.
        for (const QWidget* view : {&window, &column, &cell, &always, &popup}) {
            const QPalette expected = paletteOf(surfaceOf(view));
            for (int group = 0; group < QPalette::NColorGroups; ++group) {
                for (int role = 0; role < QPalette::NColorRoles; ++role) {
                    if (role == QPalette::NoRole) continue;
                    const auto g = static_cast<QPalette::ColorGroup>(group);
                    const auto r = static_cast<QPalette::ColorRole>(role);
                    ASSERT_EQ(view->palette().color(g, r), expected.color(g, r))
                        << "group " << group << ", role " << role << ", dark " << dark;
                }
            }
        }
    }

    QApplication::setPalette(QPalette(Qt::red));
    EXPECT_EQ(cell.palette().color(QPalette::Window), color(ColorRole::window, Surface::light));
    setSystemDark(false);
}

/// Puts the usual fonts back in force.
class MetricsTest : public testing::Test {
protected:
    static QFont fontOf(int px) {
        QFont font = QGuiApplication::font();
        font.setPixelSize(px);
        return font;
    }
    static void setInterfaceFont(int px) { setInterfaceFonts(fontOf(px), fontOf(px)); }
    void TearDown() override { setInterfaceFont(13); }
};

TEST_F(MetricsTest, allSizesFollowTheInterfaceFont) {
    struct Row {
        int u, small, mini, title, abbreviation, regularHeight;
        double scale;
    };
    constexpr Row rows[] = {
        {8, 11, 10, 10, 10, 24, 1},  {11, 11, 10, 10, 10, 24, 1},       {13, 11, 10, 12, 10, 24, 1},
        {15, 13, 12, 14, 10, 24, 1}, {20, 17, 15, 18, 13, 32, 4.0 / 3},
    };
    for (const Row& row : rows) {
        const Metrics metrics(fontOf(row.u), fontOf(row.u));
        const auto px = [&](FontRole role) { return metrics.font(role).pixelSize(); };
        EXPECT_EQ(px(FontRole::regular), std::max(row.u, 10));
        EXPECT_EQ(px(FontRole::small), row.small);
        EXPECT_EQ(px(FontRole::mini), row.mini);
        EXPECT_EQ(px(FontRole::title), row.title);
        EXPECT_EQ(px(FontRole::header), row.small);
        EXPECT_EQ(px(FontRole::monospaced), row.small);
        EXPECT_EQ(px(FontRole::abbreviation), row.abbreviation);
        EXPECT_DOUBLE_EQ(metrics.scale(), row.scale);
        EXPECT_GE(metrics.controlHeight(ControlSize::regular), row.regularHeight);
        for (const auto size : {ControlSize::regular, ControlSize::small, ControlSize::mini}) {
            const QFontMetrics line(metrics.font(fontRoleOf(size)));
            EXPECT_GE(metrics.controlHeight(size), line.height() + 4);
        }
    }
}

TEST_F(MetricsTest, viewsAndLayoutsFollowAChange) {
    setInterfaceFont(13);
    QWidget window;
    QVBoxLayout layout(&window);
    QPushButton small(QStringLiteral("Small"));
    QPushButton regular(QStringLiteral("Regular"));
    QLabel abbreviation(QStringLiteral("size 8.0"));
    setControlSize(&small, ControlSize::small);
    setFontRole(&abbreviation, FontRole::abbreviation);
    for (QWidget* view : {static_cast<QWidget*>(&small), static_cast<QWidget*>(&regular),
                          static_cast<QWidget*>(&abbreviation)}) {
        layout.addWidget(view);
    }
    window.show();
    const int heightBefore = window.minimumSizeHint().height();
    EXPECT_EQ(small.height(), metrics().controlHeight(ControlSize::small));

    setInterfaceFont(26);
    QCoreApplication::processEvents();
    EXPECT_EQ(small.font().pixelSize(), 22);
    EXPECT_EQ(regular.font().pixelSize(), 26);
    EXPECT_EQ(abbreviation.font().pixelSize(), 17);
    EXPECT_EQ(small.sizeHint().height(), metrics().controlHeight(ControlSize::small));
    EXPECT_GT(window.minimumSizeHint().height(), heightBefore);
    EXPECT_GE(window.height(), window.minimumSizeHint().height());
}

TEST(LookTest, listsOfPopupsStandApartFromTheColumn) {
    for (const bool editable : {false, true}) {
        QWidget column;
        setAppearance(&column, Appearance::column);
        QComboBox popup(&column);
        popup.setEditable(editable);
        popup.addItems({QStringLiteral("one"), QStringLiteral("two")});
        column.show();
        popup.showPopup();
        const QWidget* list = popup.view();
        EXPECT_EQ(surfaceOf(list), systemSurface());
        EXPECT_EQ(list->palette().color(QPalette::Text), color(ColorRole::text, systemSurface()));
        const QImage image = popup.view()->viewport()->grab().toImage();
        const QPoint lastCorner = image.rect().bottomRight() - QPoint(2, 2);
        EXPECT_EQ(image.pixelColor(lastCorner), color(ColorRole::menu, systemSurface()));
    }
}

TEST(LookTest, textsAreShownAsTheyStand) {
    for (const QString& text :
         {QStringLiteral("<img src=x>"), QStringLiteral("a&b"), QStringLiteral("a &amp;  b"),
          QStringLiteral("&&"), QStringLiteral("one\ntwo"),
          QStringLiteral("<b>  long &amp; ").repeated(9) + u'.'}) {
        EXPECT_EQ(textOfTitle(titleText(text)), text);
        EXPECT_TRUE(Qt::mightBeRichText(toolTipText(text)));
        QTextDocument toolTip;
        toolTip.setHtml(toolTipText(text));
        EXPECT_EQ(toolTip.toPlainText(), text);
    }
    EXPECT_EQ(toolTipText(QString()), QString());
    QLabel longName(toolTipText(QString(255, u'm')));
    longName.setTextFormat(Qt::RichText);
    longName.setWordWrap(true);
    EXPECT_LE(longName.sizeHint().width(), 61 * longName.fontMetrics().horizontalAdvance(u'm'));
    EXPECT_EQ(textOfTitle(QStringLiteral("&Open && &Close&")), QStringLiteral("Open & Close"));

    QLabel label(QStringLiteral("<b>bold</b>"));
    label.ensurePolished();
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

/// The window's content as the user sees it, in device pixels.
QImage imageOf(QWidget& window, double ratio = 1) {
    QImage image((QSizeF(window.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    window.render(&image);
    return image;
}

/// The lowest row of `columns` with dark ink between the borders of the control; -1 if none.
int lowestInk(const QImage& image, int left, int right) {
    const int margin = image.height() / 6;
    for (int y = image.height() - margin; y >= margin; --y) {
        for (int x = left; x < right; ++x) {
            if (qGray(image.pixel(x, y)) < 100) return y;
        }
    }
    return -1;
}

TEST_F(MetricsTest, textsOfARowStandOnOneBaseline) {
    setSystemDark(false);
    const QString text = QStringLiteral("HHH");
    for (const int u : {11, 13, 15, 20}) {
        setInterfaceFont(u);
        auto* combo = new QComboBox;
        combo->addItem(text);
        auto* editable = new QComboBox;
        editable->setEditable(true);
        editable->addItem(text);
        auto* spin = new QSpinBox;
        spin->setPrefix(text);
        std::vector<std::unique_ptr<QWidget>> controls;
        for (QWidget* control : std::initializer_list<QWidget*>{
                 new QPushButton(text), new QLabel(text), new QCheckBox(text), new QLineEdit(text),
                 combo, editable, spin}) {
            controls.emplace_back(control);
        }
        for (const double ratio : {1.0, 2.0}) {
            for (const auto& control : controls) {
                control->resize(160, metrics().controlHeight(ControlSize::regular));
                control->ensurePolished();
                const double baseline =
                    control->height() / 2.0 +
                    baselineOffset(QFontMetricsF(metrics().font(FontRole::regular)));
                const auto from = dynamic_cast<QCheckBox*>(control.get()) != nullptr ? 22 : 2;
                const int last = lowestInk(imageOf(*control, ratio),
                                           static_cast<int>(metrics().px(from) * ratio),
                                           static_cast<int>(80 * ratio));
                // Fields lay their text on whole px, which may be halves of what the device has.
                const auto tolerance = ratio == 1 ? 0 : 1;
                ASSERT_LE(std::abs(last + 1 - std::lround(baseline * ratio)), tolerance)
                    << control->metaObject()->className() << " at " << u << " px, ratio " << ratio;
            }
        }
    }
}

/// A window with a button between neighbours that touch it.
class FocusRingTest : public testing::Test {
protected:
    FocusRingTest() {
        setSystemDark(false);
        window_.resize(300, 200);
        for (QPushButton* button : {&first_, &second_}) button->resize(80, 24);
        first_.move(20, 40);
        second_.move(120, 40);
        neighbour_.setAutoFillBackground(true);
        neighbour_.setGeometry(200, 30, 60, 60);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    /// True if the ring lies all around the rectangle of the window, without a gap.
    bool hasRingAbout(const QRect& rect) {
        const QImage image = imageOf(window_);
        const QRgb ring = color(ColorRole::focusRing, Surface::light).rgb();
        const auto isRing = [&](int x, int y) { return image.pixel(x, y) == ring; };
        for (int x = rect.left() + 8; x <= rect.right() - 8; ++x) {
            if (!isRing(x, rect.top() - 1) || !isRing(x, rect.top() - 2)) return false;
            if (!isRing(x, rect.bottom() + 1) || !isRing(x, rect.bottom() + 2)) return false;
        }
        const int y = rect.center().y();
        return isRing(rect.left() - 1, y) && isRing(rect.left() - 2, y) &&
               isRing(rect.right() + 1, y) && isRing(rect.right() + 2, y);
    }

    QRect rectOf(const QWidget& control) {
        return {control.mapTo(&window_, QPoint(0, 0)), control.size()};
    }

    QWidget window_;
    QPushButton first_{QStringLiteral("First"), &window_};
    QPushButton second_{QStringLiteral("Second"), &window_};
    QWidget neighbour_{&window_};
};

TEST_F(FocusRingTest, comesWithKeysAndGoesWithTheMouse) {
    QTest::mouseClick(&first_, Qt::LeftButton);
    first_.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(hasRingAbout(rectOf(first_)));
    QTest::keyClick(&first_, Qt::Key_Shift);
    EXPECT_FALSE(hasRingAbout(rectOf(first_))) << "a modifier alone says nothing";

    QTest::keyClick(&first_, Qt::Key_Tab);
    ASSERT_TRUE(second_.hasFocus());
    EXPECT_TRUE(hasRingAbout(rectOf(second_))) << "also over the neighbour that touches it";
    neighbour_.setGeometry(190, 30, 70, 60);
    second_.raise();
    neighbour_.raise();
    EXPECT_TRUE(hasRingAbout(rectOf(second_))) << "also over what comes to the top later";
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window_)->childCount(), 3);
    EXPECT_FALSE(hasRingAbout(rectOf(first_)));

    QTest::mouseClick(&neighbour_, Qt::LeftButton);
    ASSERT_TRUE(second_.hasFocus());
    EXPECT_FALSE(hasRingAbout(rectOf(second_)));
    QTest::keyClick(&second_, Qt::Key_A);
    EXPECT_TRUE(hasRingAbout(rectOf(second_)));

    QLineEdit field(&window_);
    field.setGeometry(20, 100, 100, 24);
    field.show();
    QTest::mouseClick(&field, Qt::LeftButton);
    field.setFocus(Qt::MouseFocusReason);
    EXPECT_TRUE(hasRingAbout(rectOf(field))) << "fields show where letters will go";
}

TEST_F(FocusRingTest, followsItsControl) {
    QWidget group(&window_);
    group.setGeometry(100, 30, 90, 60);
    second_.setParent(&group);
    second_.move(5, 5);
    group.show();
    second_.show();
    second_.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(hasRingAbout(rectOf(second_)));
    second_.move(0, 0);
    EXPECT_TRUE(hasRingAbout(rectOf(second_))) << "beyond the edges of its parent";
    group.move(50, 100);
    EXPECT_TRUE(hasRingAbout(rectOf(second_)));
    second_.resize(60, 30);
    EXPECT_TRUE(hasRingAbout(rectOf(second_)));
    group.hide();
    EXPECT_FALSE(hasRingAbout(rectOf(second_)));
    second_.setParent(&window_);
}

TEST_F(FocusRingTest, scrollsWithTheDocument) {
    QScrollArea area(&window_);
    area.setFrameShape(QFrame::NoFrame);
    area.setGeometry(0, 0, 300, 150);
    auto* document = new QWidget;
    document->resize(250, 600);
    auto* button = new QPushButton(QStringLiteral("Scrolled"), document);
    button->setGeometry(20, 60, 100, 24);
    area.setWidget(document);
    area.show();
    button->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(hasRingAbout(QRect(20, 60, 100, 24)));
    area.verticalScrollBar()->setValue(40);
    EXPECT_TRUE(hasRingAbout(QRect(20, 20, 100, 24)));
    area.verticalScrollBar()->setValue(200);
    const QImage image = imageOf(window_);
    const QRgb ring = color(ColorRole::focusRing, Surface::light).rgb();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ASSERT_NE(image.pixel(x, y), ring);
    }
    area.hide();
    area.show();
    area.verticalScrollBar()->setValue(0);
    button->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(hasRingAbout(QRect(20, 60, 100, 24)));
}

TEST(StandardIcons, FollowTheModeAndTheDirectionOfReading) {
    const auto drawn = [](QStyle::StandardPixmap standard, Qt::LayoutDirection direction) {
        return standardIconFor(standard, direction)->pixmap(32).toImage();
    };
    const QImage back = drawn(QStyle::SP_ArrowBack, Qt::LeftToRight);
    const QImage mirrored = drawn(QStyle::SP_ArrowBack, Qt::RightToLeft);
    EXPECT_GT(back.pixelColor(11, 16).alpha(), mirrored.pixelColor(11, 16).alpha()) << "its tip";
    EXPECT_LT(back.pixelColor(20, 16).alpha(), mirrored.pixelColor(20, 16).alpha());
    EXPECT_EQ(drawn(QStyle::SP_FileDialogToParent, Qt::RightToLeft),
              drawn(QStyle::SP_FileDialogToParent, Qt::LeftToRight));
    setSystemDark(true);
    EXPECT_NE(drawn(QStyle::SP_ArrowBack, Qt::LeftToRight), back);
    setSystemDark(false);
    EXPECT_FALSE(standardIconFor(QStyle::SP_TrashIcon, Qt::LeftToRight));
}

}  // namespace
}  // namespace marquell::toolkit
