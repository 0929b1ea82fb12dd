#pragma once

#include "export/ledger_reader.h"

#include <QFutureWatcher>
#include <QList>
#include <QObject>
#include <QString>

namespace fennick {

class Archive;
class FolderThreads;
class FormerArchives;

// A receipt in the ledger of an archive.
struct ArchivedReceipt {
    ExportService::LedgerRow row;
    QString path; // where its file was put; it may be elsewhere by now
};

// What the ledgers in the present and the former archive folders list. They are read on a thread of their
// own. Owned by AppState; main thread.
class ArchivedReceipts : public QObject {
    Q_OBJECT

public:
    ArchivedReceipts(const Archive *archive, const FormerArchives *formerArchives,
                     const FolderThreads *folderThreads);

    // As last read.
    const QList<ArchivedReceipt> &receipts() const { return receipts_; }

    // Reads all ledgers anew.
    void read();

Q_SIGNALS:
    // They were read.
    void changed();

private:
    QStringList folders() const;
    void publish();

    const Archive *archive_;
    const FormerArchives *formerArchives_;
    const FolderThreads *folderThreads_;
    QFutureWatcher<QList<ArchivedReceipt>> reading_;
    bool isReading_ = false;
    bool isOutdated_ = false; // what is being read was asked for again
    QList<ArchivedReceipt> receipts_;
};

} // namespace fennick
