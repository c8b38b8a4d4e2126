// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>
#include <variant>
#include <vector>

namespace marquell::toolkit {

/// Something that has a text to draw, which may change.
class TextProviderType {
public:
    virtual ~TextProviderType() = default;
    virtual QString getText() const = 0;
};

/// What an operation may draw beside shapes. A text provider is asked at each drawing.
using DrawingAsset =
    std::variant<QPixmap, QPainterPath, QString, std::shared_ptr<const TextProviderType>>;

// The colours of an operation; which of them it takes depends on the operation.
struct BackgroundColorPalette {
    QColor color;
};
struct TextColorPalette {
    QColor color;
};
struct FrameColorPalette {
    QColor color;
};
struct MainGradientPalette {
    QGradientStops gradient;
};
struct FillAndStrokePalette {
    QColor fill, stroke;
};
struct FillAndStrokeAndTextPalette {
    QColor fill, stroke, textColor;
};
struct GradientAndStrokeAndTextPalette {
    QGradientStops gradient;
    QColor stroke, textColor;
};
struct EmptyPalette {};

using DrawingPalette =
    std::variant<BackgroundColorPalette, TextColorPalette, FrameColorPalette, MainGradientPalette,
                 FillAndStrokePalette, FillAndStrokeAndTextPalette, GradientAndStrokeAndTextPalette,
                 EmptyPalette>;

/// One step of a look: paints assets in the colours of a palette into a frame.
struct DrawingOperation {
    using Function =
        std::function<void(QPainter& painter, const QRectF& frame,
                           const std::vector<DrawingAsset>& assets, const DrawingPalette& palette)>;
    using FrameAdjuster = std::function<QRectF(const QRectF& frame)>;

    /// What operations do without being told otherwise.
    class Defaults {
    public:
        static QRectF unchangedFrame(const QRectF& frame) { return frame; }
    };

    Function function;
    FrameAdjuster frameAdjuster = Defaults::unchangedFrame;
    std::vector<DrawingAsset> assets = {};
    DrawingPalette palette = EmptyPalette{};
};

/// A look: operations that run in order in place of a control's own drawing.
struct DrawingStack {
    void draw(QPainter& painter, const QRectF& frame) const;

    std::vector<DrawingOperation> operations;
};

/// A direct drawing function of a control's state; it wins over any stack.
struct TextDrawing {
    std::function<void(QPainter& painter, const QRectF& frame, const QString& text)> function;
};
struct ImageDrawing {
    std::function<void(QPainter& painter, const QRectF& frame, const QPixmap& image)> function;
};
struct PlainDrawing {
    std::function<void(QPainter& painter, const QRectF& frame)> function;
};
using ButtonDrawingFuncType = std::variant<TextDrawing, ImageDrawing, PlainDrawing>;

}  // namespace marquell::toolkit
