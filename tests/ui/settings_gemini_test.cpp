#include "settings_view_under_test.h"
#include "support/conditions.h"
#include "support/test_program.h"
#include "ui/widgets/caption_label.h"

using namespace fennick;
using namespace fennick::test;

class SettingsGeminiTest : public SettingsViewUnderTest {
    Q_OBJECT

private Q_SLOTS:
    void storedKeyIsLoadedEachTimeTheWindowAppears() {
        PrivateSession::storeKey("first");
        create();
        QCOMPARE(field("apiKey")->text(), QString());
        show();
        waitUntil([&] { return field("apiKey")->text() == QStringLiteral("first"); });
        QCOMPARE(field("apiKey")->text(), QStringLiteral("first"));
        QVERIFY(!field("apiKey")->displayText().contains(u"first"));
        view_->close();
        PrivateSession::storeKey("second");
        show();
        waitUntil([&] { return field("apiKey")->text() == QStringLiteral("second"); });
        QCOMPARE(field("apiKey")->text(), QStringLiteral("second"));
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
        waitUntil([&] { return field("apiKey")->text() == QStringLiteral("stored"); });
        QCOMPARE(field("apiKey")->text(), QStringLiteral("stored"));
    }

    void keyThatIsBeingTypedIsNotReplacedByTheStoredOne() {
        PrivateSession::storeKey("stored");
        create();
        view_->show();
        field("apiKey")->insert(QStringLiteral("typed"));
        field("apiKey")->setModified(true);
        QCOMPARE(settings_->storedAPIKey().result(), QStringLiteral("stored")); // asked after the window has
        QTest::qWait(0);
        QCOMPARE(field("apiKey")->text(), QStringLiteral("typed"));
    }

    void keyIsStoredByTheButtonOnly() {
        show();
        type(field("apiKey"), QStringLiteral(" AIza-typed "));
        QTest::keyClick(field("apiKey"), Qt::Key_Return);
        QVERIFY(view_->isVisible());
        QCOMPARE(PrivateSession::lookUpKey(), QByteArray());
        QVERIFY(!control<CaptionLabel>("keySaved")->isVisible());

        click(button("saveKey"));
        QCOMPARE(PrivateSession::lookUpKey(), QByteArray("AIza-typed"));
        QVERIFY(settings_->hasAPIKey());
        QCOMPARE(field("apiKey")->text(), QStringLiteral(" AIza-typed "));
        QVERIFY(control<CaptionLabel>("keySaved")->isVisible());
        QCOMPARE(control<CaptionLabel>("keySaved")->text(), QStringLiteral("Key saved"));
    }

    void confirmationStaysUntilTheWindowIsMadeAnew() {
        show();
        click(button("saveKey"));
        type(field("apiKey"), QStringLiteral("other"));
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
        QTest::newRow("blank") << QStringLiteral("   ");
    }
    void blankKeyRemovesTheStoredOne() {
        QFETCH(QString, text);
        PrivateSession::storeKey("stored");
        create();
        show();
        QVERIFY(settings_->hasAPIKey());
        waitUntil([&] { return field("apiKey")->text() == QStringLiteral("stored"); });
        QCOMPARE(field("apiKey")->text(), QStringLiteral("stored"));
        type(field("apiKey"), text);
        click(button("saveKey"));
        QCOMPARE(PrivateSession::keyCount(), 0);
        QVERIFY(!settings_->hasAPIKey());
        QVERIFY(control<CaptionLabel>("keySaved")->isVisible());
        QVERIFY(button("saveKey")->isEnabled());
    }

    void modelIsStoredOnEveryKeystroke() {
        show();
        type(field("model"), QStringLiteral("g"));
        QCOMPARE(storedPreference("model"), QByteArray("g"));
        QTest::keyClicks(field("model"), QStringLiteral("x"));
        QCOMPARE(storedPreference("model"), QByteArray("gx"));
        field("model")->setCursorPosition(1);
        QTest::keyClicks(field("model"), QStringLiteral("yz"));
        QCOMPARE(field("model")->text(), QStringLiteral("gyzx"));
        QCOMPARE(settings_->model(), QStringLiteral("gyzx"));
        settings_->setModel(QStringLiteral("set elsewhere"));
        QCOMPARE(field("model")->text(), QStringLiteral("set elsewhere"));
        type(field("model"), QString());
        QCOMPARE(settings_->model(), QString());
    }
};

int settings_gemini_test(int argc, char **argv) {
    return runTest<QApplication, SettingsGeminiTest>(argc, argv);
}
#include "settings_gemini_test.moc"

#include <QApplication>
