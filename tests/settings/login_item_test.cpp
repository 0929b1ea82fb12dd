#include "settings/login_item.h"
#include "settings/settings_store.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QFile>

using namespace fennick;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

// The program is started at login when the preference says so, whether or not a window shows it.
class LoginItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() {
        QFile::remove(home_.preferencesFile());
        QFile::remove(entry());
    }

    void registrationFollowsThePreference() {
        SettingsStore settings;
        const LoginItem item(&settings);
        settings.setOpenAtLogin(true);
        QVERIFY(QFile::exists(entry()));
        settings.setOpenAtLogin(false);
        QVERIFY(!QFile::exists(entry()));
    }

    void initialValueIsNotApplied() {
        SettingsStore().setOpenAtLogin(true);
        SettingsStore settings;
        const LoginItem item(&settings);
        settings.setModel(u"other"_s);
        settings.setOpenAtLogin(true);
        QVERIFY(!QFile::exists(entry()));
    }

    void otherChangesLeaveTheEntryAsItIs() {
        SettingsStore settings;
        const LoginItem item(&settings);
        settings.setOpenAtLogin(true);
        writeFile(entry(), "[Desktop Entry]\nExec=by-hand\n");
        settings.setMenuBarMode(true);
        QCOMPARE(readFile(entry()), QByteArray("[Desktop Entry]\nExec=by-hand\n"));
    }

private:
    QString entry() const { return home_.path(u"config/autostart/org.fennick.Fennick.desktop"_s); }

    test::TemporaryHome home_;
    test::PrivateSession session_;
};

int login_item_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, LoginItemTest>(argc, argv);
}
#include "login_item_test.moc"
