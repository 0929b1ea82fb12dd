#include "platform/login_service.h"
#include "settings/login_item.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <memory>

using namespace fennick;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

class LoginServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<test::TemporaryHome>();
        entry_ = home_->path(u"config/autostart/org.fennick.Fennick.desktop"_s);
    }

    void registeringWritesAnAutostartEntryForThisProgram() {
        QCOMPARE(LoginService::status(), LoginService::Status::notRegistered);
        QVERIFY(setLaunchAtLogin(true));
        QCOMPARE(LoginService::status(), LoginService::Status::enabled);
        const QByteArray entry = readFile(entry_);
        QVERIFY(entry.startsWith("[Desktop Entry]\nType=Application\nName=Fennick\n"));
        QVERIFY(entry.contains("Exec=\"" + QCoreApplication::applicationFilePath().toUtf8() + "\"\n"));
    }

    void registeringTwiceDoesNotRegisterAgain() {
        writeFile(entry_, "[Desktop Entry]\nExec=by-hand\n");
        QVERIFY(setLaunchAtLogin(true));
        QCOMPARE(readFile(entry_), QByteArray("[Desktop Entry]\nExec=by-hand\n"));
    }

    void entryThatIsSwitchedOffIsRegisteredAnew() {
        writeFile(entry_, "[Desktop Entry]\nHidden=true\n");
        QCOMPARE(LoginService::status(), LoginService::Status::notRegistered);
        QVERIFY(setLaunchAtLogin(true));
        QCOMPARE(LoginService::status(), LoginService::Status::enabled);
    }

    void unregisteringRemovesTheEntry() {
        QVERIFY(setLaunchAtLogin(true));
        QVERIFY(setLaunchAtLogin(false));
        QVERIFY(!QFileInfo::exists(entry_));
        QVERIFY(setLaunchAtLogin(false));
    }

    void failureIsToldByTheResult() {
        writeFile(home_->path(u"config/autostart"_s), "a file where the folder should be");
        QVERIFY(!setLaunchAtLogin(true));
    }

private:
    std::unique_ptr<test::TemporaryHome> home_;
    QString entry_;
};

int login_service_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, LoginServiceTest>(argc, argv);
}
#include "login_service_test.moc"
