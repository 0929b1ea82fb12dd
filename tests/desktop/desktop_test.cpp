#include "desktop_test_case.h"
#include "notifier_host.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString skipTaskBar = u"_NET_WM_STATE_SKIP_TASKBAR"_s;
const QString hidden = u"_NET_WM_STATE_HIDDEN"_s;
const QStringList menuBelowTheCount = {u"-"_s, u"Settings…"_s, u"-"_s, u"Quit Fennick"_s};

QByteArray listOf(int count) {
    QJsonArray rows;
    for (int number = 1; number <= count; ++number) {
        const QString name = u"receipt %1.pdf"_s.arg(number);
        rows.append(
            QJsonObject{{u"id"_s, u"00000000-0000-4000-8000-%1"_s.arg(number, 12, 10, QLatin1Char('0'))},
                        {u"fileName"_s, name},
                        {u"filePath"_s, u"/receipts/"_s + name},
                        {u"category"_s, u"misc"_s},
                        {u"summary"_s, u"A receipt."_s},
                        {u"scannedAt"_s, u"2024-05-01T12:30:00Z"_s},
                        {u"status"_s, u"done"_s},
                        {u"addedToPhotos"_s, false}});
    }
    return QJsonDocument(rows).toJson();
}

} // namespace

// The program's windows, keys, task-bar entry and tray icon on a desktop.
class DesktopTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() { session().renew(); }

    void cleanup() {
        session().program.kill();
        desktop().stopTray();
    }

    void closedWindowHidesInTheTrayAndComesBackOnASecondStart() {
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(waitFor([] { return VirtualDesktop::trayIcon().has_value(); }));
        QVERIFY(VirtualDesktop::press(*mainWindow(), u"ctrl+w"_s));
        QVERIFY(waitFor([] { return !mainWindow(); }));
        QVERIFY(secondStartEndsWithSuccess());
        QVERIFY(waitFor([] { return mainWindow() && VirtualDesktop::isActive(*mainWindow()); }));
        QCOMPARE(VirtualDesktop::windowCount(mainTitle), 1);
        QVERIFY(session().program.isRunning());
    }

    void closedWindowIsMinimisedWithoutATrayAndRestoredByASecondStart() {
        QVERIFY(startProgram());
        const QString window = *mainWindow();
        QVERIFY(VirtualDesktop::press(window, u"ctrl+w"_s));
        QVERIFY(waitFor([&window] { return VirtualDesktop::hasState(window, hidden); }));
        QVERIFY(secondStartEndsWithSuccess());
        QVERIFY(waitFor([&window] {
            return !VirtualDesktop::hasState(window, hidden) && VirtualDesktop::isActive(window);
        }));
        QCOMPARE(VirtualDesktop::windowCount(mainTitle), 1);
    }

    void hiddenWindowIsMinimisedWhenItsTrayVanishes() {
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(hideIntoTray());
        desktop().stopTray();
        QVERIFY(waitFor([] { return mainWindow() && VirtualDesktop::hasState(*mainWindow(), hidden); }));
    }

    void hiddenWindowIsMinimisedWhenItsNotifierHostVanishes() {
        auto host = std::make_unique<NotifierHost>();
        QVERIFY(startProgram());
        QVERIFY(waitFor([&host] { return host->hasIcon(); }));
        QVERIFY(VirtualDesktop::press(*mainWindow(), u"ctrl+w"_s));
        QVERIFY(waitFor([] { return !mainWindow(); }));
        host.reset();
        QVERIFY(waitFor([] { return mainWindow() && VirtualDesktop::hasState(*mainWindow(), hidden); }));
    }

    void secondStartWhileTheWindowIsOpenShowsNoSecondWindow() {
        QVERIFY(startProgram());
        const QString window = *mainWindow();
        QVERIFY(secondStartEndsWithSuccess());
        QVERIFY(waitFor([&window] { return VirtualDesktop::isActive(window); }));
        QCOMPARE(VirtualDesktop::windowCount(mainTitle), 1);
    }

    void quitKeyEndsTheProgramWithTheWindowOpen() {
        QVERIFY(startProgram());
        QVERIFY(VirtualDesktop::press(*mainWindow(), u"ctrl+q"_s));
        QVERIFY(session().program.endsWithSuccess());
    }

    void menuBarModeKeepsTheWindowOutOfTheTaskBar() {
        session().setPreference("menuBarMode", "true");
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(waitFor([] { return VirtualDesktop::hasState(*mainWindow(), skipTaskBar); }));
        QVERIFY(waitFor([] { return VirtualDesktop::trayIcon().has_value(); }));
    }

    void menuBarModeHoldsAfterTheWindowWasHidden() {
        session().setPreference("menuBarMode", "true");
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(waitFor([] { return VirtualDesktop::hasState(*mainWindow(), skipTaskBar); }));
        QVERIFY(VirtualDesktop::press(*mainWindow(), u"ctrl+w"_s));
        QVERIFY(waitFor([] { return !mainWindow(); }));
        QVERIFY(secondStartEndsWithSuccess());
        QVERIFY(waitFor([] { return mainWindow() && VirtualDesktop::hasState(*mainWindow(), skipTaskBar); }));
    }

    void menuBarModeSwitchActsAtOnceOnTheOpenWindows() {
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(waitFor([] { return VirtualDesktop::trayIcon().has_value(); }));
        const QString window = *mainWindow();
        UnmapRecorder recorder(window);
        QVERIFY(recorder.waitUntilRecording());
        QVERIFY(openSettings());
        const QString settings = *VirtualDesktop::window(settingsTitle);
        QVERIFY(!VirtualDesktop::hasState(window, skipTaskBar));
        QVERIFY(!VirtualDesktop::hasState(settings, skipTaskBar));
        for (const bool isHidden : {true, false}) {
            QVERIFY(pressMenuBarModeSwitch());
            for (const QString &each : {window, settings}) {
                QVERIFY(waitFor([&] { return VirtualDesktop::hasState(each, skipTaskBar) == isHidden; }));
            }
        }
        QVERIFY(!recorder.hasSeenUnmapping());
        QVERIFY(VirtualDesktop::press(window, u"ctrl+w"_s)); // which the recorder does see
        QVERIFY(waitFor([&recorder] { return recorder.hasSeenUnmapping(); }));
    }

    void clickOnTheTrayIconShowsTheWindow() {
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(hideIntoTray());
        QVERIFY(clickTrayIcon(1, [] { return mainWindow() && VirtualDesktop::isActive(*mainWindow()); }));
    }

    void trayMenuShowsTheReceipts() {
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(hideIntoTray());
        QVERIFY(openTrayMenu());
        VirtualDesktop::pressForMenu({u"Down"_s, u"Return"_s});
        QVERIFY(waitFor([] { return mainWindow() && VirtualDesktop::isActive(*mainWindow()); }));
    }

    void trayMenuQuitsTheProgram() {
        desktop().startTray();
        QVERIFY(startProgram());
        QVERIFY(hideIntoTray());
        QVERIFY(openTrayMenu());
        VirtualDesktop::pressForMenu({u"Up"_s, u"Return"_s});
        QVERIFY(session().program.endsWithSuccess());
    }

    void menuOfANotifierTrayTellsTheCount_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << 0 << u"No receipts yet"_s;
        QTest::newRow("one") << 1 << u"1 receipts"_s;
        QTest::newRow("twelve") << 12 << u"12 receipts"_s;
    }
    void menuOfANotifierTrayTellsTheCount() {
        QFETCH(int, count);
        QFETCH(QString, text);
        if (count > 0) {
            writeFile(session().home.receiptsFile(), listOf(count));
        }
        const NotifierHost host;
        QVERIFY(startProgram());
        QVERIFY(waitFor([&host] { return host.hasIcon(); }));
        QCOMPARE(host.menuTexts(), QStringList({u"Show Receipts"_s, text}) + menuBelowTheCount);
        QVERIFY(!host.isEnabled(text));
        QVERIFY(host.isEnabled(u"Show Receipts"_s));
    }

    void countFollowsTheList() {
        const NotifierHost host;
        QVERIFY(startProgram());
        QVERIFY(waitFor([&host] { return host.hasIcon(); }));
        session().drop(u"a.pdf"_s);
        QVERIFY(waitFor([&host] { return host.menuTexts().value(1) == u"1 receipts"; }));
    }

    void menuOfANotifierTrayShowsWindowsAndQuits() {
        const NotifierHost host;
        QVERIFY(startProgram());
        QVERIFY(waitFor([&host] { return host.hasIcon(); }));
        QVERIFY(VirtualDesktop::press(*mainWindow(), u"ctrl+w"_s));
        QVERIFY(waitFor([] { return !mainWindow(); }));
        QVERIFY(host.choose(u"Show Receipts"_s));
        QVERIFY(waitFor([] { return mainWindow() && VirtualDesktop::isActive(*mainWindow()); }));
        QVERIFY(host.choose(u"Settings…"_s));
        QVERIFY(waitFor([] { return VirtualDesktop::window(settingsTitle).has_value(); }));
        QVERIFY(host.choose(u"Quit Fennick"_s));
        QVERIFY(session().program.endsWithSuccess());
    }

    void toolBarAndTableTellTheirRolesAndNames() {
        writeFile(session().home.receiptsFile(), listOf(1));
        QVERIFY(startProgram());
        const QStringList told = rolesAndNames(mainTitle);
        for (const QString &each :
             {u"push button: Choose Folder"_s, u"button menu: Export"_s, u"button menu: Archive & Clear"_s,
              u"push button: Clear All"_s, u"table: Receipts"_s, u"column header: Date"_s,
              u"column header: Amount"_s, u"column header: Location"_s, u"column header: Category"_s,
              u"column header: Summary"_s, u"column header: Photos"_s}) {
            QVERIFY2(told.contains(each), qPrintable(each));
        }
    }

    void settingsControlsTellTheirRolesAndNames() {
        QVERIFY(startProgram());
        QVERIFY(openSettings());
        const QStringList told = rolesAndNames(settingsTitle);
        for (const QString &each :
             {u"panel: Watched Folder"_s, u"panel: Gemini"_s, u"panel: Photos Export"_s, u"panel: Archive"_s,
              u"panel: Startup & Background"_s, u"text: API Key"_s, u"push button: Save Key"_s,
              u"text: Model"_s, u"check box: Add receipts to Photos"_s,
              u"check box: Group into a dated album"_s, u"push button: Grant Photos Access"_s,
              u"push button: Reset"_s, u"check box: Launch at login"_s,
              u"check box: Run in menu bar (hide Dock icon)"_s}) {
            QVERIFY2(told.count(each) == 1, qPrintable(each));
        }
        QCOMPARE(told.count(u"push button: Choose…"_s), 2); // the watched and the archive folder
    }

