#include "desktop_test_case.h"
#include "numbered_receipts.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QDirIterator>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString warning = u"Set your Gemini API key in Settings (⌘,) to start scanning."_s;
const QString button = u"push button"_s;
constexpr int secondRowButton = 46; // pixels from the left edge of a row's buttons

qsizetype filesBelow(const QString &folder) {
    qsizetype count = 0;
    QDirIterator entries(folder, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        ++count;
    }
    return count;
}

} // namespace

// An hour of a new user with the built program: from the first start to the one after everything was cleared.
class UsersHourTest : public DesktopTestCase {
    Q_OBJECT

protected:
    void prepare() override { becomeNewUser(); }

private Q_SLOTS:
    // The steps of the hour, each going on where the one before has ended.

    void firstStartSaysWhatToDo() {
        startProgram();
        user().waitToSee(mainTitle, u"label"_s, u"No receipts yet"_s);
        user().waitToSee(mainTitle, u"label"_s, u"No folder selected"_s);
        user().waitToSee(mainTitle, u"label"_s, warning);
    }

    void folderIsChosen() {
        user().click(mainTitle, button, u"Choose Folder…"_s);
        user().answerFileDialog(u"Choose a Folder"_s, session().folder());
        QVERIFY(session().waitFor([this] { return session().program.isWatching(session().folder()); }));
        user().waitToSee(mainTitle, u"label"_s, session().folder());
    }

    void keyIsSaved() {
        user().press(mainTitle, u"ctrl+comma"_s);
        user().waitForWindow(settingsTitle);
        user().click(settingsTitle, u"text"_s, u"API Key"_s);
        user().type(settingsTitle, QString::fromLatin1(UserSession::key));
        user().click(settingsTitle, button, u"Save Key"_s);
        user().waitToSee(settingsTitle, u"label"_s, u"Key saved"_s);
        QVERIFY(!user().sees(mainTitle, u"label"_s, warning));
        QCOMPARE(PrivateSession::lookUpKey(), UserSession::key);
        user().click(settingsTitle, u"check box"_s, u"Add receipts to Photos"_s); // off
        QVERIFY(session().waitFor(
            [this] { return readFile(session().home.preferencesFile()).contains("addToPhotos=false"); }));
        outputOf(u"wmctrl"_s, {u"-c"_s, settingsTitle});
        user().waitUntilGone(settingsTitle);
    }

    void twelveReceiptsAreReadAndOneFails() {
        for (int number = 1; number <= 12; ++number) {
            session().drop(u"scan %1.png"_s.arg(number), numberedPicture(number));
        }
        QVERIFY(session().waitFor([this] { return count(u"done"_s) == 11 && count(u"error"_s) == 1; }));
        user().waitToSee(mainTitle, u"cell"_s, shop(12));
        user().waitToSee(mainTitle, u"cell"_s, u"Gemini API error: 503"_s);
        QCOMPARE(session().files().size(), 12);
    }

    void failedReceiptIsRetried() {
        user().clickCell(mainTitle, u"Gemini API error: 503"_s, 7, secondRowButton);
        QVERIFY(session().waitForRows(12, u"done"_s));
        user().waitToSee(mainTitle, u"cell"_s, shop(7));
        QVERIFY(session().files().contains(u"2024-05-07 Lunch - Shop 7 $7.50.png"_s));
        QCOMPARE(session().server.requests().size(), 13);
    }

    void receiptIsAddedToPhotosByHand() {
        user().press(mainTitle, u"ctrl+comma"_s);
        user().waitForWindow(settingsTitle);
        user().click(settingsTitle, u"check box"_s, u"Add receipts to Photos"_s); // on
        user().click(u"Photos Access"_s, button, u"Allow"_s);
        user().waitToSee(settingsTitle, u"label"_s, u"Photos access granted"_s);
        outputOf(u"wmctrl"_s, {u"-c"_s, settingsTitle});
        user().waitUntilGone(settingsTitle);
        user().clickCell(mainTitle, shop(3), 4, secondRowButton);
        QVERIFY(session().waitFor([this] { return filesBelow(session().home.photoLibrary()) > 0; }));
        user().waitToSee(mainTitle, u"cell"_s, u"Added to Photos"_s);
        const QString album = session().home.photoLibrary() + u'/' +
                              QDir(session().home.photoLibrary()).entryList(QDir::Dirs).last();
        QVERIFY2(QFileInfo::exists(album + u"/2024-05-03 Lunch - Shop 3 $3.50.jpg"_s), qPrintable(album));
    }

