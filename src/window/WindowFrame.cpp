// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowFrame.h"

#include <QByteArray>
#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <chrono>
#include <utility>

#include "toolkit/look/Metrics.h"

namespace marquell::window {
namespace {

constexpr std::chrono::milliseconds settling(500);
constexpr double shareOfScreen = 0.85;

}  // namespace

void WindowFrame::keep(QWidget& window, const std::string& name, const QSize& firstSize,
                       std::shared_ptr<platform::UserDefaults> defaults) {
    auto* frame = new WindowFrame(window, "NSWindow Frame " + name, std::move(defaults));
    if (!frame->restore()) frame->placeFirst(firstSize);
    window.installEventFilter(frame);
}

WindowFrame::WindowFrame(QWidget& window, std::string key,
                         std::shared_ptr<platform::UserDefaults> defaults)
    : QObject(&window), window_(window), key_(std::move(key)), defaults_(std::move(defaults)) {
    writing_.setSingleShot(true);
    writing_.setInterval(settling);
    connect(&writing_, &QTimer::timeout, this, &WindowFrame::write);
}

bool WindowFrame::restore() {
    const auto stored = defaults_->string(key_);
    return stored &&
           window_.restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(*stored)));
}

void WindowFrame::placeFirst(const QSize& firstSize) {
    const toolkit::Metrics& measure = toolkit::metrics();
    const QRect screen = window_.screen()->availableGeometry();
    const QSize wished(measure.px(firstSize.width()), measure.px(firstSize.height()));
    const QSize size =
        wished.boundedTo(screen.size() * shareOfScreen).expandedTo(window_.minimumSizeHint());
    QRect frame(QPoint(), size);
    frame.moveCenter(screen.center());
    window_.setGeometry(frame);
}

void WindowFrame::write() {
    const std::string frame = window_.saveGeometry().toBase64().toStdString();
    if (defaults_->string(key_) != frame) defaults_->setObject(frame, key_);
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange:
            if (window_.isVisible()) writing_.start();
            break;
        case QEvent::Close:
            writing_.stop();
            write();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace marquell::window
