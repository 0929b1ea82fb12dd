#include "ui/tray/batch_progress.h"

#include <chrono>
#include <utility>

namespace fennick {

namespace {

constexpr std::chrono::seconds quietTime{2};

} // namespace

BatchProgress::BatchProgress(const ReceiptStore *store, QObject *parent)
    : QObject(parent)
    , store_(store) {
    quiet_.setSingleShot(true);
    quiet_.setInterval(quietTime);
    connect(&quiet_, &QTimer::timeout, this, &BatchProgress::end);
    connect(store, &ReceiptStore::receiptsChanged, this, &BatchProgress::follow);
}

void BatchProgress::follow(const ReceiptsChange &change) {
    if (change.kind == ReceiptsChange::Kind::cleared) {
        underWay_.clear();
    } else if (change.kind == ReceiptsChange::Kind::removed) {
        underWay_.removeIf([this](const QString &id) { return !store_->hasReceipt(id); });
    } else if (!followScans(change)) {
        return; // changes after a scan
    }
    waitForQuiet();
    Q_EMIT changed();
}

// Whether one of the receipts begins or ends its scan.
bool BatchProgress::followScans(const ReceiptsChange &change) {
    const bool isInsertion = change.kind == ReceiptsChange::Kind::inserted;
    bool isScan = false;
    for (qsizetype row = isInsertion ? change.from : change.to; row <= change.to; ++row) {
        isScan = followScan(store_->receipts().at(row)) || isScan;
    }
    return isScan;
}

bool BatchProgress::followScan(const Receipt &receipt) {
    if (receipt.status == ReceiptStatus::processing) {
        underWay_.insert(receipt.id);
        failed_.remove(receipt.id);
        return true;
    }
    if (!underWay_.remove(receipt.id)) {
        return false;
    }
    if (receipt.status == ReceiptStatus::done) {
        ++scanned_;
        scannedReceipts_.removeOne(receipt.id);
        scannedReceipts_.append(receipt.id);
    } else {
        failed_.insert(receipt.id);
    }
    return true;
}

void BatchProgress::setMoreToCome(bool isMoreToCome) {
    if (isMoreToCome_ != isMoreToCome) {
        isMoreToCome_ = isMoreToCome;
        waitForQuiet();
    }
}

void BatchProgress::waitForQuiet() {
    if (isUnderWay() || isMoreToCome_) {
        quiet_.stop();
    } else {
        quiet_.start();
    }
}

void BatchProgress::end() {
    const int scanned = std::exchange(scanned_, 0);
    const int failed = static_cast<int>(std::exchange(failed_, {}).size());
    if (scanned + failed > 0) {
        Q_EMIT ended(scanned, failed);
    }
    scannedReceipts_.clear();
}

} // namespace fennick
