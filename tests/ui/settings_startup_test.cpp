#include "settings_view_under_test.h"
#include "support/test_program.h"

#include <QApplication>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class SettingsStartupTest : public SettingsViewUnderTest {
    Q_OBJECT

private Q_SLOTS:
    void launchAtLoginFollowsTheSwitch() {
        show();
        click(toggle("launchAtLogin"));
        QVERIFY(QFile::exists(autostartFile()));
        click(toggle("launchAtLogin"));
        QVERIFY(!QFile::exists(autostartFile()));
    }

    void initialStartupValuesAreNotApplied() {
        settings_->setOpenAtLogin(true);
        settings_->setMenuBarMode(true);
        QFile::remove(autostartFile());
        create();
        QSignalSpy changed(view_.get(), &SettingsView::menuBarModeChanged);
        show();
        QVERIFY(toggle("launchAtLogin")->isChecked());
        type(field("model"), u"other"_s);
        QVERIFY(!QFile::exists(autostartFile()));
        QVERIFY(changed.isEmpty());
    }

    void switchStaysWhenRegistrationFails() {
        const QString folder = QFileInfo(autostartFile()).path();
        QDir(folder).removeRecursively();
        writeFile(folder, "no folder");
        show();
        click(toggle("launchAtLogin"));
        QVERIFY(QFile::remove(folder));
        QVERIFY(toggle("launchAtLogin")->isChecked());
        QVERIFY(settings_->openAtLogin());
    }

    void menuBarModeIsAnnouncedOncePerChange() {
        QSignalSpy changed(view_.get(), &SettingsView::menuBarModeChanged);
        show();
        click(toggle("menuBarMode"));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.takeFirst().first().toBool(), true);
        settings_->setModel(u"other"_s);
        QVERIFY(changed.isEmpty());
        click(toggle("menuBarMode"));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.takeFirst().first().toBool(), false);
    }

    void switchTellsWhenTheTaskBarEntryStays() {
        QCOMPARE(toggle("menuBarMode")->toolTip(), QString());
        view_ = std::make_unique<SettingsView>(appState_.get(), settings_.get(), false);
        QVERIFY(toggle("menuBarMode")->toolTip().contains(u"cannot hide its own task-bar entry"));
        QVERIFY(toggle("menuBarMode")->isEnabled());
    }
};

int settings_startup_test(int argc, char **argv) {
    return runTest<QApplication, SettingsStartupTest>(argc, argv);
}
#include "settings_startup_test.moc"
