#include "pipeline/duplicates/archived_receipts.h"

#include "pipeline/archive.h"
#include "pipeline/folder_threads.h"
#include "pipeline/former_archives.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QDir>
#include <QtConcurrent>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

using ExportService::Format;
using ExportService::LedgerRow;

// Whatever lies in the folders, what is read of it fits into memory.
constexpr qint64 mostBytesOfALedger = 50'000'000;
constexpr qsizetype mostReceipts = 500'000;

void appendLedger(QList<ArchivedReceipt> &receipts, const QString &path, const QString &root) {
    FileToRead wanted(path);
    wanted.folder = root;
    wanted.mostBytes = mostBytesOfALedger;
    const OpenedFile file = openRegularFile(wanted);
    if (!file) {
        return;
    }
    const Format format = path.endsWith(u".html") ? Format::html : Format::csv;
    const QString folder = parentFolder(path);
    const QList<LedgerRow> rows =
        ExportService::readLedger(QString::fromUtf8(readWhole(**file).value_or(QByteArray())), format);
    for (const LedgerRow &row : rows) {
        if (receipts.size() < mostReceipts) {
            receipts.append({row, joinedPath(folder, lastPathComponent(row.fileName))});
        }
    }
}

// On a thread of its own. A ledger lies in a folder of its day, below that of all archives.
QList<ArchivedReceipt> readLedgers(const QStringList &roots) {
    QList<ArchivedReceipt> receipts;
    for (const QString &root : roots) {
        const QStringList days = QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString &day : days) {
            const QString folder = joinedPath(root, day);
            const QStringList ledgers =
                QDir(folder).entryList({u"receipts-*.csv"_s, u"receipts-*.html"_s}, QDir::Files, QDir::Name);
            for (const QString &ledger : ledgers) {
                appendLedger(receipts, joinedPath(folder, ledger), root);
            }
        }
    }
    return receipts;
}

} // namespace

ArchivedReceipts::ArchivedReceipts(const Archive *archive, const FormerArchives *formerArchives,
                                   const FolderThreads *folderThreads)
    : archive_(archive)
    , formerArchives_(formerArchives)
    , folderThreads_(folderThreads) {
    connect(&reading_, &QFutureWatcherBase::finished, this, &ArchivedReceipts::publish);
}

QStringList ArchivedReceipts::folders() const {
    QStringList folders = formerArchives_->folders();
    if (const auto root = archive_->root()) {
        folders.append(QDir::cleanPath(*root));
    }
    folders.removeDuplicates();
    return folders;
}

void ArchivedReceipts::read() {
    isOutdated_ = isReading_;
    if (!isReading_) {
        isReading_ = true;
        reading_.setFuture(QtConcurrent::run(folderThreads_->pool(), readLedgers, folders()));
    }
}

void ArchivedReceipts::publish() {
    isReading_ = false;
    receipts_ = reading_.result();
    if (isOutdated_) {
        read();
    }
    Q_EMIT changed();
}

} // namespace fennick
