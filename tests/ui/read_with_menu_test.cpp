#include "settings/settings_store.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/read_with_menu.h"

#include <QAction>
#include <QApplication>
#include <QDir>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString publicService = u"https://generativelanguage.googleapis.com"_s;

} // namespace

class ReadWithMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QDir(home_.path(u"config/Fennick"_s)).removeRecursively(); }
    void cleanup() {
        menu_.reset();
        settings_.reset();
    }

    void geminiReadsUntilSomethingElseIsChosen() {
        open();
        QCOMPARE(menu_->title(), u"Read With"_s);
        QCOMPARE(shownTexts(), (QStringList{u"Gemini"_s, u"This Computer"_s}));
        QCOMPARE(checkedText(), u"Gemini"_s);
        const auto actions = menu_->actions();
        for (const QAction *const each : actions) {
            QVERIFY(!each->isVisible() || !each->statusTip().isEmpty());
        }
    }

    void choiceIsWrittenAndTakenOut() {
        writeFile(home_.preferencesFile(), "[General]\nmodel=other-model\n");
        open();
        reader("readWithThisComputer")->trigger();
        QCOMPARE(settings_->serviceAddress(), u"on-device"_s);
        QVERIFY(readFile(home_.preferencesFile()).contains("geminiEndpoint=on-device\n"));
        QCOMPARE(checkedText(), u"This Computer"_s);
        reader("readWithGemini")->trigger();
        QCOMPARE(settings_->serviceAddress(), publicService);
        QVERIFY(!readFile(home_.preferencesFile()).contains("geminiEndpoint"));
        QVERIFY(readFile(home_.preferencesFile()).contains("model=other-model"));
        QCOMPARE(checkedText(), u"Gemini"_s);
    }

    void anotherAddressIsShownWithItsHostAndCanBeChosenAgain() {
        const QByteArray address = "http://127.0.0.1:47111";
        writeFile(home_.preferencesFile(), "[General]\ngeminiEndpoint=" + address + '\n');
        open();
        QCOMPARE(checkedText(), u"127.0.0.1"_s);
        QCOMPARE(reader("readWithOther")->statusTip(),
                 u"Receipts are sent to http://127.0.0.1:47111, with your API key."_s);
        reader("readWithThisComputer")->trigger();
        QCOMPARE(shownTexts(), (QStringList{u"Gemini"_s, u"This Computer"_s, u"127.0.0.1"_s}));
        reader("readWithOther")->trigger();
        QCOMPARE(settings_->serviceAddress().toUtf8(), address);
    }

    void addressWithoutAHostIsShownAsItStands() {
        writeFile(home_.preferencesFile(), "[General]\ngeminiEndpoint=\"Q&A\"\n");
        open();
        QCOMPARE(checkedText(), u"Q&&A"_s);
    }

    void fileIsReadWheneverTheMenuOpens() {
        open();
        writeFile(home_.preferencesFile(), "[General]\ngeminiEndpoint=on-device\n");
        Q_EMIT menu_->aboutToShow();
        QCOMPARE(checkedText(), u"This Computer"_s);
    }

private:
    void open() {
        settings_ = std::make_unique<SettingsStore>();
        menu_ = std::make_unique<ReadWithMenu>(settings_.get(), nullptr);
    }

    QAction *reader(const char *objectName) const {
        return menu_->findChild<QAction *>(QString::fromLatin1(objectName));
    }

    QStringList shownTexts() const {
        QStringList texts;
        const auto actions = menu_->actions();
        for (const QAction *const each : actions) {
            if (each->isVisible()) {
                texts.append(each->text());
            }
        }
        return texts;
    }

    QString checkedText() const {
        QStringList texts;
        const auto actions = menu_->actions();
        for (const QAction *const each : actions) {
            if (each->isChecked()) {
                texts.append(each->text());
            }
        }
        return texts.join(u'|');
    }

    TemporaryHome home_;
    PrivateSession session_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<ReadWithMenu> menu_;
};

int read_with_menu_test(int argc, char **argv) {
    return runTest<QApplication, ReadWithMenuTest>(argc, argv);
}
#include "read_with_menu_test.moc"
