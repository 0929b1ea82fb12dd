#include "pipeline/duplicates/same_contents.h"

#include "model/receipt_store.h"
#include "pipeline/duplicates/archived_receipts.h"
#include "pipeline/folder_threads.h"
#include "pipeline/watched_folder.h"
#include "platform/regular_file.h"

#include <QCryptographicHash>
#include <QtConcurrent>

#include <chrono>
#include <ranges>

namespace fennick {

namespace {

constexpr std::chrono::milliseconds delayOfALook{300};

// Empty if the file cannot be read.
QByteArray sha256Of(const QString &path, const QString &folder) {
    FileToRead wanted(path);
    wanted.folder = folder;
    const OpenedFile file = openRegularFile(wanted);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file && hash.addData(file->get()) ? hash.result() : QByteArray();
}

} // namespace

SameContents::SameContents(const ReceiptStore *store, const ArchivedReceipts *archived,
                           const WatchedFolder *watchedFolder, const FolderThreads *folderThreads)
    : store_(store)
    , archived_(archived)
    , watchedFolder_(watchedFolder)
    , folderThreads_(folderThreads) {
    delay_.setSingleShot(true);
    delay_.setInterval(delayOfALook);
    connect(&delay_, &QTimer::timeout, this, &SameContents::look);
    connect(&looking_, &QFutureWatcherBase::finished, this, &SameContents::publish);
    const auto lookSoon = [this] {
        if (!delay_.isActive()) {
            delay_.start();
        }
    };
    connect(store, &ReceiptStore::receiptsChanged, this, lookSoon);
    connect(archived, &ArchivedReceipts::changed, this, lookSoon);
    lookSoon();
}

std::optional<QString> SameContents::otherOf(const QString &id) const {
    const auto other = listed_.constFind(id);
    return other == listed_.constEnd() ? std::nullopt : std::optional(*other);
}

std::optional<QString> SameContents::archivedFileOf(const QString &id) const {
    const auto file = archivedFiles_.constFind(id);
    return file == archivedFiles_.constEnd() ? std::nullopt : std::optional(*file);
}

void SameContents::look() {
    if (looking_.isRunning()) {
        delay_.start();
        return;
    }
    Paths paths;
    for (const Receipt &receipt : store_->receipts()) {
        paths.insert(receipt.id, receipt.filePath);
    }
    for (const ArchivedReceipt &archived : archived_->receipts()) {
        paths.insert(archived.path, archived.path);
    }
    contents_.removeIf([&paths](const auto &content) { return !paths.contains(content.key()); });
    looking_.setFuture(
        QtConcurrent::run(folderThreads_->pool(), lookedAt, contents_, paths, watchedFolder_->path));
}

// On a thread of its own.
SameContents::Contents SameContents::lookedAt(Contents contents, const Paths &paths, const QString &folder) {
    QHash<qint64, QStringList> keysBySize;
    for (const auto &[key, path] : paths.asKeyValueRange()) {
        Content &content = contents[key];
        if (content.size == 0) {
            const FileState state = fileStateAt(path);
            content.size = state.kind == FileKind::regular ? state.size : 0;
        }
        if (content.size > 0) {
            keysBySize[content.size].append(key);
        }
    }
    for (const QStringList &keys : std::as_const(keysBySize)) {
        for (const QString &key : keys) {
            Content &content = contents[key];
            if (keys.size() > 1 && content.sha256.isEmpty()) {
                content.sha256 = sha256Of(paths.value(key), folder);
            }
        }
    }
    return contents;
}

void SameContents::publish() {
    contents_ = looking_.result();
    const auto listedBefore = std::exchange(listed_, {});
    const auto archivedBefore = std::exchange(archivedFiles_, {});
    conclude();
    QSet<QString> changedIds;
    for (const Receipt &receipt : store_->receipts()) {
        const QString &id = receipt.id;
        if (listed_.value(id) != listedBefore.value(id) ||
            archivedFiles_.value(id) != archivedBefore.value(id)) {
            changedIds.insert(id);
        }
    }
    if (!changedIds.isEmpty()) {
        Q_EMIT changed(changedIds);
    }
}

QHash<QByteArray, QStringList> SameContents::listedByContent() const {
    QHash<QByteArray, QStringList> ids;
    for (const Receipt &receipt : std::views::reverse(store_->receipts())) { // the oldest first
        if (const QByteArray sha256 = contents_.value(receipt.id).sha256; !sha256.isEmpty()) {
            ids[sha256].append(receipt.id);
        }
    }
    return ids;
}

void SameContents::conclude() {
    const QHash<QByteArray, QStringList> idsByContent = listedByContent();
    for (const QStringList &ids : idsByContent) {
        for (const QString &id : ids) {
            if (ids.size() > 1) {
                listed_.insert(id, ids.first() == id ? ids.at(1) : ids.first());
            }
        }
    }
    for (const ArchivedReceipt &archived : archived_->receipts()) {
        const QByteArray sha256 = contents_.value(archived.path).sha256;
        const QStringList ids = sha256.isEmpty() ? QStringList() : idsByContent.value(sha256);
        for (const QString &id : ids) {
            archivedFiles_.insert(id, archived.path);
        }
    }
}

} // namespace fennick
