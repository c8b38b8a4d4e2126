// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>
#include <functional>
#include <memory>
#include <set>
#include <variant>

#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/drawing/Brand.h"
#include "toolkit/drawing/BricksDrawing.h"
#include "toolkit/drawing/DarkControlSkin.h"
#include "toolkit/drawing/DrawingPalette.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

using Draw = std::function<void(QPainter& painter)>;

QImage drawn(const QSize& size, const Draw& draw, double devicePixelRatio = 1) {
    QImage image(size * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter);
    return image;
}

/// The pixels that are not clear.
QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

std::set<int> opacitiesIn(const QImage& image, const QRect& rect) {
    std::set<int> opacities;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            opacities.insert(qAlpha(image.pixel(x, y)));
        }
    }
    return opacities;
}

TEST(Palette, OfTheWrongCaseIsRed) {
    const auto isRed = [](const DrawingPalette& palette) {
        const ShapeColors colors = shapeColors(palette);
        return colors.fill == Qt::red && colors.stroke == Qt::red && colors.text == Qt::red;
    };
    const GradientAndStrokeAndTextPalette gradient{{{0, Qt::white}}, Qt::blue, Qt::green};
    EXPECT_TRUE(isRed(TextColorPalette{Qt::blue}));
    EXPECT_TRUE(isRed(BackgroundColorPalette{Qt::blue}));
    EXPECT_TRUE(isRed(gradient));
    EXPECT_TRUE(isRed(EmptyPalette{}));
    EXPECT_EQ(shapeColors(FillAndStrokePalette{Qt::blue, Qt::green}).text.alpha(), 0);
    const auto wrong = gradientShapeColors(FillAndStrokePalette{Qt::blue, Qt::green});
    EXPECT_EQ(wrong.gradient.first().second, Qt::red);
    EXPECT_EQ(wrong.gradient.last().second, Qt::blue);
    EXPECT_EQ(gradientShapeColors(gradient).text, Qt::green);
}

class FramingSkin : public GenericControlSkin {
public:
    DrawingPalette defaultNormalFillAndStrokeAndTextColorsPalette() const override {
        return FrameColorPalette{Qt::blue};
    }
};

TEST(Skin, LabelsAreRedWithoutATextColour) {
    const auto labelColor = [](const ControlSkin& skin) {
        return std::get<TextColorPalette>(skin.labelPalette()).color;
    };
    EXPECT_EQ(labelColor(ControlSkin()), Qt::red);
    EXPECT_EQ(labelColor(FramingSkin()), Qt::red);
    EXPECT_EQ(labelColor(GenericControlSkin()), Qt::black);
    EXPECT_EQ(labelColor(DarkControlSkin()), Qt::green);
}

TEST(Skin, LooksThatItDoesNotHaveAreTheStyles) {
    const PushButtonBrick button;
    EXPECT_FALSE(ControlSkin().normalPushButtonDrawingStack(button).has_value());
    EXPECT_FALSE(ControlSkin().highlightedPushButtonDrawingStack(button).has_value());
}

TEST(Skin, ButtonsShowTheTitleOfTheMoment) {
    PushButtonBrick button(QStringLiteral("MM"), [] {});
    const auto stack = DarkControlSkin().normalPushButtonDrawingStack(button);
    const auto image = [&] {
        return drawn({100, 24},
                     [&](QPainter& painter) { stack->draw(painter, QRectF(0, 0, 100, 24)); });
    };
    const auto greenPixels = [](const QImage& picture) {
        int count = 0;
        for (int i = 0; i < picture.width() * picture.height(); ++i) {
            const QRgb pixel = picture.pixel(i % picture.width(), i / picture.width());
            if (qGreen(pixel) > qRed(pixel) + 60) ++count;
        }
        return count;
    };
    const int before = greenPixels(image());
    EXPECT_GT(before, 0);
    button.setTitle(QStringLiteral("MMMMMM"));
    EXPECT_GT(greenPixels(image()), 2 * before);
    button.setTitle({});
    EXPECT_EQ(greenPixels(image()), 0);
}

TEST(Skin, AFrameColourDrawsTheOutlineOnly) {
    const QImage image = drawn({60, 24}, [](QPainter& painter) {
        GenericControlSkin::drawPushButton(painter, QRectF(0, 0, 60, 24), {},
                                           FrameColorPalette{Qt::blue});
    });
    EXPECT_EQ(inkOf(image), QRect(2, 2, 56, 20));
    EXPECT_EQ(image.pixelColor(30, 2), Qt::blue);
    EXPECT_EQ(opacitiesIn(image, QRect(6, 3, 48, 18)), std::set<int>{0});
}

TEST(Skin, LengthsGrowWithTheInterfaceFont) {
    const QFont usual = metrics().font(FontRole::regular);
    QFont large = usual;
    large.setPixelSize(30);
    setInterfaceFonts(large, large);
    const QRectF frame(0, 0, 60, 60);
    const auto button = [&](const DrawingShadow& shadow) {
        return inkOf(drawn({60, 60}, [&](QPainter& painter) {
            BricksDrawing::drawPushButton(painter, frame, Qt::white, Qt::blue, Qt::black, {},
                                          shadow);
        }));
    };
    EXPECT_EQ(button({Qt::transparent, {}, 0}), QRect(4, 4, 52, 52));
    EXPECT_EQ(button({Qt::black, {0, 1}, 1}), QRect(2, 4, 56, 56));
    const QImage panel = drawn({60, 60}, [&](QPainter& painter) {
        MarquellStyleKit::drawFragmentFrame(painter, frame, frame, 20);
    });
    EXPECT_EQ(panel.pixel(20, 39), MarquellStyleKit::parameterWallBlue().rgb());
    EXPECT_EQ(panel.pixelColor(20, 40), Qt::white);
    setInterfaceFonts(usual, usual);
}

