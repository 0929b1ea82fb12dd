#include "support/conditions.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/fennick_app.h"
#include "ui/settings/settings_view.h"

#include <QAction>
#include <QApplication>
#include <QDir>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

template <typename Window>
QList<Window *> windows() {
    QList<Window *> found;
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *const widget : widgets) {
        if (auto *const window = qobject_cast<Window *>(widget); window != nullptr) {
            found.append(window);
        }
    }
    return found;
}

QAction *action(const char *name) {
    return windows<MainWindow>().first()->findChild<QAction *>(QString::fromLatin1(name));
}

} // namespace

class FennickAppTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        watched_ = home_.path(u"watched"_s);
        QDir().mkpath(watched_);
        writeFile(home_.preferencesFile(), "[General]\nwatchFolder=" + watched_.toUtf8() + '\n');
        app_ = std::make_unique<FennickApp>();
        app_->showMainWindow();
    }

    void cleanup() { app_.reset(); }

    void watchingStartsWhenTheWindowAppears() {
        letTimePass(100);
        writeFile(watched_ + u"/a.pdf"_s, "x");
        QVERIFY(waitUntil([this] { return readList().contains("API key not configured"); }));
    }

    void closedWindowIsMinimisedWhereThereIsNoTray() {
        MainWindow *const window = windows<MainWindow>().first();
        window->close();
        QVERIFY(window->isVisible());
        QVERIFY(window->isMinimized());
        app_->showMainWindow();
        QVERIFY(!window->isMinimized());
    }

    void showingTwiceMakesNoSecondWindow() {
        app_->showMainWindow();
        app_->showMainWindow();
        QCOMPARE(windows<MainWindow>().size(), 1);
    }

    void settingsOpenOnceAndAnew() {
        action("settings")->trigger();
        action("settings")->trigger();
        QCOMPARE(windows<SettingsView>().size(), 1);
        windows<SettingsView>().first()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(windows<SettingsView>().isEmpty());
        action("settings")->trigger();
        QCOMPARE(windows<SettingsView>().size(), 1);
    }

    void quitEndsTheProgramWithItsWindowOpen() {
        QTimer::singleShot(0, qApp, [] { action("quit")->trigger(); });
        QTimer tooLate;
        tooLate.setSingleShot(true);
        connect(&tooLate, &QTimer::timeout, qApp, [] { QCoreApplication::exit(99); });
        tooLate.start(patience);
        QCOMPARE(QApplication::exec(), 0);
    }

private:
    QByteArray readList() const {
        return QFile::exists(home_.receiptsFile()) ? readFile(home_.receiptsFile()) : QByteArray();
    }

    TemporaryHome home_;
    PrivateSession session_;
    QString watched_;
    std::unique_ptr<FennickApp> app_;
};

int fennick_app_test(int argc, char **argv) {
    return runTest<QApplication, FennickAppTest>(argc, argv);
}
#include "fennick_app_test.moc"
