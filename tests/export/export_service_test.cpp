#include "export/export_service.h"
#include "export/ledger_fixtures.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/fsuid.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using ExportService::Format;

namespace {

// The process may write no file beyond this size while the object lives: a disk that fills up.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &previousLimit_);
        const rlimit limit{bytes, previousLimit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &previousLimit_);
        std::signal(SIGXFSZ, previousHandler_);
    }

private:
    rlimit previousLimit_{};
    void (*previousHandler_)(int);
};

// A folder that nobody may write in, not even root: root looks at it as a user without rights.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(const QString &path)
        : path_(path) {
        QFile::setPermissions(path_, readable | QFile::ExeOwner | QFile::ExeOther);
        if (geteuid() == 0) {
            constexpr uid_t nobody = 65534;
            setfsuid(nobody);
        }
    }
    ~ReadOnlyFolder() {
        setfsuid(geteuid());
        QFile::setPermissions(path_, readable | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    static constexpr QFile::Permissions readable = QFile::ReadOwner | QFile::ReadOther;
    QString path_;
};

} // namespace

class ExportServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void formatsHaveTheirExtensions() {
        QCOMPARE(ExportService::fileExtension(Format::csv), u"csv"_s);
        QCOMPARE(ExportService::fileExtension(Format::html), u"html"_s);
    }

    void proposedNameHasTodaysDate() {
        QString stamp;
        QString name;
        do { // once more when midnight came between
            stamp = ExportService::isoDateStamp();
            name = ExportService::proposedFileName(Format::csv);
        } while (ExportService::isoDateStamp() != stamp);
        QCOMPARE(name, u"receipts-"_s + stamp + u".csv"_s);
        QVERIFY(ExportService::proposedFileName(Format::html).endsWith(u".html"_s));
    }

    void writesTheCsvLedgerAsUtf8() {
        QVERIFY(ExportService::writeLedger(batch(), Format::csv, path()));
        QCOMPARE(readFile(path()), expectedFile(u"ledger_batch.csv"_s));
        QCOMPARE(names(), QStringList{u"ledger"_s});
    }

    void writesTheHtmlLedgerAsUtf8() {
        QVERIFY(ExportService::writeLedger(batch(), Format::html, path()));
        const QByteArray content = readFile(path());
        QVERIFY(content.startsWith("<!doctype html>\n"));
        QVERIFY(content.contains("<td>\xE5\xAF\xBF\xE5\x8F\xB8\xE5\xB1\x8B</td>"));
        QVERIFY(content.endsWith("</html>\n"));
    }

    void replacesAnOlderLedger() {
        writeFile(path(), QByteArray(100000, 'x'));
        QVERIFY(ExportService::writeLedger({}, Format::csv, path()));
        QCOMPARE(readFile(path()), expectedFile(u"ledger_empty.csv"_s));
    }

    void folderThatIsMissingIsAFailure() {
        QVERIFY(!ExportService::writeLedger(batch(), Format::csv, path() + u"/missing/a.csv"_s));
        QVERIFY(names().isEmpty());
    }

    void folderInPlaceOfTheFileIsAFailure() {
        QVERIFY(QDir().mkdir(path()));
        QVERIFY(!ExportService::writeLedger(batch(), Format::csv, path()));
        QVERIFY(QFileInfo(path()).isDir());
        QCOMPARE(names().size(), 1);
    }

    void emptyPathIsAFailure() { QVERIFY(!ExportService::writeLedger(batch(), Format::csv, QString())); }

    void readOnlyFolderKeepsTheOlderLedger() {
        writeFile(path(), "older");
        {
            const ReadOnlyFolder readOnly(folder_->path());
            QVERIFY(!ExportService::writeLedger(batch(), Format::csv, path()));
        }
        QCOMPARE(readFile(path()), QByteArray("older"));
        QCOMPARE(names().size(), 1);
    }

    void diskThatFillsUpKeepsTheOlderLedger() {
        writeFile(path(), "older");
        const QList<Receipt> receipts = manyReceipts(1000); // some 130 kB
        {
            const FileSizeLimit limit(64 * 1024);
            QVERIFY(!ExportService::writeLedger(receipts, Format::csv, path()));
        }
        QCOMPARE(readFile(path()), QByteArray("older"));
        QCOMPARE(names().size(), 1); // nothing half-written is left
        QVERIFY(ExportService::writeLedger(receipts, Format::csv, path()));
    }

private:
    QString path() const { return folder_->filePath(u"ledger"_s); }
    QStringList names() const {
        return QDir(folder_->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

int export_service_test(int argc, char **argv) {
    return runTest<QCoreApplication, ExportServiceTest>(argc, argv);
}
#include "export_service_test.moc"