    void ledgersAreExported() {
        const QString csv = session().home.path(u"ledger.csv"_s);
        user().press(mainTitle, u"ctrl+e"_s);
        user().answerFileDialog(u"Export Receipts"_s, csv);
        QVERIFY(session().waitFor([&csv] { return QFile::exists(csv); }));
        const QList<QByteArray> lines = readFile(csv).split('\n');
        QCOMPARE(lines.size(), 14); // the header, 12 receipts, and nothing after the last line feed
        QCOMPARE(lines.first(), QByteArray("Date,Time,Amount,Currency,Location,Category,Summary,File Name,"
                                           "Status,Scanned At"));
        QCOMPARE(std::count_if(lines.begin(), lines.end(),
                               [](const QByteArray &line) {
                                   return line.startsWith("2024-05-07,,7.50,USD,Shop 7,lunch,Receipt 7.,"
                                                          "2024-05-07 Lunch - Shop 7 $7.50.png,done,");
                               }),
                 1);
        const QString html = session().home.path(u"ledger.html"_s);
        user().press(mainTitle, u"ctrl+shift+e"_s);
        user().answerFileDialog(u"Export Receipts"_s, html);
        QVERIFY(session().waitFor([&html] { return QFile::exists(html); }));
        QVERIFY(readFile(html).contains("12 receipts"));
        QVERIFY(readFile(html).contains("<div class=\"total\">Total: 84.00</div>")); // 1.5 + ... + 12.5
    }

    void batchIsArchivedTwiceOnOneDay() {
        archive();
        for (int number = 13; number <= 15; ++number) {
            session().drop(u"scan %1.png"_s.arg(number), numberedPicture(number));
        }
        QVERIFY(session().waitForRows(3, u"done"_s));
        archive();
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        const QDir folder(session().folder() + u"/Receipt Archive/"_s + today);
        QVERIFY(folder.exists(u"receipts-%1.csv"_s.arg(today)));
        QVERIFY(folder.exists(u"receipts-%1 (2).csv"_s.arg(today)));
        QCOMPARE(folder.entryList({u"*.png"_s}, QDir::Files).size(), 15);
        QCOMPARE(filesBelow(session().folder()),
                 17); // 15 receipts and 2 ledgers: none is anywhere else
    }

    void clearedListKeepsTheFiles() {
        session().drop(u"scan 16.png"_s, numberedPicture(16));
        session().drop(u"scan 17.png"_s, numberedPicture(17));
        QVERIFY(session().waitForRows(2, u"done"_s));
        user().click(mainTitle, button, u"Clear All"_s);
        QVERIFY(session().waitFor([] { return VirtualDesktop::windowCount(mainTitle) == 2; }));
        VirtualDesktop::pressForMenu({u"Return"_s}); // the safe answer is the default one
        QVERIFY(session().waitFor([] { return VirtualDesktop::windowCount(mainTitle) == 1; }));
        QCOMPARE(session().rows().size(), 2);
        user().click(mainTitle, button, u"Clear All"_s);
        QVERIFY(session().waitFor([] { return VirtualDesktop::windowCount(mainTitle) == 2; }));
        VirtualDesktop::pressForMenu({u"Tab"_s, u"Return"_s});
        QVERIFY(session().waitForRows(0, u"done"_s));
        user().waitToSee(mainTitle, u"label"_s, u"No receipts yet"_s);
        QCOMPARE(filesBelow(session().folder()), 19);
    }

    void nothingComesBackAfterARestart() {
        user().press(mainTitle, u"ctrl+q"_s);
        QVERIFY(session().program.endsWithSuccess());
        const QMap<QString, QByteArray> files = session().files();
        const qsizetype requests = session().server.requests().size();
        startProgram();
        QVERIFY(session().waitFor([this] { return session().program.isWatching(session().folder()); }));
        letTimePass(3000); // longer than the way of a file to its request
        QVERIFY(session().rows().isEmpty());
        QCOMPARE(session().server.requests().size(), requests);
        QCOMPARE(session().files(), files);
        QVERIFY(session().end());
    }

private:
    // Without preferences other than where the service is, without a key and without leave to use Photos.
    void becomeNewUser() {
        session().renew();
        writeFile(session().home.preferencesFile(),
                  "[General]\ngeminiEndpoint=" + session().server.address().toUtf8() + '\n');
        QFile::remove(session().home.permissionsFile());
        PrivateSession::clearKey();
        session().server.setScript([this](const HttpRequest &request) {
            const int number = numberIn(request);
            const bool fails = number == 7 && !hasFailed_;
            hasFailed_ = hasFailed_ || fails;
            return fails ? HttpReply{.status = 503, .body = {}, .headers = {}}
                         : answering(numberedAnswer(number));
        });
    }

    void startProgram() {
        session().program.start();
        user().waitForWindow(mainTitle);
    }

    qsizetype count(const QString &status) const {
        const QList<QJsonObject> rows = session().rows();
        return std::count_if(rows.begin(), rows.end(),
                             [&status](const QJsonObject &row) { return row.value(u"status") == status; });
    }

    void archive() {
        user().chooseFromMenu(mainTitle, u"Archive & Clear"_s, 1); // with a CSV ledger
        user().click(mainTitle, button, u"Export, Archive & Clear"_s);
        QVERIFY(session().waitForRows(0, u"done"_s));
    }

    bool hasFailed_ = false;
};

int users_hour_test(int argc, char **argv) {
    return runTest<QCoreApplication, UsersHourTest>(argc, argv);
}
#include "users_hour_test.moc"
