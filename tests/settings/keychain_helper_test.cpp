#include "settings/keychain_helper.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;

class KeychainHelperTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { test::PrivateSession::clearKey(); }

    void withoutAnItemThereIsNoKey() { QVERIFY(!KeychainHelper::apiKey()); }

    void storedKeyIsFoundByOtherPrograms() {
        KeychainHelper::setAPIKey(QStringLiteral("AIza-test"));
        QCOMPARE(test::PrivateSession::lookUpKey(), QByteArray("AIza-test"));
    }

    void keyOfAnotherProgramIsFound() {
        test::PrivateSession::storeKey("from-outside");
        QCOMPARE(KeychainHelper::apiKey(), QStringLiteral("from-outside"));
    }

    void storingTwiceLeavesOneItemWithTheSecondKey() {
        KeychainHelper::setAPIKey(QStringLiteral("first"));
        KeychainHelper::setAPIKey(QStringLiteral("second"));
        QCOMPARE(KeychainHelper::apiKey(), QStringLiteral("second"));
        QCOMPARE(test::PrivateSession::keyCount(), 1);
    }

    void storingReplacesAnItemOfAnotherProgram() {
        test::PrivateSession::storeKey("from-outside");
        KeychainHelper::setAPIKey(QStringLiteral("second"));
        QCOMPARE(test::PrivateSession::keyCount(), 1);
    }

    void clearingRemovesTheItemAndIsHarmlessWithoutOne() {
        KeychainHelper::setAPIKey(QStringLiteral("key"));
        KeychainHelper::clearAPIKey();
        QVERIFY(!KeychainHelper::apiKey());
        KeychainHelper::clearAPIKey();
        QVERIFY(!KeychainHelper::apiKey());
    }

    void nonAsciiKeyReadsBackUnchanged() {
        const QString key = QStringLiteral("  Schlüssel-鍵-\U0001F511 ");
        KeychainHelper::setAPIKey(key);
        QCOMPARE(KeychainHelper::apiKey(), key);
    }

    void keyThatBeginsWithAByteOrderMarkIsReadAsItIs() {
        const QString key = QStringLiteral("\uFEFF\uFEFFkey");
        KeychainHelper::setAPIKey(key);
        QCOMPARE(KeychainHelper::apiKey(), key);
        test::PrivateSession::storeKey("\xEF\xBB\xBF"
                                       "from-outside");
        QCOMPARE(KeychainHelper::apiKey(), QStringLiteral("\uFEFFfrom-outside"));
    }

    void emptyItemReadsAsEmptyText() {
        KeychainHelper::setAPIKey(QString());
        const auto key = KeychainHelper::apiKey();
        QVERIFY(key);
        QVERIFY(key->isEmpty());
    }

    void bytesThatAreNoUtf8ReadAsNoKey() {
        test::PrivateSession::storeKey("\xFF\xFE");
        QVERIFY(!KeychainHelper::apiKey());
    }

    // The last one: the store is not the same afterwards.
    void afterAFailedAddThereIsNoItem() {
        test::PrivateSession::refuseKeysBeside("old");
        QCOMPARE(KeychainHelper::apiKey(), QStringLiteral("old"));
        KeychainHelper::setAPIKey(QStringLiteral("new"));
        QCOMPARE(test::PrivateSession::keyCount(), 0);
        QVERIFY(!KeychainHelper::apiKey());
    }

private:
    // The store would ask somebody at a display for a new collection.
    struct NoDisplay {
        NoDisplay() {
            qunsetenv("DISPLAY");
            qunsetenv("WAYLAND_DISPLAY");
        }
    };

    NoDisplay noDisplay_;
    test::TemporaryHome home_;
    test::PrivateSession session_;
};

int keychain_helper_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, KeychainHelperTest>(argc, argv);
}
#include "keychain_helper_test.moc"
