#include "settings_view_under_test.h"
#include "support/conditions.h"
#include "support/test_program.h"
#include "ui/widgets/caption_label.h"

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class SettingsGeminiTest : public SettingsViewUnderTest {
    Q_OBJECT

private Q_SLOTS:
    void storedKeyIsLoadedEachTimeTheWindowAppears() {
        PrivateSession::storeKey("first");
        create();
        QCOMPARE(field("apiKey")->text(), QString());
        show();
        waitUntil([&] { return field("apiKey")->text() == u"first"_s; });
        QCOMPARE(field("apiKey")->text(), u"first"_s);
        QVERIFY(!field("apiKey")->displayText().contains(u"first"));
        view_->close();
        PrivateSession::storeKey("second");
        show();
        waitUntil([&] { return field("apiKey")->text() == u"second"_s; });
        QCOMPARE(field("apiKey")->text(), u"second"_s);
        view_->close();
        PrivateSession::clearKey();
        show();
        waitUntil([&] { return field("apiKey")->text() == QString(); });
        QCOMPARE(field("apiKey")->text(), QString());
    }

    void fieldThatStillWaitsForTheStoredKeyDoesNotRemoveIt() {
        PrivateSession::storeKey("stored");
        create();
        view_->show();
        QCOMPARE(field("apiKey")->text(), QString());
        click(button("saveKey"));
        QCOMPARE(PrivateSession::lookUpKey(), "stored");
        waitUntil([&] { return field("apiKey")->text() == u"stored"_s; });
        QCOMPARE(field("apiKey")->text(), u"stored"_s);
    }

    void keyThatIsBeingTypedIsNotReplacedByTheStoredOne() {
        PrivateSession::storeKey("stored");
        create();
        view_->show();
        field("apiKey")->insert(u"typed"_s);
        field("apiKey")->setModified(true);
        QCOMPARE(settings_->storedAPIKey().result(), u"stored"_s); // asked after the window has
        QTest::qWait(0);
        QCOMPARE(field("apiKey")->text(), u"typed"_s);
    }

    void keyIsStoredByTheButtonOnly() {
        show();
        type(field("apiKey"), u" AIza-typed "_s);
        QTest::keyClick(field("apiKey"), Qt::Key_Return);
        QVERIFY(view_->isVisible());
        QCOMPARE(PrivateSession::lookUpKey(), QByteArray());
        QVERIFY(!control<CaptionLabel>("keySaved")->isVisible());

        click(button("saveKey"));
        QCOMPARE(PrivateSession::lookUpKey(), QByteArray("AIza-typed"));
        QVERIFY(settings_->hasAPIKey());
        QCOMPARE(field("apiKey")->text(), u" AIza-typed "_s);
        QVERIFY(control<CaptionLabel>("keySaved")->isVisible());
        QCOMPARE(control<CaptionLabel>("keySaved")->text(), u"Key saved"_s);
    }

    void confirmationStaysUntilTheWindowIsMadeAnew() {
        show();
        click(button("saveKey"));
        type(field("apiKey"), u"other"_s);
        QVERIFY(control<CaptionLabel>("keySaved")->isVisible());
        view_->close();
        show();
        QVERIFY(control<CaptionLabel>("keySaved")->isVisible());
        create();
        show();
        QVERIFY(!control<CaptionLabel>("keySaved")->isVisible());
    }

    void blankKeyRemovesTheStoredOne_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("blank") << u"   "_s;
    }
    void blankKeyRemovesTheStoredOne() {
        QFETCH(QString, text);
        PrivateSession::storeKey("stored");
        create();
        show();
        QVERIFY(settings_->hasAPIKey());
        waitUntil([&] { return field("apiKey")->text() == u"stored"_s; });
        QCOMPARE(field("apiKey")->text(), u"stored"_s);
        type(field("apiKey"), text);
        click(button("saveKey"));
        QCOMPARE(PrivateSession::keyCount(), 0);
        QVERIFY(!settings_->hasAPIKey());
        QVERIFY(control<CaptionLabel>("keySaved")->isVisible());
        QVERIFY(button("saveKey")->isEnabled());
    }

    void modelIsStoredOnEveryKeystroke() {
        show();
        type(field("model"), u"g"_s);
        QCOMPARE(storedPreference("model"), QByteArray("g"));
        QTest::keyClicks(field("model"), u"x"_s);
        QCOMPARE(storedPreference("model"), QByteArray("gx"));
        field("model")->setCursorPosition(1);
        QTest::keyClicks(field("model"), u"yz"_s);
        QCOMPARE(field("model")->text(), u"gyzx"_s);
        QCOMPARE(settings_->model(), u"gyzx"_s);
        settings_->setModel(u"set elsewhere"_s);
        QCOMPARE(field("model")->text(), u"set elsewhere"_s);
        type(field("model"), QString());
        QCOMPARE(settings_->model(), QString());
    }
};

int settings_gemini_test(int argc, char **argv) {
    return runTest<QApplication, SettingsGeminiTest>(argc, argv);
}
#include "settings_gemini_test.moc"

#include <QApplication>