TEST(ResizingBehavior, FitsACanvasToAFrame) {
    const QRectF canvas(0, 0, 10, 20);
    const QRectF target(100, 0, 40, 40);
    EXPECT_EQ(apply(ResizingBehavior::aspectFit, canvas, target), QRectF(110, 0, 20, 40));
    EXPECT_EQ(apply(ResizingBehavior::aspectFill, canvas, target), QRectF(100, -20, 40, 80));
    EXPECT_EQ(apply(ResizingBehavior::stretch, canvas, target), target);
    EXPECT_EQ(apply(ResizingBehavior::center, canvas, target), QRectF(115, 10, 10, 20));
}

TEST(MarquellStyleKit, IconsAreSharpInAnyResolution) {
    using Kit = MarquellStyleKit;
    const QColor ink = Qt::black;
    for (const int scale : {1, 2, 3}) {
        const QImage table = Kit::imageOfTablePreviewIconMini(scale, ink).toImage();
        const QImage page = Kit::imageOfTextOutputIconMini(scale, ink).toImage();
        const auto scaled = [&](const QRect& rect) {
            return QRect(rect.topLeft() * scale, rect.size() * scale);
        };
        EXPECT_EQ(table.size(), QSize(19, 19) * scale);
        EXPECT_EQ(inkOf(table), scaled({3, 4, 13, 12}));
        EXPECT_EQ(inkOf(page), scaled({4, 3, 11, 14}));
        // Nothing is blurred but at the round corners.
        const std::set<int> sharp{0, 255};
        EXPECT_EQ(opacitiesIn(table, scaled({5, 4, 9, 12})), sharp);
        EXPECT_EQ(opacitiesIn(table, scaled({3, 6, 13, 8})), sharp);
        EXPECT_EQ(opacitiesIn(page, scaled({6, 3, 7, 14})), sharp);
    }
    const QImage uneven = Kit::imageOfTablePreviewIconMini(1.5, ink).toImage();
    EXPECT_EQ(opacitiesIn(uneven, QRect(8, 0, 13, 29)), (std::set<int>{0, 255}));
    EXPECT_EQ(Kit::imageOfTablePreviewIconMini2().size(), QSize(38, 38));
    EXPECT_EQ(Kit::imageOfTextOutputIconMini3().size(), QSize(57, 57));
    EXPECT_EQ(Kit::imageOfTextOutputIconMini(2).cacheKey(),
              Kit::imageOfTextOutputIconMini2().cacheKey());
    EXPECT_NE(Kit::imageOfTextOutputIconMini(2, ink).cacheKey(),
              Kit::imageOfTextOutputIconMini2().cacheKey());
}

TEST(MarquellStyleKit, DrawsFragmentsInTheirFrames) {
    using Kit = MarquellStyleKit;
    const QRectF frame(0, 0, 400, 15);
    for (const int scale : {1, 2}) {
        const auto line = drawn(
            {400, 15}, [&](QPainter& p) { Kit::drawFragmentBottom(p, frame); }, scale);
        EXPECT_EQ(inkOf(line), QRect(16 * scale, 14 * scale, 368 * scale, scale));
        EXPECT_EQ(line.pixelColor(100, 15 * scale - 1), QColor(0xba, 0xba, 0xba));
    }
    const auto top = drawn({400, 15}, [&](QPainter& p) { Kit::drawFragmentTop(p, frame); });
    EXPECT_TRUE(inkOf(top).isEmpty());

    const QImage leaf = Kit::imageOfFragmentBackground({40, 30}).toImage();
    EXPECT_EQ(inkOf(leaf), QRect(2, 2, 36, 26));
    EXPECT_EQ(qAlpha(leaf.pixel(2, 2)), 0);
    EXPECT_EQ(qAlpha(leaf.pixel(37, 27)), 0);
    EXPECT_EQ(qAlpha(leaf.pixel(37, 2)), 255);
    EXPECT_EQ(qAlpha(leaf.pixel(2, 27)), 255);
    EXPECT_EQ(leaf.pixelColor(20, 15), QColor(0x6d, 0xad, 0xe3));
}

TEST(Brand, IsDrawnInEverySize) {
    EXPECT_EQ(logoFrame(QRectF(0, 5, 400, 600)), QRectF(118, 13, 164, 22));
    for (const int scale : {1, 3}) {
        const auto logo = drawn(
            {164, 22}, [](QPainter& p) { drawLogo(p, QRectF(0, 0, 164, 22)); }, scale);
        EXPECT_EQ(inkOf(logo), QRect(0, scale, 164 * scale, 20 * scale));
    }
    const QIcon icon = applicationIcon();
    for (const int side : {16, 24, 48, 256}) {
        const QImage image = icon.pixmap(QSize(side, side), 1.0).toImage();
        EXPECT_EQ(image.size(), QSize(side, side));
        EXPECT_GT(inkOf(image).width(), side * 3 / 4);
    }
}

}  // namespace
}  // namespace marquell::toolkit
