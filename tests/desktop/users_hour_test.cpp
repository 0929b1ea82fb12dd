#include "accessible.h"
#include "desktop_user.h"
#include "user_session.h"
#include "virtual_desktop.h"

#include <QBuffer>
#include <QDate>
#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QTest>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString mainWindow = u"Fennick"_s;
const QString settingsWindow = u"Fennick Settings"_s;
const QString warning = u"Set your Gemini API key in Settings (⌘,) to start scanning."_s;
const QString button = u"push button"_s;
constexpr int secondRowButton = 46; // pixels from the left edge of a row's buttons

// A picture of its own for each receipt, so that the service can tell them apart.
QByteArray picture(int number) {
    QImage image(40, 60, QImage::Format_RGB32);
    image.fill(qRgb(200, 200, number));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

QString shop(int number) {
    return u"Shop %1"_s.arg(number);
}

QByteArray answerFor(int number) {
    return u"{\"date\": \"2024-05-%1\", \"amount\": %2.5, \"currency\": \"USD\", \"location\": \"%3\", "
           "\"category\": \"lunch\", \"summary\": \"Receipt %2.\"}"_s.arg(number, 2, 10, QLatin1Char('0'))
               .arg(number)
               .arg(shop(number))
               .toUtf8();
}

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
class UsersHourTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        const QStringList missing = VirtualDesktop::missingPrograms();
        if (!missing.isEmpty() || !AccessibilityBus::isInstalled()) {
            QSKIP(qPrintable(u"Not installed: "_s + missing.join(u", "_s)));
        }
        session_ = std::make_unique<UserSession>();
        desktop_ = std::make_unique<VirtualDesktop>(session_->home.path(u"desktop"_s));
        bus_ = std::make_unique<AccessibilityBus>();
        user_ = std::make_unique<DesktopUser>(
            bus_.get(), [this](const auto &condition) { return session_->waitFor(condition); });
        becomeNewUser();
    }

    void cleanupTestCase() {
        session_->program.kill();
        bus_.reset();
        desktop_.reset();
        session_.reset();
    }

    // The steps of the hour, each going on where the one before has ended.

    void firstStartSaysWhatToDo() {
        startProgram();
        user_->waitToSee(mainWindow, u"label"_s, u"No receipts yet"_s);
        user_->waitToSee(mainWindow, u"label"_s, u"No folder selected"_s);
        user_->waitToSee(mainWindow, u"label"_s, warning);
    }

    void folderIsChosen() {
        user_->click(mainWindow, button, u"Choose Folder…"_s);
        user_->answerFileDialog(u"Choose a Folder"_s, session_->folder());
        QVERIFY(session_->waitFor([this] { return session_->program.isWatching(session_->folder()); }));
        user_->waitToSee(mainWindow, u"label"_s, session_->folder());
    }

    void keyIsSaved() {
        user_->press(mainWindow, u"ctrl+comma"_s);
        user_->waitForWindow(settingsWindow);
        user_->click(settingsWindow, u"text"_s, u"API Key"_s);
        user_->type(settingsWindow, QString::fromLatin1(UserSession::key));
        user_->click(settingsWindow, button, u"Save Key"_s);
        user_->waitToSee(settingsWindow, u"label"_s, u"Key saved"_s);
        QVERIFY(!user_->sees(mainWindow, u"label"_s, warning));
        QCOMPARE(PrivateSession::lookUpKey(), UserSession::key);
        user_->click(settingsWindow, u"check box"_s, u"Add receipts to Photos"_s); // off
        QVERIFY(session_->waitFor(
            [this] { return readFile(session_->home.preferencesFile()).contains("addToPhotos=false"); }));
        outputOf(u"wmctrl"_s, {u"-c"_s, settingsWindow});
        user_->waitUntilGone(settingsWindow);
    }

    void twelveReceiptsAreReadAndOneFails() {
        for (int number = 1; number <= 12; ++number) {
            session_->drop(u"scan %1.png"_s.arg(number), picture(number));
        }
        QVERIFY(session_->waitFor([this] { return count(u"done"_s) == 11 && count(u"error"_s) == 1; }));
        user_->waitToSee(mainWindow, u"cell"_s, shop(12));
        user_->waitToSee(mainWindow, u"cell"_s, u"Gemini API error: 503"_s);
        QCOMPARE(session_->files().size(), 12);
    }

    void failedReceiptIsRetried() {
        user_->clickCell(mainWindow, u"Gemini API error: 503"_s, 7, secondRowButton);
        QVERIFY(session_->waitForRows(12, u"done"_s));
        user_->waitToSee(mainWindow, u"cell"_s, shop(7));
        QVERIFY(session_->files().contains(u"2024-05-07 Lunch - Shop 7 $7.50.png"_s));
        QCOMPARE(session_->server.requests().size(), 13);
    }

    void receiptIsAddedToPhotosByHand() {
        user_->press(mainWindow, u"ctrl+comma"_s);
        user_->waitForWindow(settingsWindow);
        user_->click(settingsWindow, u"check box"_s, u"Add receipts to Photos"_s); // on
        user_->click(u"Photos Access"_s, button, u"Allow"_s);
        user_->waitToSee(settingsWindow, u"label"_s, u"Photos access granted"_s);
        outputOf(u"wmctrl"_s, {u"-c"_s, settingsWindow});
        user_->waitUntilGone(settingsWindow);
        user_->clickCell(mainWindow, shop(3), 4, secondRowButton);
        QVERIFY(session_->waitFor([this] { return filesBelow(session_->home.photoLibrary()) > 0; }));
        user_->waitToSee(mainWindow, u"cell"_s, u"Added to Photos"_s);
        const QString album = session_->home.photoLibrary() + u'/' +
                              QDir(session_->home.photoLibrary()).entryList(QDir::Dirs).last();
        QVERIFY2(QFileInfo::exists(album + u"/2024-05-03 Lunch - Shop 3 $3.50.jpg"_s), qPrintable(album));
    }

    void ledgersAreExported() {
        const QString csv = session_->home.path(u"ledger.csv"_s);
        user_->press(mainWindow, u"ctrl+e"_s);
        user_->answerFileDialog(u"Export Receipts"_s, csv);
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
        const QString html = session_->home.path(u"ledger.html"_s);
        user_->press(mainWindow, u"ctrl+shift+e"_s);
        user_->answerFileDialog(u"Export Receipts"_s, html);
        QVERIFY(readFile(html).contains("12 receipts"));
        QVERIFY(readFile(html).contains("<div class=\"total\">Total: 84.00</div>")); // 1.5 + ... + 12.5
    }

    void batchIsArchivedTwiceOnOneDay() {
        archive();
        for (int number = 13; number <= 15; ++number) {
            session_->drop(u"scan %1.png"_s.arg(number), picture(number));
        }
        QVERIFY(session_->waitForRows(3, u"done"_s));
        archive();
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        const QDir folder(session_->folder() + u"/Receipt Archive/"_s + today);
        QVERIFY(folder.exists(u"receipts-%1.csv"_s.arg(today)));
        QVERIFY(folder.exists(u"receipts-%1 (2).csv"_s.arg(today)));
        QCOMPARE(folder.entryList({u"*.png"_s}, QDir::Files).size(), 15);
        QCOMPARE(filesBelow(session_->folder()), 17); // 15 receipts and 2 ledgers: none is anywhere else
    }

    void clearedListKeepsTheFiles() {
        session_->drop(u"scan 16.png"_s, picture(16));
        session_->drop(u"scan 17.png"_s, picture(17));
        QVERIFY(session_->waitForRows(2, u"done"_s));
        user_->click(mainWindow, button, u"Clear All"_s);
        QVERIFY(session_->waitFor([] { return VirtualDesktop::windowCount(mainWindow) == 2; }));
        VirtualDesktop::pressForMenu({u"Return"_s}); // the safe answer is the default one
        QVERIFY(session_->waitFor([] { return VirtualDesktop::windowCount(mainWindow) == 1; }));
        QCOMPARE(session_->rows().size(), 2);
        user_->click(mainWindow, button, u"Clear All"_s);
        QVERIFY(session_->waitFor([] { return VirtualDesktop::windowCount(mainWindow) == 2; }));
        VirtualDesktop::pressForMenu({u"Tab"_s, u"Return"_s});
        QVERIFY(session_->waitForRows(0, u"done"_s));
        user_->waitToSee(mainWindow, u"label"_s, u"No receipts yet"_s);
        QCOMPARE(filesBelow(session_->folder()), 19);
    }

    void nothingComesBackAfterARestart() {
        user_->press(mainWindow, u"ctrl+q"_s);
        QVERIFY(session_->program.endsWithSuccess());
        const QMap<QString, QByteArray> files = session_->files();
        const qsizetype requests = session_->server.requests().size();
        startProgram();
        QVERIFY(session_->waitFor([this] { return session_->program.isWatching(session_->folder()); }));
        letTimePass(3000); // longer than the way of a file to its request
        QVERIFY(session_->rows().isEmpty());
        QCOMPARE(session_->server.requests().size(), requests);
        QCOMPARE(session_->files(), files);
        QVERIFY(session_->end());
    }

