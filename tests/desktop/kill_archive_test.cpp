#include "desktop_test_case.h"
#include "kill_injection.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStorageInfo>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QStringList names = {u"one.txt"_s, u"two.txt"_s, u"three.txt"_s}; // which intake does not look at

} // namespace

// The program is killed right before a system call while it archives: each file must be in the watched folder
// or in the archive, and the next start must carry the archive through.
class KillArchiveTest : public DesktopTestCase {
    Q_OBJECT

protected:
    QStringList missingPrograms() const override {
        return canInjectKills() ? QStringList() : QStringList(u"strace"_s);
    }

    void prepare() override {
        elsewhere_ = std::make_unique<QTemporaryDir>(u"/dev/shm/fennick-test-XXXXXX"_s);
    }

    void putAway() override { elsewhere_.reset(); }

private Q_SLOTS:
    void archiveIsWholeAfterTheNextStart_data() {
        QTest::addColumn<QString>("calls");
        QTest::addColumn<int>("number");
        QTest::addColumn<bool>("isElsewhere");
        for (int number = 1; number <= 7; ++number) {
            QTest::addRow("rename %d", number) << u"rename,renameat2"_s << number << false;
        }
        for (const int number : {2, 3, 4, 6}) {
            QTest::addRow("fsync %d, other file system", number) << u"fsync,fdatasync"_s << number << true;
        }
        for (const int number : {1, 2}) {
            QTest::addRow("unlink %d, other file system", number) << u"unlink,unlinkat"_s << number << true;
        }
    }
    void archiveIsWholeAfterTheNextStart() {
        QFETCH(QString, calls);
        QFETCH(int, number);
        QFETCH(bool, isElsewhere);
        prepare(isElsewhere);
        session().program.start(QProcessEnvironment::systemEnvironment(), killedRightBefore(calls, number));
        archive();
        session().waitFor([this] { return session().rows().isEmpty(); });
        session().program.kill();
        checkContents();

        session().program.start();
        QVERIFY(session().waitFor([this] { return session().program.isWatching(session().folder()); }));
        checkContents();
        if (!session().rows().isEmpty()) { // killed before the archive was begun
            QCOMPARE(session().rows().size(), names.size());
            QCOMPARE(archived(), QStringList());
            return;
        }
        QCOMPARE(QDir(session().folder()).entryList(QDir::Files), QStringList());
        const QStringList files = archived();
        QCOMPARE(files.filter(u"receipts-"_s).size(), 1);
        for (const QString &name : names) {
            QVERIFY2(files.contains(name), qPrintable(files.join(u", "_s)));
        }
        QVERIFY2(isElsewhere || files.size() == names.size() + 1, qPrintable(files.join(u", "_s)));
        QVERIFY2(files.filter(u".moving-"_s).isEmpty(), qPrintable(files.join(u", "_s)));
    }

private:
    void prepare(bool isElsewhere) {
        session().renew();
        archive_ = session().path(u"Receipt Archive"_s);
        if (isElsewhere) {
            static int folder = 0;
            archive_ = elsewhere_->filePath(QString::number(++folder));
            session().setPreference("archiveFolder", archive_.toUtf8());
            if (QStorageInfo(elsewhere_->path()).device() == QStorageInfo(session().folder()).device()) {
                QSKIP("There is no other file system here.");
            }
        }
        QJsonArray rows;
        for (const QString &name : names) {
            session().drop(name, name.toUtf8());
            rows.append(QJsonObject{{u"id"_s, name},
                                    {u"fileName"_s, name},
                                    {u"filePath"_s, session().path(name)},
                                    {u"scannedAt"_s, u"2024-05-01T12:30:00Z"_s},
                                    {u"status"_s, u"done"_s}});
        }
        writeFile(session().home.receiptsFile(), QJsonDocument(rows).toJson());
    }

    // A kill may come before the window does, or between its clicks.
    void archive() const {
        const auto isGone = [this] {
            return !session().program.isRunning();
        };
        session().waitFor([] { return VirtualDesktop::window(mainTitle).has_value(); });
        if (isGone()) {
            return;
        }
        user().chooseFromMenu(mainTitle, u"Archive & Clear"_s, 1);
        user().click(mainTitle, u"push button"_s, u"Export, Archive & Clear"_s);
    }

    // Each file's content is there, whole.
    void checkContents() const {
        QSet<QByteArray> contents;
        for (const QString &folder : {session().folder(), archive_}) {
            QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
            while (files.hasNext()) {
                contents.insert(readFile(files.next()));
            }
        }
        for (const QString &name : names) {
            QVERIFY2(contents.contains(name.toUtf8()), qPrintable(name));
        }
    }

    QStringList archived() const {
        QStringList files;
        QDirIterator entries(archive_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            entries.next();
            files.append(entries.fileName());
        }
        return files;
    }

    std::unique_ptr<QTemporaryDir> elsewhere_;
    QString archive_;
};

int kill_archive_test(int argc, char **argv) {
    return runTest<QCoreApplication, KillArchiveTest>(argc, argv);
}
#include "kill_archive_test.moc"
