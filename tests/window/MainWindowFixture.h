// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <memory>
#include <string>
#include <vector>

#include "metadata/MetadataStorage.h"
#include "pipeline/OutputEngine.h"
#include "platform/MainQueue.h"
#include "platform/Surroundings.h"
#include "shell/EventLoop.h"
#include "shell/QtMainQueue.h"
#include "shell/QtPasteboard.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/look/PlainText.h"
#include "window/MainContentViewController.h"
#include "window/MainWindow.h"

namespace marquell::tests {

/// The whole window over settings of its own, which marquell-list finds under `config`.
class MainWindowFixture : public testing::Test {
protected:
    MainWindowFixture() {
        platform::MainQueue::install(&mainQueue);
        metadata::MetadataStorage::shared().clear();
        std::filesystem::create_directories(config / "marquell");
        openSettings();
    }
    ~MainWindowFixture() override {
        close();
        defaults.reset();
        QCoreApplication::sendPostedEvents();
        metadata::MetadataStorage::shared().clear();
        platform::MainQueue::install(nullptr);
    }

    void openSettings() {
        defaults = platform::UserDefaults::open(config / "marquell/settings.json",
                                                [](const auto& problem) { FAIL() << problem; });
    }

    void open() {
        model = std::make_unique<pipeline::DataModel>(defaults);
        engine = std::make_unique<pipeline::OutputEngine>(*model, pasteboard);
        window = window::MainWindow::makeMainWindow(*model, *engine);
        window->resize(1180, 760);
        QApplication::setActiveWindow(window.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        engine->startListening();
    }

    void close() {
        window.reset();
        engine.reset();
        model.reset();
    }

    /// Until the text of the newest settings is shown.
    void settle() {
        ASSERT_TRUE(waitUntil([this] { return engine->maySave() && actionButton()->isEnabled(); }));
    }

    /// The descendants of that kind; Qt's own search doesn't tell our kinds apart.
    template <typename View>
    std::vector<View*> all() const {
        std::vector<View*> views;
        for (QWidget* each : window->findChildren<QWidget*>()) {
            if (auto* view = dynamic_cast<View*>(each)) views.push_back(view);
        }
        return views;
    }
    /// The one that is to be seen and goes by the name.
    template <typename View>
    View* find(const QString& name) const {
        for (View* view : all<View>()) {
            if (view->isVisible() && nameOf(view) == name) return view;
        }
        return nullptr;
    }

    toolkit::PushButtonBrick* button(const QString& title) const {
        return find<toolkit::PushButtonBrick>(title);
    }
    toolkit::PushButtonBrick* actionButton() const {
        for (const char* title : {"Save", "Copy to Clipboard"}) {
            if (auto* found = button(QString::fromUtf8(title))) return found;
        }
        return nullptr;
    }
    toolkit::PopUpButtonBrick* popUp(const QString& label) const {
        return find<toolkit::PopUpButtonBrick>(label);
    }
    /// The user's choice.
    static void choose(toolkit::PopUpButtonBrick* popUp, int index) {
        popUp->setFocus();
        popUp->showPopup();
        auto* list = popUp->view();
        const QModelIndex item = list->model()->index(index, 0, list->rootIndex());
        list->scrollTo(item);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(item).center());
    }

    /// As at the keyboard. Without a screen nobody gives the window back what a closed list had.
    void press(Qt::Key key, QWidget* target) const {
        QApplication::setActiveWindow(window.get());
        QTest::keyClick(target, key);
    }

    /// Drops files on what is seen at the place, as a file manager does.
    void dropFiles(const std::vector<std::string>& paths, QWidget* target) const {
        QMimeData files;
        QList<QUrl> urls;
        for (const std::string& path : paths) {
            urls << QUrl::fromLocalFile(QString::fromStdString(path));
        }
        files.setUrls(urls);
        const QPoint place = target->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &enter);
        ASSERT_TRUE(enter.isAccepted());
        QDropEvent drop(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &drop);
        ASSERT_TRUE(drop.isAccepted());
    }

    std::vector<std::string> sources() const { return model->sourceList.value().texts(); }

    shell::QtMainQueue mainQueue;
    TemporaryFolder config;
    TemporaryFolder root;
    std::shared_ptr<platform::UserDefaults> defaults;
    shell::QtPasteboard pasteboard;
    std::unique_ptr<pipeline::DataModel> model;
    std::unique_ptr<pipeline::OutputEngine> engine;
    std::unique_ptr<window::MainWindow> window;

private:
    static QString nameOf(const QWidget* view) {
        if (!view->accessibleName().isEmpty()) return view->accessibleName();
        if (auto* button = qobject_cast<const QAbstractButton*>(view)) {
            return toolkit::textOfTitle(button->text());
        }
        for (const auto* label : view->window()->findChildren<QLabel*>()) {
            if (label->buddy() == view) return label->text();
        }
        return {};
    }
};

}  // namespace marquell::tests
