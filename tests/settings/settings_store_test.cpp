#include "settings/settings_store.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>

#include <csignal>
#include <memory>
#include <thread>

using namespace fennick;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

class SettingsStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() {
        QFile::remove(home_.preferencesFile());
        QFile::remove(home_.path(u"system-config/Fennick/Fennick.conf"_s));
        test::PrivateSession::clearKey();
    }

    void freshInstallationHasTheDefaults() {
        const SettingsStore settings;
        QVERIFY(!settings.watchFolderPath());
        QVERIFY(!settings.archiveFolderPath());
        QCOMPARE(settings.model(), u"gemini-2.5-flash"_s);
        QVERIFY(!settings.openAtLogin());
        QVERIFY(!settings.menuBarMode());
        QVERIFY(settings.addToPhotos());
        QVERIFY(settings.groupIntoAlbum());
        QVERIFY(!settings.hasAPIKey());
    }

    void everyAssignmentIsWrittenAtOnceUnderItsKey() {
        SettingsStore settings;
        settings.setWatchFolderPath(u"/home/a, b/Receipts"_s);
        settings.setArchiveFolderPath(u"/archive"_s);
        settings.setModel(u"other-model"_s);
        settings.setOpenAtLogin(true);
        settings.setMenuBarMode(true);
        settings.setAddToPhotos(false);
        settings.setGroupIntoAlbum(false);
        QCOMPARE(readFile(home_.preferencesFile()), QByteArray("[General]\n"
                                                               "addToPhotos=false\n"
                                                               "archiveFolder=/archive\n"
                                                               "groupIntoAlbum=false\n"
                                                               "menuBarMode=true\n"
                                                               "model=other-model\n"
                                                               "openAtLogin=true\n"
                                                               "watchFolder=\"/home/a, b/Receipts\"\n"));
        const SettingsStore restarted;
        QCOMPARE(restarted.watchFolderPath(), u"/home/a, b/Receipts"_s);
        QCOMPARE(restarted.archiveFolderPath(), u"/archive"_s);
        QCOMPARE(restarted.model(), u"other-model"_s);
        QVERIFY(restarted.openAtLogin());
        QVERIFY(restarted.menuBarMode());
        QVERIFY(!restarted.addToPhotos());
        QVERIFY(!restarted.groupIntoAlbum());
    }

    void unchangedValueIsWrittenAllTheSame() {
        SettingsStore settings;
        settings.setModel(u"m"_s);
        QVERIFY(QFile::remove(home_.preferencesFile()));
        settings.setModel(u"m"_s);
        QVERIFY(readFile(home_.preferencesFile()).contains("model=m\n"));
    }

    void everyAssignmentIsAnnounced() {
        SettingsStore settings;
        QSignalSpy changes(&settings, &SettingsStore::changed);
        settings.setWatchFolderPath(std::nullopt);
        settings.setArchiveFolderPath(std::nullopt);
        settings.setModel(settings.model());
        settings.setOpenAtLogin(false);
        settings.setMenuBarMode(false);
        settings.setAddToPhotos(true);
        settings.setGroupIntoAlbum(true);
        settings.setAPIKey(QString());
        QCOMPARE(changes.size(), 8);
    }

    void assignmentIsAnnouncedBeforeItIsWritten() {
        SettingsStore settings;
        settings.setModel(u"first"_s);
        QString announced;
        QByteArray writtenThen;
        connect(&settings, &SettingsStore::changed, this, [&] {
            announced = settings.model();
            writtenThen = readFile(home_.preferencesFile());
        });
        settings.setModel(u"second"_s);
        QCOMPARE(announced, u"second"_s);
        QVERIFY2(writtenThen.contains("model=first\n"), writtenThen.constData());
        QVERIFY(readFile(home_.preferencesFile()).contains("model=second\n"));
    }

    void absentFolderRemovesTheKey() {
        SettingsStore settings;
        settings.setWatchFolderPath(u"/w"_s);
        settings.setArchiveFolderPath(u"/a"_s);
        settings.setWatchFolderPath(std::nullopt);
        settings.setArchiveFolderPath(std::nullopt);
        QVERIFY(!readFile(home_.preferencesFile()).contains("Folder"));
        QVERIFY(!SettingsStore().watchFolderPath());
    }

    void emptyFolderTextStaysAnEmptyText() {
        SettingsStore().setWatchFolderPath(QString());
        QCOMPARE(SettingsStore().watchFolderPath(), QString());
    }

    void photoSwitchesAreOnUnlessABooleanSaysOtherwise_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<bool>("expected");
        QTest::newRow("false") << QByteArray("false") << false;
        QTest::newRow("true") << QByteArray("true") << true;
        QTest::newRow("text false") << QByteArray("\"false\"") << true;
        QTest::newRow("NO") << QByteArray("NO") << true;
        QTest::newRow("0") << QByteArray("0") << true;
    }
    void photoSwitchesAreOnUnlessABooleanSaysOtherwise() {
        QFETCH(QByteArray, stored);
        QFETCH(bool, expected);
        writeFile(home_.preferencesFile(), "[General]\naddToPhotos=" + stored + "\ngroupIntoAlbum=" + stored);
        const SettingsStore settings;
        QCOMPARE(settings.addToPhotos(), expected);
        QCOMPARE(settings.groupIntoAlbum(), expected);
    }

    void startupSwitchesAreOffUnlessSomethingTrueIsStored_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<bool>("expected");
        QTest::newRow("true") << QByteArray("true") << true;
        QTest::newRow("false") << QByteArray("false") << false;
        QTest::newRow("YES") << QByteArray("YES") << true;
        QTest::newRow("1") << QByteArray("1") << true;
        QTest::newRow("0") << QByteArray("0") << false;
        QTest::newRow("text") << QByteArray("sometimes") << false;
    }
    void startupSwitchesAreOffUnlessSomethingTrueIsStored() {
        QFETCH(QByteArray, stored);
        QFETCH(bool, expected);
        writeFile(home_.preferencesFile(), "[General]\nopenAtLogin=" + stored + "\nmenuBarMode=" + stored);
        const SettingsStore settings;
        QCOMPARE(settings.openAtLogin(), expected);
        QCOMPARE(settings.menuBarMode(), expected);
    }

    void valuesOfTheWrongTypeReadAsAbsent() {
        writeFile(home_.preferencesFile(), "[General]\nwatchFolder=true\narchiveFolder=false\nmodel=true\n");
        const SettingsStore settings;
        QVERIFY(!settings.watchFolderPath());
        QVERIFY(!settings.archiveFolderPath());
        QCOMPARE(settings.model(), u"gemini-2.5-flash"_s);
    }

    void modelNamedLikeABooleanStaysAText() {
        SettingsStore().setModel(u"true"_s);
        QCOMPARE(SettingsStore().model(), u"true"_s);
    }

    void otherEntriesOfTheFileSurvive() {
        writeFile(home_.preferencesFile(),
                  "[General]\ngeminiEndpoint=http://127.0.0.1:1\n[Window]\nwidth=900\n");
        SettingsStore().setMenuBarMode(true);
        const QByteArray content = readFile(home_.preferencesFile());
        QVERIFY(content.contains("geminiEndpoint=http://127.0.0.1:1\n"));
        QVERIFY(content.contains("[Window]\nwidth=900\n"));
        QVERIFY(content.contains("menuBarMode=true\n"));
    }

    void serviceAddressIsThePublicHostUnlessConfigured() {
        const SettingsStore settings;
        QCOMPARE(settings.serviceAddress(), u"https://generativelanguage.googleapis.com"_s);
        writeFile(home_.path(u"system-config/Fennick/Fennick.conf"_s),
                  "[General]\ngeminiEndpoint=https://system.example\n");
        QCOMPARE(settings.serviceAddress(), u"https://system.example"_s);
        writeFile(home_.preferencesFile(), "[General]\ngeminiEndpoint=http://127.0.0.1:47111\n");
        QCOMPARE(settings.serviceAddress(), u"http://127.0.0.1:47111"_s);
    }

    void chosenServiceAddressIsWrittenAndThePublicOneTakenOut() {
        SettingsStore settings;
        QSignalSpy changes(&settings, &SettingsStore::changed);
        settings.setServiceAddress(u"on-device"_s);
        QCOMPARE(settings.serviceAddress(), u"on-device"_s);
        QVERIFY(readFile(home_.preferencesFile()).contains("geminiEndpoint=on-device\n"));
        settings.setServiceAddress(u"https://generativelanguage.googleapis.com"_s);
        QVERIFY(!readFile(home_.preferencesFile()).contains("geminiEndpoint"));
        QCOMPARE(changes.size(), 2);

        writeFile(home_.path(u"system-config/Fennick/Fennick.conf"_s),
                  "[General]\ngeminiEndpoint=on-device\n");
        settings.setServiceAddress(u"https://generativelanguage.googleapis.com"_s);
        QCOMPARE(settings.serviceAddress(), u"https://generativelanguage.googleapis.com"_s);
    }

    void serviceAddressNamedLikeABooleanReadsAsAbsent() {
        writeFile(home_.preferencesFile(), "[General]\ngeminiEndpoint=true\n");
        QCOMPARE(SettingsStore().serviceAddress(), u"https://generativelanguage.googleapis.com"_s);
    }

    void keyIsStoredTrimmed() {
        SettingsStore settings;
        settings.setAPIKey(u"  \tAIza-key \n"_s);
        QVERIFY(settings.hasAPIKey());
        QCOMPARE(test::PrivateSession::lookUpKey(), QByteArray("AIza-key"));
        QVERIFY(SettingsStore().hasAPIKey());
    }

    void keyReadAfterASettingIsTheNewOne() {
        test::PrivateSession::storeKey("old");
        SettingsStore settings;
        auto before = settings.storedAPIKey();
        auto sameMoment = settings.storedAPIKey();
        settings.setAPIKey(u"new"_s);
        auto after = settings.storedAPIKey();
        QCOMPARE(before.result(), u"old"_s);
        QCOMPARE(sameMoment.result(), u"old"_s);
        QCOMPARE(after.result(), u"new"_s);
    }

    void blankKeyClearsTheStoredOne() {
        SettingsStore settings;
        settings.setAPIKey(u"key"_s);
        settings.setAPIKey(u" \n "_s);
        QVERIFY(!settings.hasAPIKey());
        QCOMPARE(test::PrivateSession::keyCount(), 0);
    }

    void storedBlanksCountAsAKey() {
        test::PrivateSession::storeKey(" ");
        QVERIFY(SettingsStore().hasAPIKey());
    }

    void keyIsStoredBeforeTheEndHoweverSlowTheStoreIs() {
        test::PrivateSession::storeKey("old");
        const auto store = static_cast<pid_t>(session_.secretStoreId());
        std::jthread slowness;
        {
            SettingsStore settings;
            QVERIFY(settings.hasAPIKey());
            QCOMPARE(::kill(store, SIGSTOP), 0);
            settings.setAPIKey(u"new"_s);
            slowness = std::jthread([store] {
                std::this_thread::sleep_for(std::chrono::seconds(1));
                ::kill(store, SIGCONT);
            });
            QVERIFY(settings.finishStoringAPIKey());
        }
        QCOMPARE(test::PrivateSession::lookUpKey(), QByteArray("new"));
    }

    void keyThatCannotBeStoredIsNoticedAtTheEnd() {
        test::PrivateSession::storeKey("old");
        const auto store = static_cast<pid_t>(session_.secretStoreId());
        SettingsStore settings;
        QVERIFY(settings.hasAPIKey());
        QCOMPARE(::kill(store, SIGSTOP), 0);
        settings.setAPIKey(u"new"_s);
        const bool isStored = settings.finishStoringAPIKey();
        QCOMPARE(::kill(store, SIGCONT), 0);
        QVERIFY(!isStored);
    }

    void keyNeverLandsInThePreferences() {
        SettingsStore settings;
        settings.setAPIKey(u"AIza-secret"_s);
        settings.setModel(u"m"_s);
        QVERIFY(!readFile(home_.preferencesFile()).contains("AIza-secret"));
    }

private:
    test::TemporaryHome home_;
    test::PrivateSession session_;
};

int settings_store_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, SettingsStoreTest>(argc, argv);
}
#include "settings_store_test.moc"
