#pragma once

#include "model/receipt_store.h"

#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

namespace fennick {

// Counts the receipts that are scanned together. A batch begins with the first receipt in progress and ends
// when none has been in progress for two seconds, because files that already lie in the folder are taken in
// one after the other. Owned by the shell; main thread.
class BatchProgress : public QObject {
    Q_OBJECT

public:
    explicit BatchProgress(const ReceiptStore *store, QObject *parent = nullptr);

    // Of the current batch.
    int finishedCount() const { return scanned_ + static_cast<int>(failed_.size()); }
    int totalCount() const { return finishedCount() + static_cast<int>(underWay_.size()); }
    bool isUnderWay() const { return !underWay_.isEmpty(); }

    // The receipts of the batch that were scanned, in this order; also while its end is reported.
    const QStringList &scannedReceipts() const { return scannedReceipts_; }

    // While more receipts are to be scanned after a pause, the batch does not end.
    void setMoreToCome(bool isMoreToCome);

Q_SIGNALS:
    void changed();
    void ended(int scanned, int failed);

private:
    void follow(const ReceiptsChange &change);
    bool followScans(const ReceiptsChange &change);
    bool followScan(const Receipt &receipt);
    void waitForQuiet();
    void end();

    const ReceiptStore *store_;
    QSet<QString> underWay_; // identifiers
    int scanned_ = 0;
    QStringList scannedReceipts_; // identifiers; one that is read again counts once
    QSet<QString> failed_;        // identifiers: one that is retried in the same batch counts once
    bool isMoreToCome_ = false;
    QTimer quiet_;
};

} // namespace fennick
