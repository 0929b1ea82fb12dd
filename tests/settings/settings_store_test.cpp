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
using test::readFile;
using test::writeFile;

class SettingsStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() {
        QFile::remove(home_.preferencesFile());
        QFile::remove(home_.path(QStringLiteral("system-config/Fennick/Fennick.conf")));
        test::PrivateSession::clearKey();
    }

    void freshInstallationHasTheDefaults() {
        const SettingsStore settings;
        QVERIFY(!settings.watchFolderPath());
        QVERIFY(!settings.archiveFolderPath());
        QCOMPARE(settings.model(), QStringLiteral("gemini-2.5-flash"));
        QVERIFY(!settings.openAtLogin());
        QVERIFY(!settings.menuBarMode());
        QVERIFY(settings.addToPhotos());
        QVERIFY(settings.groupIntoAlbum());
        QVERIFY(!settings.hasAPIKey());
    }

    void everyAssignmentIsWrittenAtOnceUnderItsKey() {
        SettingsStore settings;
        settings.setWatchFolderPath(QStringLiteral("/home/a, b/Receipts"));
        settings.setArchiveFolderPath(QStringLiteral("/archive"));
        settings.setModel(QStringLiteral("other-model"));
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
        QCOMPARE(restarted.watchFolderPath(), QStringLiteral("/home/a, b/Receipts"));
        QCOMPARE(restarted.archiveFolderPath(), QStringLiteral("/archive"));
        QCOMPARE(restarted.model(), QStringLiteral("other-model"));
        QVERIFY(restarted.openAtLogin());
        QVERIFY(restarted.menuBarMode());
        QVERIFY(!restarted.addToPhotos());
        QVERIFY(!restarted.groupIntoAlbum());
    }

    void unchangedValueIsWrittenAllTheSame() {
        SettingsStore settings;
        settings.setModel(QStringLiteral("m"));
        QVERIFY(QFile::remove(home_.preferencesFile()));
        settings.setModel(QStringLiteral("m"));
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
        settings.setModel(QStringLiteral("first"));
        QString announced;
        QByteArray writtenThen;
        connect(&settings, &SettingsStore::changed, this, [&] {
            announced = settings.model();
            writtenThen = readFile(home_.preferencesFile());
        });
        settings.setModel(QStringLiteral("second"));
        QCOMPARE(announced, QStringLiteral("second"));
        QVERIFY2(writtenThen.contains("model=first\n"), writtenThen.constData());
        QVERIFY(readFile(home_.preferencesFile()).contains("model=second\n"));
    }

    void absentFolderRemovesTheKey() {
        SettingsStore settings;
        settings.setWatchFolderPath(QStringLiteral("/w"));
        settings.setArchiveFolderPath(QStringLiteral("/a"));
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
        QCOMPARE(settings.model(), QStringLiteral("gemini-2.5-flash"));
    }

    void modelNamedLikeABooleanStaysAText() {
        SettingsStore().setModel(QStringLiteral("true"));
        QCOMPARE(SettingsStore().model(), QStringLiteral("true"));
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
        QCOMPARE(settings.serviceAddress(), QStringLiteral("https://generativelanguage.googleapis.com"));
        writeFile(home_.path(QStringLiteral("system-config/Fennick/Fennick.conf")),
                  "[General]\ngeminiEndpoint=https://system.example\n");
        QCOMPARE(settings.serviceAddress(), QStringLiteral("https://system.example"));
        writeFile(home_.preferencesFile(), "[General]\ngeminiEndpoint=http://127.0.0.1:47111\n");
        QCOMPARE(settings.serviceAddress(), QStringLiteral("http://127.0.0.1:47111"));
    }

    void serviceAddressNamedLikeABooleanReadsAsAbsent() {
        writeFile(home_.preferencesFile(), "[General]\ngeminiEndpoint=true\n");
        QCOMPARE(SettingsStore().serviceAddress(),
                 QStringLiteral("https://generativelanguage.googleapis.com"));
    }

    void keyIsStoredTrimmed() {
        SettingsStore settings;
        settings.setAPIKey(QStringLiteral("  \tAIza-key \n"));
        QVERIFY(settings.hasAPIKey());
        QCOMPARE(test::PrivateSession::lookUpKey(), QByteArray("AIza-key"));
        QVERIFY(SettingsStore().hasAPIKey());
    }

    void keyReadAfterASettingIsTheNewOne() {
        test::PrivateSession::storeKey("old");
        SettingsStore settings;
        auto before = settings.storedAPIKey();
        auto sameMoment = settings.storedAPIKey();
        settings.setAPIKey(QStringLiteral("new"));
        auto after = settings.storedAPIKey();
        QCOMPARE(before.result(), QStringLiteral("old"));
        QCOMPARE(sameMoment.result(), QStringLiteral("old"));
        QCOMPARE(after.result(), QStringLiteral("new"));
    }

    void blankKeyClearsTheStoredOne() {
        SettingsStore settings;
        settings.setAPIKey(QStringLiteral("key"));
        settings.setAPIKey(QStringLiteral(" \n "));
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
            settings.setAPIKey(QStringLiteral("new"));
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
        settings.setAPIKey(QStringLiteral("new"));
        const bool isStored = settings.finishStoringAPIKey();
        QCOMPARE(::kill(store, SIGCONT), 0);
        QVERIFY(!isStored);
    }

    void keyNeverLandsInThePreferences() {
        SettingsStore settings;
        settings.setAPIKey(QStringLiteral("AIza-secret"));
        settings.setModel(QStringLiteral("m"));
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