private:
    // Without preferences other than where the service is, without a key and without leave to use Photos.
    void becomeNewUser() {
        session_->renew();
        writeFile(session_->home.preferencesFile(),
                  "[General]\ngeminiEndpoint=" + session_->server.address().toUtf8() + '\n');
        QFile::remove(session_->home.permissionsFile());
        PrivateSession::clearKey();
        session_->server.setScript([this](const HttpRequest &request) {
            for (int number = 1; number <= 17; ++number) {
                if (inlineDocument(request) != picture(number)) {
                    continue;
                }
                const bool fails = number == 7 && !hasFailed_;
                hasFailed_ = hasFailed_ || fails;
                return fails ? HttpReply{.status = 503, .body = {}, .headers = {}}
                             : answering(answerFor(number));
            }
            return HttpReply{.status = 400, .body = "an unknown document", .headers = {}};
        });
    }

    void startProgram() {
        session_->program.start();
        user_->waitForWindow(mainWindow);
    }

    qsizetype count(const QString &status) const {
        const QList<QJsonObject> rows = session_->rows();
        return std::count_if(rows.begin(), rows.end(),
                             [&status](const QJsonObject &row) { return row.value(u"status") == status; });
    }

    void archive() {
        user_->chooseFromMenu(mainWindow, u"Archive & Clear"_s, 1); // with a CSV ledger
        user_->click(mainWindow, button, u"Export, Archive & Clear"_s);
        QVERIFY(session_->waitForRows(0, u"done"_s));
    }

    std::unique_ptr<UserSession> session_;
    std::unique_ptr<VirtualDesktop> desktop_;
    std::unique_ptr<AccessibilityBus> bus_;
    std::unique_ptr<DesktopUser> user_;
    bool hasFailed_ = false;
};

QTEST_GUILESS_MAIN(UsersHourTest)
#include "users_hour_test.moc"
