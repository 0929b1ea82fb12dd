#include "folder_chooser_driver.h"
#include "main_window_under_test.h"
#include "next_dialog.h"
#include "settings/settings_store.h"
#include "support/test_program.h"
#include "ui/dialogs/watch_folder_question.h"
#include "ui/settings/settings_view.h"

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Driver = FolderChooserDriver;

namespace {

WatchFolderQuestion *openQuestion() {
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *const window : windows) {
        if (auto *const question = qobject_cast<WatchFolderQuestion *>(window);
            question != nullptr && question->isVisible()) {
            return question;
        }
    }
    return nullptr;
}

} // namespace

// What is asked before a folder is watched that holds more than was perhaps meant.
class WatchFolderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { under_.renew(); }
    void cleanup() { under_.close(); }

    void smallFolderIsTakenUnasked() {
        addFiles(mostFilesUnasked);
        choose(under_.watched);
        QVERIFY(waitUntil([this] { return isTaken(under_.watched) || openQuestion() != nullptr; }));
        QVERIFY(openQuestion() == nullptr);
    }

    void fullFolderIsAskedAboutAndCancelIsTheDefault() {
        addFiles(mostFilesUnasked + 1);
        choose(under_.watched);
        WatchFolderQuestion *const question = waitForQuestion();
        QVERIFY(question->isModal());
        QCOMPARE(question->text(), u"Read everything in “%1”?"_s.arg(under_.watched));
        QVERIFY(question->informativeText().startsWith(u"It holds 26 unread PDFs and photos."));
        QCOMPARE(question->defaultButton()->text(), u"Cancel"_s);
        QTest::keyClick(question, Qt::Key_Return);
        verifyNothingIsTaken();
    }

    void escapeTakesNothing() {
        choose(home());
        QTest::keyClick(waitForQuestion(), Qt::Key_Escape);
        verifyNothingIsTaken();
    }

    void readAllReadsWhatIsThere() {
        addFiles(mostFilesUnasked + 1);
        choose(under_.watched);
        clickButton(waitForQuestion(), u"Read All"_s);
        QCOMPARE(under_.settings->watchFolderPath(), under_.watched);
        QVERIFY(waitUntil([this] { return !under_.store->receipts().isEmpty(); }));
    }

    void onlyNewFilesLeavesWhatIsThereUnread() {
        addFiles(mostFilesUnasked + 1);
        choose(under_.watched);
        clickButton(waitForQuestion(), u"Only New Files"_s);
        QVERIFY(waitUntil([this] { return isTaken(under_.watched); }));
        const QString added = under_.addFile(u"new.pdf"_s);
        QVERIFY(waitUntil([this] { return !under_.store->receipts().isEmpty(); }));
        letTimePass(500);
        QCOMPARE(under_.store->receipts().size(), 1);
        QCOMPARE(under_.store->receipts().first().filePath, added);
    }

    void settingsAskAsWell() {
        SettingsView view(under_.appState.get(), under_.settings.get(), true);
        view.show();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        {
            const Driver driver([this](QFileDialog *dialog) { confirm(dialog, home()); });
            view.findChild<QPushButton *>(u"watchFolderChoose"_s)->click();
        }
        QCOMPARE(waitForQuestion()->parentWidget(), &view);
        verifyNothingIsTaken();
    }

    void windowMayGoWhileItsQuestionIsOpen() {
        auto view = std::make_unique<SettingsView>(under_.appState.get(), under_.settings.get(), true);
        view->show();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        {
            const Driver driver([this](QFileDialog *dialog) { confirm(dialog, home()); });
            view->findChild<QPushButton *>(u"watchFolderChoose"_s)->click();
        }
        waitForQuestion();
        view.reset();
        QVERIFY(openQuestion() == nullptr);
        verifyNothingIsTaken();
    }

    void programMayEndWhileAQuestionIsOpen() {
        choose(home());
        waitForQuestion();
        under_.close();
        QVERIFY(openQuestion() == nullptr);
    }

    void laterChoiceReplacesAnOpenQuestion() {
        choose(home());
        waitForQuestion();
        choose(under_.watched);
        QVERIFY(openQuestion() == nullptr);
        QVERIFY(waitUntil([this] { return isTaken(under_.watched); }));
    }

    void questionSaysHowManyAndWhoGetsThem_data() {
        QTest::addColumn<FolderFacts>("facts");
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("text");
        const QString gemini = u"https://generativelanguage.googleapis.com"_s;
        const QString sent =
            u"“Read All” sends each of them to Google's Gemini service and renames it, those in sub-folders too."_s;
        QTest::newRow("none") << FolderFacts{true, 0, true} << gemini
                              << u"It holds no unread PDFs or photos at the moment. "_s + sent;
        QTest::newRow("one") << FolderFacts{true, 1, true} << gemini
                             << u"It holds 1 unread PDF or photo. "_s + sent;
        QTest::newRow("this computer") << FolderFacts{false, 26, true} << u"on-device"_s
                                       << u"It holds 26 unread PDFs and photos. “Read All” has this computer "
                                          u"read and rename each of them, "
                                          "those in sub-folders too. They are sent nowhere."_s;
        QTest::newRow("another host")
            << FolderFacts{false, 1001, false} << u"https://receipts.example:8443"_s
            << u"It holds more than 1,000 unread PDFs and photos. “Read All” sends each of them to "
               "receipts.example and renames it, those in sub-folders too."_s;
        QTest::newRow("cut off")
            << FolderFacts{false, 12, false} << gemini
            << u"It holds at least 12 unread PDFs and photos; counting all of them takes "
               "too long. "_s +
                   sent;
        QTest::newRow("not counted") << FolderFacts{false, 0, false} << gemini
                                     << u"Counting its PDFs and photos takes too long. "_s + sent;
    }
    void questionSaysHowManyAndWhoGetsThem() {
        QFETCH(FolderFacts, facts);
        QFETCH(QString, address);
        QFETCH(QString, text);
        const QLocale before;
        QLocale::setDefault(QLocale(u"en_US"_s));
        const WatchFolderQuestion question(u"/w"_s, facts, address, nullptr);
        QLocale::setDefault(before);
        QCOMPARE(question.informativeText(),
                 text + u"\n“Only New Files” leaves those that are there now unread for good. In either case "
                        "what is added later is read."_s);
    }

