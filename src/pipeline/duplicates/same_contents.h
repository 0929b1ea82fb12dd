#pragma once

#include <QByteArray>
#include <QFutureWatcher>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <optional>

namespace fennick {

class ArchivedReceipts;
class FolderThreads;
class ReceiptStore;
class WatchedFolder;

// Which listed receipts have a file with the same content as another listed or archived one. A file is looked
// at once, on a thread of its own, and only files of one size are read. Owned by AppState; main thread.
class SameContents : public QObject {
    Q_OBJECT

public:
    SameContents(const ReceiptStore *store, const ArchivedReceipts *archived,
                 const WatchedFolder *watchedFolder, const FolderThreads *folderThreads);

    // A listed receipt with the same content: of several, one that was there before.
    [[nodiscard]] std::optional<QString> otherOf(const QString &id) const;

    // The path of an archived file with the same content.
    [[nodiscard]] std::optional<QString> archivedFileOf(const QString &id) const;

Q_SIGNALS:
    // The answers for these receipts have changed.
    void changed(const QSet<QString> &ids);

private:
    // Listed receipts by identifier, archived ones by path.
    struct Content {
        qint64 size = 0;   // in bytes; 0 if the file could not be seen
        QByteArray sha256; // empty until another file has the same size
    };
    using Contents = QHash<QString, Content>;
    using Paths = QHash<QString, QString>;

    static Contents lookedAt(Contents contents, const Paths &paths, const QString &folder);
    void look();
    void publish();
    void conclude();
    QHash<QByteArray, QStringList> listedByContent() const;

    const ReceiptStore *store_;
    const ArchivedReceipts *archived_;
    const WatchedFolder *watchedFolder_;
    const FolderThreads *folderThreads_;
    Contents contents_;
    QHash<QString, QString> listed_;        // another listed receipt, by identifier
    QHash<QString, QString> archivedFiles_; // by identifier of the listed one
    QTimer delay_;                          // many receipts arrive together
    QFutureWatcher<Contents> looking_;
};

} // namespace fennick
