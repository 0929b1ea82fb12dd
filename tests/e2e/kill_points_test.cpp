#include "kill_injection.h"
#include "support/conditions.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"
#include "user_session.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString interrupted = u"The scan was interrupted. Retry to scan this receipt again."_s;

constexpr int longDocument = 4; // pages, of the first one

// The system calls by which something on the disk changes, in groups that are counted together.
const QStringList changingCalls = {u"rename,renameat2"_s, u"fsync,fdatasync"_s, u"unlink,unlinkat,rmdir"_s,
                                   u"mkdir,mkdirat"_s,    u"openat"_s,          u"write,pwrite64"_s};

// How often such a call is made in a run of the test, roughly, from the program's start to its rest.
const QMap<QString, int> usualCount = {{changingCalls[0], 12},  {changingCalls[1], 12},
                                       {changingCalls[2], 8},   {changingCalls[3], 4},
                                       {changingCalls[4], 420}, {changingCalls[5], 400}};

QByteArray document(int number, int pages) {
    return stripedPdf(pages) + "\n% " + QByteArray::number(number) + '\n';
}

} // namespace

// The program is killed right before a system call that changes something on the disk: the first, the second
// and so on, in whichever thread makes it. After the next start list, files and photo library must agree.
// FENNICK_KILLS=500 makes that many kills, at calls chosen by chance.
class KillPointsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (!canInjectKills()) {
            QSKIP("strace is not installed or may not be used here");
        }
    }

    void listFilesAndPhotosAgreeAfterTheNextStart_data() {
        QTest::addColumn<QString>("calls");
        QTest::addColumn<int>("number");
        const auto addRow = [](const QString &calls, int number) {
            QTest::addRow("%s %d", qPrintable(calls), number) << calls << number;
        };
        const int kills = qEnvironmentVariableIntValue("FENNICK_KILLS");
        auto &chance = *QRandomGenerator::global();
        for (int kill = 0; kill < kills; ++kill) {
            const QString calls = changingCalls[kill % changingCalls.size()];
            addRow(calls, 1 + chance.bounded(usualCount[calls]));
        }
        if (kills == 0) {
            for (const int number : {1, 2, 3, 4, 5, 6, 7, 8, 10}) {
                addRow(changingCalls[0], number);
            }
            for (const int number : {1, 3, 5, 7, 8, 9}) { // from 6 on between the images of a document
                addRow(changingCalls[1], number);
            }
            addRow(changingCalls[2], 2);
            addRow(changingCalls[3], 2);
            addRow(changingCalls[5], 200);
        }
    }
    void listFilesAndPhotosAgreeAfterTheNextStart() {
        QFETCH(QString, calls);
        QFETCH(int, number);
        session_.renew();
        session_.setPreference("addToPhotos", "true");
        dropDocuments();
        session_.program.start(QProcessEnvironment::systemEnvironment(), killedRightBefore(calls, number));
        waitUntil([this] { return !session_.program.isRunning() || isAllDelivered(); });
        const bool wasKilled = !session_.program.isRunning();
        session_.program.kill();
        checkFiles();
        const QSet<QByteArray> paid = scannedDocuments();
        const QSet<QString> doneBefore = finishedRows();

        session_.server.forgetRequests();
        QVERIFY(session_.start());
        QVERIFY(session_.waitFor([&] { return isSettled(doneBefore); }));
        checkFiles();
        checkList();
        checkPhotos();
        for (const QByteArray &sent : session_.sentDocuments()) {
            QVERIFY(!paid.contains(sent));
        }
        QVERIFY(session_.end());
        if (qEnvironmentVariableIsSet("FENNICK_KILLS")) {
            qInfo(wasKilled ? "killed" : "not reached");
        }
    }

private:
    void dropDocuments() {
        dropped_.clear();
        for (int number = 1; number <= 3; ++number) {
            const QString name = u"scan-%1.pdf"_s.arg(number);
            dropped_.insert(name, document(number, number == 1 ? longDocument : 1));
            session_.drop(name, dropped_.value(name));
        }
    }

    // Every document that was dropped lies in the folder once, and nothing else does.
    void checkFiles() {
        QList<QByteArray> found = session_.files().values();
        QList<QByteArray> expected = dropped_.values();
        std::sort(found.begin(), found.end());
        std::sort(expected.begin(), expected.end());
        QVERIFY2(found == expected, qPrintable(session_.files().keys().join(u'\n')));
    }

    // Each row leads to a file of its own, and no row waits for what never comes.
    void checkList() {
        QSet<QString> paths;
        for (const QJsonObject &row : session_.rows()) {
            const QString path = row.value(u"filePath").toString();
            QVERIFY2(QFileInfo::exists(path), qPrintable(path));
            QCOMPARE(QFileInfo(path).fileName(), row.value(u"fileName").toString());
            QVERIFY(!paths.contains(path));
            paths.insert(path);
            if (row.value(u"status").toString() == u"error") {
                QCOMPARE(row.value(u"error").toString(), interrupted);
            }
        }
        QCOMPARE(paths.size(), dropped_.size());
    }

    // Nothing but whole images, and all pages of the long document or none.
    void checkPhotos() {
        int images = 0;
        QDirIterator entries(session_.home.photoLibrary(), QDir::Files | QDir::Hidden,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString path = entries.next();
            if (entries.fileName() == u".album") {
                continue;
            }
            const QByteArray image = readFile(path);
            QVERIFY2(image.startsWith("\xFF\xD8") && image.endsWith("\xFF\xD9"), qPrintable(path));
            images += entries.fileName().contains(u"(p") ? 1 : 0;
        }
        QVERIFY2(images == 0 || images == longDocument, qPrintable(QString::number(images)));
    }

    // The documents whose result is in the list: they must not be sent, and paid for, again.
    QSet<QByteArray> scannedDocuments() const {
        QSet<QByteArray> documents;
        for (const QJsonObject &row : session_.rows()) {
            if (row.value(u"status").toString() == u"done") {
                const QString name = row.value(u"fileName").toString();
                documents.insert(dropped_.contains(name) ? dropped_.value(name)
                                                         : readFile(row.value(u"filePath").toString()));
            }
        }
        return documents;
    }

    bool isAllDelivered() const {
        const QList<QJsonObject> rows = session_.rows();
        return rows.size() == dropped_.size() && std::all_of(rows.begin(), rows.end(), [](const auto &row) {
                   return row.value(u"addedToPhotos").toBool();
               });
    }

    // What was done or failed before the kill stays as it was; the rest is scanned and delivered now.
    bool isSettled(const QSet<QString> &doneBefore) const {
        const QList<QJsonObject> rows = session_.rows();
        return rows.size() >= dropped_.size() && std::all_of(rows.begin(), rows.end(), [&](const auto &row) {
                   return row.value(u"status").toString() == u"error" ||
                          row.value(u"addedToPhotos").toBool() ||
                          doneBefore.contains(row.value(u"id").toString());
               });
    }

    QSet<QString> finishedRows() const {
        QSet<QString> ids;
        for (const QJsonObject &row : session_.rows()) {
            if (row.value(u"status").toString() == u"done") {
                ids.insert(row.value(u"id").toString());
            }
        }
        return ids;
    }

    UserSession session_;
    QMap<QString, QByteArray> dropped_; // by the name it was dropped under
};

int kill_points_test(int argc, char **argv) {
    return runTest<QGuiApplication, KillPointsTest>(argc, argv);
}
#include "kill_points_test.moc"
