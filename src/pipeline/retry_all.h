#pragma once

#include "model/receipt.h"
#include "pipeline/scan_outcome.h"

#include <QCoroTask>
#include <QList>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>

namespace fennick {

class ReceiptStore;
class Tasks;

// How long to leave a service alone that has answered "too many requests": the first time, and at most.
struct RetryPauses {
    std::chrono::milliseconds first = std::chrono::seconds(5);
    std::chrono::milliseconds longest = std::chrono::minutes(1);
};

// Scans many listed receipts once more, a few at a time. When the service has had too many requests, it
// pauses, longer each time, goes on with one at a time until a scan succeeds, and gives up if none does.
// Owned by AppState; main thread.
class RetryAll : public QObject {
    Q_OBJECT

public:
    // Scans the receipt with this identifier as it is listed then.
    using Scan = std::function<QCoro::Task<ScanOutcome>(QString id)>;

    RetryAll(const ReceiptStore *store, Scan scan, Tasks *tasks, RetryPauses pauses = {});

    // Every receipt whose scan has failed.
    void addAllFailed();

    // These, finished or failed. One whose status changes before its turn is left out: somebody has corrected
    // it, or scans it already.
    void add(const QStringList &ids);

    // Begins no scan of this receipt that has not begun yet.
    void leaveOut(const QString &id);

    // Begins no further scan. Those under way come to their end.
    void stop();

    bool isUnderWay() const { return running_ > 0 || !waiting_.isEmpty(); }
    int finishedCount() const { return finished_; }
    int totalCount() const { return finished_ + running_ + static_cast<int>(waiting_.size()); }

Q_SIGNALS:
    // These will be scanned; they are as they are before it.
    void added(const QList<Receipt> &receipts);

    // Also emitted when the last one has ended.
    void changed();

private:
    struct Wanted {
        QString id;
        ReceiptStatus status; // when it was added
    };

    bool append(const Receipt &receipt);
    void scanLater(const QList<Receipt> &receipts);
    void goOn();
    [[nodiscard]] QCoro::Task<> scanOne(Wanted wanted);
    void take(const Wanted &wanted, ScanOutcome outcome);
    void slowDown(const Wanted &wanted);

    const ReceiptStore *store_;
    Scan scan_;
    Tasks *tasks_;
    RetryPauses pauses_;
    QList<Wanted> waiting_;
    QSet<QString> ids_; // of those that wait or are being scanned
    int running_ = 0;
    int finished_ = 0;
    int refusals_ = 0; // since the last scan that succeeded
    bool isStopping_ = false;
    QTimer pause_;
    QTimer turn_; // not from within a scan's end, which may come before its beginning has returned
};

} // namespace fennick