private:
    QString home() const { return under_.home.path(QString()); }

    void addFiles(int count) const {
        for (int number = 0; number < count; ++number) {
            under_.addFile(u"below/%1.pdf"_s.arg(number));
        }
    }

    static void confirm(QFileDialog *dialog, const QString &folder) {
        Driver::type(dialog, folder);
        Driver::confirm(dialog);
    }

    void choose(const QString &folder) {
        const Driver driver([folder](QFileDialog *dialog) { confirm(dialog, folder); });
        under_.action("chooseFolder")->trigger();
        QVERIFY(driver.hasRun());
    }

    static WatchFolderQuestion *waitForQuestion() {
        if (!waitUntil([] { return openQuestion() != nullptr; })) {
            qFatal("Nothing is asked.");
        }
        return openQuestion();
    }

    bool isTaken(const QString &folder) const { return under_.settings->watchFolderPath() == folder; }

    void verifyNothingIsTaken() const {
        letTimePass(300);
        QCOMPARE(under_.settings->watchFolderPath(), std::nullopt);
        QVERIFY(under_.store->receipts().isEmpty());
        QVERIFY(!QFile::exists(under_.home.ignoredFile()));
    }

    MainWindowUnderTest under_;
};

Q_DECLARE_METATYPE(fennick::FolderFacts)

int watch_folder_test(int argc, char **argv) {
    return runTest<QApplication, WatchFolderTest>(argc, argv);
}
#include "watch_folder_test.moc"
