#include "settings/keychain_helper.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

class KeychainHelperTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { test::PrivateSession::clearKey(); }

    void withoutAnItemThereIsNoKey() { QVERIFY(!KeychainHelper::apiKey()); }

    void storedKeyIsFoundByOtherPrograms() {
        KeychainHelper::setAPIKey(u"AIza-test"_s);
        QCOMPARE(test::PrivateSession::lookUpKey(), QByteArray("AIza-test"));
    }

    void keyOfAnotherProgramIsFound() {
        test::PrivateSession::storeKey("from-outside");
        QCOMPARE(KeychainHelper::apiKey(), u"from-outside"_s);
    }

    void storingTwiceLeavesOneItemWithTheSecondKey() {
        KeychainHelper::setAPIKey(u"first"_s);
        KeychainHelper::setAPIKey(u"second"_s);
        QCOMPARE(KeychainHelper::apiKey(), u"second"_s);
        QCOMPARE(test::PrivateSession::keyCount(), 1);
    }

    void storingReplacesAnItemOfAnotherProgram() {
        test::PrivateSession::storeKey("from-outside");
        KeychainHelper::setAPIKey(u"second"_s);
        QCOMPARE(test::PrivateSession::keyCount(), 1);
    }

    void clearingRemovesTheItemAndIsHarmlessWithoutOne() {
        KeychainHelper::setAPIKey(u"key"_s);
        KeychainHelper::clearAPIKey();
        QVERIFY(!KeychainHelper::apiKey());
        KeychainHelper::clearAPIKey();
        QVERIFY(!KeychainHelper::apiKey());
    }

    void nonAsciiKeyReadsBackUnchanged() {
        const QString key = u"  Schlüssel-鍵-\U0001F511 "_s;
        KeychainHelper::setAPIKey(key);
        QCOMPARE(KeychainHelper::apiKey(), key);
    }

    void keyThatBeginsWithAByteOrderMarkIsReadAsItIs() {
        const QString key = u"\uFEFF\uFEFFkey"_s;
        KeychainHelper::setAPIKey(key);
        QCOMPARE(KeychainHelper::apiKey(), key);
        test::PrivateSession::storeKey("\xEF\xBB\xBF"
                                       "from-outside");
        QCOMPARE(KeychainHelper::apiKey(), u"\uFEFFfrom-outside"_s);
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
        QCOMPARE(KeychainHelper::apiKey(), u"old"_s);
        KeychainHelper::setAPIKey(u"new"_s);
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