private:
    static std::optional<QString> mainWindow() { return VirtualDesktop::window(mainTitle); }

    bool waitFor(const std::function<bool()> &condition, int milliseconds = patience) const {
        return session().waitFor(condition, milliseconds);
    }

    // Also waits for the window.
    bool startProgram() {
        return session().start() &&
               waitFor([] { return mainWindow() && VirtualDesktop::isActive(*mainWindow()); });
    }

    static bool secondStartEndsWithSuccess() {
        FennickProgram second;
        second.start();
        return second.endsWithSuccess();
    }

    bool hideIntoTray() {
        return waitFor([] { return VirtualDesktop::trayIcon().has_value(); }) &&
               VirtualDesktop::press(*mainWindow(), u"ctrl+w"_s) && waitFor([] { return !mainWindow(); });
    }

    bool openTrayMenu() {
        return clickTrayIcon(3, [] { return VirtualDesktop::isMenuOpen(); });
    }

    // The panel may just be moving its icons: whose click misses clicks again.
    bool clickTrayIcon(int button, const std::function<bool()> &hasWorked) const {
        for (int click = 0; click < 20; ++click) {
            VirtualDesktop::click(*VirtualDesktop::trayIcon(), button);
            if (waitFor(hasWorked, 5000)) {
                return true;
            }
        }
        return false;
    }

    bool openSettings() {
        return VirtualDesktop::press(*mainWindow(), u"ctrl+comma"_s) &&
               waitFor([] { return VirtualDesktop::window(settingsTitle).has_value(); });
    }

    std::optional<Accessible> element(const QString &window, const QString &role, const QString &name) {
        const QList<Accessible> all = accessibility().elements(window);
        const auto found = std::find_if(all.begin(), all.end(), [&](const Accessible &each) {
            return each.role == role && each.name == name;
        });
        return found == all.end() ? std::nullopt : std::optional(*found);
    }

    QStringList rolesAndNames(const QString &window) const {
        QStringList told;
        const QList<Accessible> all = accessibility().elements(window);
        for (const Accessible &each : all) {
            told.append(each.role + u": "_s + each.name);
        }
        return told;
    }

    bool pressMenuBarModeSwitch() {
        const auto control = element(settingsTitle, u"check box"_s, u"Run in menu bar (hide Dock icon)"_s);
        return control && accessibility().grabFocus(*control) &&
               VirtualDesktop::press(*VirtualDesktop::window(settingsTitle), u"space"_s);
    }
};

int desktop_test(int argc, char **argv) {
    return runTest<QCoreApplication, DesktopTest>(argc, argv);
}
#include "desktop_test.moc"
