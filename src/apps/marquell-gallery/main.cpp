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

using namespace marquell;
using namespace marquell::gallery;

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

/// The desktop's mode and fonts, now and as they change, unless options say otherwise.
class Desktop {
public:
    Desktop(GalleryWindow& window, bool followsMode)
        : appearance_(version(), QDBusConnection::sessionBus()),
          fonts_(QDBusConnection::sessionBus(), [this, &window] {
              window.setFonts(fonts_.interfaceFont().value_or(window.font()),
                              fonts_.monospaceFont().value_or(
                                  QFontDatabase::systemFont(QFontDatabase::FixedFont)));
          }) {
        if (!followsMode) return;
        version().applyLook = toolkit::setSystemDark;
        appearance_.waitForAnswer(std::chrono::milliseconds(50));
        toolkit::setSystemDark(version().isDarkMode());
        listener_->reference = [&window](bool) { window.darkModeChanged(); };
        version().addDarkModeChangeListener(listener_);
    }

private:
    static shell::MacOSVersion& version() { return shell::MacOSVersion::singleton(); }

    std::shared_ptr<shell::WeakDarkModeListenerFuncReference> listener_ =
        std::make_shared<shell::WeakDarkModeListenerFuncReference>();
    shell::DesktopAppearance appearance_;
    shell::DesktopFonts fonts_;
};

int savePicture(GalleryWindow& window, const QString& file) {
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents();
    if (!window.page()->grab().save(file)) return complain(file + QStringLiteral(": cannot write"));
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser parser;
    readOptions(parser, application);
    if (parser.isSet(QStringLiteral("list"))) {
        for (const Page& page : pages()) std::puts(page.name);
        return 0;
    }
    const QString name = parser.value(QStringLiteral("page"));
    const Page* page = name.isEmpty() ? &pages().front() : pageNamed(name);
    if (!page) return complain(QStringLiteral("%1: no such page (see --list)").arg(name));

    shell::QtMainQueue mainQueue;
    platform::MainQueue::install(&mainQueue);
    toolkit::furnish();
    QApplication::setWindowIcon(toolkit::applicationIcon());
    GalleryWindow window;
    const bool isModeGiven =
        parser.isSet(QStringLiteral("dark")) || parser.isSet(QStringLiteral("light"));
    if (parser.isSet(QStringLiteral("font"))) {
        QFont font(parser.value(QStringLiteral("font")));
        font.setPixelSize(13);
        window.setFonts(font, QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
    const Desktop desktop(window, !isModeGiven);
    if (isModeGiven) toolkit::setSystemDark(parser.isSet(QStringLiteral("dark")));
    window.darkModeChanged();
    window.showPage(*page);

    const auto size = parser.value(QStringLiteral("size")).split(QLatin1Char('x'));
    window.resize(size.size() == 2 ? QSize(size[0].toInt(), size[1].toInt()) : QSize(1180, 780));
    if (parser.isSet(QStringLiteral("picture"))) {
        return savePicture(window, parser.value(QStringLiteral("picture")));
    }
    window.show();
    return QApplication::exec();
}
