// SPDX-License-Identifier: GPL-3.0-or-later
// Shows everything that the toolkit can do, for developers: to look at, to try, and as pictures.
#include <QApplication>
#include <QCommandLineParser>
#include <QFontDatabase>
#include <cstdio>

#include "GalleryWindow.h"
#include "shell/DesktopAppearance.h"
#include "shell/DesktopFonts.h"
#include "shell/MacOSVersion.h"
#include "shell/QtMainQueue.h"
#include "toolkit/drawing/Brand.h"
#include "toolkit/look/HouseStyle.h"
#include "toolkit/look/Surface.h"

namespace marquell::gallery {
namespace {

const Page* pageNamed(const QString& name) {
    for (const Page& page : pages()) {
        if (QString::fromUtf8(page.name) == name) return &page;
    }
    return nullptr;
}

void readOptions(QCommandLineParser& parser, const QApplication& application) {
    parser.setApplicationDescription(QStringLiteral("Shows the controls of Marquell."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("page"), QStringLiteral("The page to begin with."), QStringLiteral("name")},
        {QStringLiteral("list"), QStringLiteral("Print the names of the pages, and end.")},
        {QStringLiteral("dark"), QStringLiteral("Begin in dark mode, whatever the desktop's is.")},
        {QStringLiteral("light"), QStringLiteral("The same in light mode.")},
        {QStringLiteral("font"), QStringLiteral("The interface font, 13 px high."),
         QStringLiteral("family")},
        {QStringLiteral("size"), QStringLiteral("The window's size."), QStringLiteral("WxH")},
        {QStringLiteral("picture"), QStringLiteral("Save a picture of the page, and end."),
         QStringLiteral("file")},
    });
    parser.process(application);
}

int complain(const QString& message) {
    std::fprintf(stderr, "marquell-gallery: %s\n", qPrintable(message));
    return 2;
}

/// The desktop's mode and fonts, now and as they change. To be made before furnish().
class Desktop {
public:
    Desktop() : appearance_(version(), QDBusConnection::sessionBus()) {}

    void follow(GalleryWindow& window, bool mode, bool fonts) {
        if (mode) {
            version().applyLook = toolkit::setSystemDark;
            appearance_.waitForAnswer(std::chrono::milliseconds(50));
            toolkit::setSystemDark(version().isDarkMode());
            listener_->reference = [&window](bool) { window.darkModeChanged(); };
            version().addDarkModeChangeListener(listener_);
        }
        if (!fonts) return;
        fonts_.emplace(QDBusConnection::sessionBus(), [this, &window] {
            const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
            window.setFonts(fonts_->interfaceFont().value_or(window.font()),
                            fonts_->monospaceFont().value_or(fixed));
        });
    }

private:
    static shell::MacOSVersion& version() { return shell::MacOSVersion::singleton(); }

    std::shared_ptr<shell::WeakDarkModeListenerFuncReference> listener_ =
        std::make_shared<shell::WeakDarkModeListenerFuncReference>();
    shell::DesktopAppearance appearance_;
    std::optional<shell::DesktopFonts> fonts_;
};

/// 0 by 0 if the text is no size.
QSize sizeFrom(const QString& text) {
    const auto sides = text.split(QLatin1Char('x'));
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize(0, 0);
}

/// A program without a display can still tell of itself and make pictures.
void doWithoutDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (qEnvironmentVariableIsSet(name)) return;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

int savePicture(GalleryWindow& window, const QString& file) {
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents();
    if (!window.page()->grab().save(file)) return complain(file + QStringLiteral(": cannot write"));
    return 0;
}

int run(int argc, char** argv) {
    doWithoutDisplay();
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    readOptions(parser, application);
    const auto given = [&](const char* name) { return parser.isSet(QLatin1String(name)); };
    if (given("list")) {
        for (const Page& page : pages()) std::puts(page.name);
        return 0;
    }
    const QString name = parser.value(QStringLiteral("page"));
    const Page* page = name.isEmpty() ? &pages().front() : pageNamed(name);
    if (!page) return complain(QStringLiteral("%1: no such page (see --list)").arg(name));
    const QSize size =
        given("size") ? sizeFrom(parser.value(QStringLiteral("size"))) : QSize(1180, 780);
    if (size.isEmpty()) return complain(QStringLiteral("--size: expected something like 1180x780"));
    if (!parser.positionalArguments().isEmpty()) {
        return complain(parser.positionalArguments().front() + QStringLiteral(": no option"));
    }

    shell::QtMainQueue mainQueue;
    platform::MainQueue::install(&mainQueue);
    Desktop desktop;
    toolkit::furnish();
    QApplication::setWindowIcon(toolkit::applicationIcon());
    GalleryWindow window;
    if (given("font")) {
        QFont font(parser.value(QStringLiteral("font")));
        font.setPixelSize(13);
        window.setFonts(font, QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
    const bool isModeGiven = given("dark") || given("light");
    if (isModeGiven) toolkit::setSystemDark(given("dark"));
    desktop.follow(window, !isModeGiven, !given("font"));
    window.darkModeChanged();
    window.showPage(*page);
    window.resize(size);
    if (given("picture")) return savePicture(window, parser.value(QStringLiteral("picture")));
    window.show();
    return QApplication::exec();
}

}  // namespace

}  // namespace marquell::gallery

int main(int argc, char** argv) { return marquell::gallery::run(argc, argv); }
