#include "model/receipt_store.h"

#include "model/data_folder.h"
#include "model/receipt_json.h"
#include "text/characters.h"
#include "text/path_text.h"

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// The order of the list: `left` belongs before `right` when it was taken in later.
bool isNewer(const Receipt &left, const Receipt &right) {
    return compareScalars(left.scannedAt, right.scannedAt) > 0;
}

} // namespace

ReceiptStore::ReceiptStore(QObject *parent)
    : QObject(parent)
    , receiptsFile_(joinedPath(dataFolder(), u"receipts.json"_s))
    , ignoredFile_(joinedPath(dataFolder(), u"ignored.json"_s)) {
    load();
}

bool ReceiptStore::hasFilePath(const QString &path) const {
    return listedPaths_.contains(path) || ignored_.contains(path);
}

std::function<bool(const QString &)> ReceiptStore::knownPaths() const {
    return [listed = listedPaths_, ignored = ignored_](const QString &path) {
        return listed.contains(path) || ignored.contains(path);
    };
}

bool ReceiptStore::hasReceipt(const QString &id) const {
    return rowOf(id) >= 0;
}

std::optional<Receipt> ReceiptStore::receipt(const QString &id) const {
    const qsizetype row = rowOf(id);
    return row < 0 ? std::nullopt : std::optional(receipts_[row]);
}

void ReceiptStore::add(const Receipt &receipt) {
    const auto place = std::upper_bound(receipts_.cbegin(), receipts_.cend(), receipt, isNewer);
    const qsizetype row = place - receipts_.cbegin();
    const ReceiptsChange change{ReceiptsChange::Kind::inserted, row, row};
    Q_EMIT receiptsAboutToChange(change);
    receipts_.insert(row, receipt);
    records_.insert(row, QByteArray());
    countPath(receipt.filePath, +1);
    Q_EMIT receiptsChanged(change);
    saveReceipts();
}

void ReceiptStore::update(const Receipt &receipt) {
    const qsizetype row = rowOf(receipt.id);
    if (row < 0) {
        return;
    }
    countPath(receipts_[row].filePath, -1);
    countPath(receipt.filePath, +1);
    const qsizetype newRow = sortedRow(row, receipt);
    const auto kind = newRow == row ? ReceiptsChange::Kind::updated : ReceiptsChange::Kind::moved;
    const ReceiptsChange change{kind, row, newRow};
    Q_EMIT receiptsAboutToChange(change);
    receipts_[row] = receipt;
    receipts_.move(row, newRow);
    records_[row].clear();
    records_.move(row, newRow);
    Q_EMIT receiptsChanged(change);
    saveReceipts();
}

void ReceiptStore::setError(const QString &id, const QString &error) {
    if (auto failed = receipt(id)) {
        failed->status = ReceiptStatus::error;
        failed->error = error;
        update(*failed);
    }
}

// From the end on, so that the rows that are yet to be looked at keep their numbers.
void ReceiptStore::remove(const QSet<QString> &ids) {
    const auto goes = [&](qsizetype row) {
        return ids.contains(receipts_[row].id);
    };
    const qsizetype before = receipts_.size();
    for (qsizetype last = before - 1; last >= 0; --last) {
        if (!goes(last)) {
            continue;
        }
        qsizetype first = last;
        while (first > 0 && goes(first - 1)) {
            --first;
        }
        removeRows(first, last);
        last = first;
    }
    if (receipts_.size() != before) {
        saveIgnored(); // first, as when the list is cleared
        saveReceipts();
        Q_EMIT ignoredPathsChanged();
    }
}

void ReceiptStore::removeRows(qsizetype first, qsizetype last) {
    const ReceiptsChange change{ReceiptsChange::Kind::removed, first, last};
    Q_EMIT receiptsAboutToChange(change);
    for (qsizetype row = first; row <= last; ++row) {
        ignored_.insert(receipts_[row].filePath);
        countPath(receipts_[row].filePath, -1);
    }
    receipts_.remove(first, last - first + 1);
    records_.remove(first, last - first + 1);
    Q_EMIT receiptsChanged(change);
}

RemovedReceipts ReceiptStore::beforeRemoval(const QSet<QString> &ids) const {
    return beforeRemovalOf([&ids](const Receipt &receipt) { return ids.contains(receipt.id); });
}

RemovedReceipts ReceiptStore::beforeRemovalOfAll() const {
    return beforeRemovalOf([](const Receipt &) { return true; });
}

RemovedReceipts ReceiptStore::beforeRemovalOf(const std::function<bool(const Receipt &)> &leaves) const {
    RemovedReceipts removed;
    for (qsizetype row = 0; row < receipts_.size(); ++row) {
        const Receipt &receipt = receipts_[row];
        if (!leaves(receipt)) {
            continue;
        }
        removed.rows.append({receipt, receipts_.size() - 1 - row});
        if (!ignored_.contains(receipt.filePath)) {
            removed.newlyIgnored.append(receipt.filePath);
        }
    }
    return removed;
}

// From the end on, so that the number of rows below each is the one it had. Neighbours return in one change.
void ReceiptStore::putBack(const RemovedReceipts &removed) {
    QSet<QString> listed;
    for (const Receipt &receipt : std::as_const(receipts_)) {
        listed.insert(receipt.id);
    }
    QList<RemovedReceipts::Row> rows = removed.rows;
    rows.removeIf([&listed](const RemovedReceipts::Row &row) { return listed.contains(row.receipt.id); });
    while (!rows.isEmpty()) {
        const qsizetype first = rowForReturn(rows.last());
        QList<Receipt> run{rows.takeLast().receipt};
        const auto isNeighbour = [&](const RemovedReceipts::Row &row) {
            const bool isBelowOthers = first == 0 || !isNewer(row.receipt, receipts_[first - 1]);
            return receipts_.size() + run.size() - row.rowsBelow == first && isBelowOthers &&
                   !isNewer(run.first(), row.receipt);
        };
        while (!rows.isEmpty() && isNeighbour(rows.last())) {
            run.prepend(rows.takeLast().receipt);
        }
        insertRows(first, run);
    }
    saveReceipts(); // first, so that at no time a file is neither listed nor ignored
    stopIgnoring(removed.newlyIgnored);
}

// Where it stood, counted from the end, for new receipts come at the top.
qsizetype ReceiptStore::rowForReturn(const RemovedReceipts::Row &returning) const {
    const auto [first, end] =
        std::equal_range(receipts_.cbegin(), receipts_.cend(), returning.receipt, isNewer);
    return std::clamp(receipts_.size() - returning.rowsBelow, first - receipts_.cbegin(),
                      end - receipts_.cbegin());
}

void ReceiptStore::insertRows(qsizetype first, const QList<Receipt> &receipts) {
    const ReceiptsChange change{ReceiptsChange::Kind::inserted, first, first + receipts.size() - 1};
    Q_EMIT receiptsAboutToChange(change);
    receipts_.insert(first, receipts.size(), Receipt());
    std::copy(receipts.cbegin(), receipts.cend(), receipts_.begin() + first);
    records_.insert(first, receipts.size(), QByteArray());
    for (const Receipt &receipt : receipts) {
        countPath(receipt.filePath, +1);
    }
    Q_EMIT receiptsChanged(change);
}

void ReceiptStore::stopIgnoring(const QStringList &paths) {
    const qsizetype before = ignored_.size();
    for (const QString &path : paths) {
        ignored_.remove(path);
    }
    if (ignored_.size() != before) {
        saveIgnored();
        Q_EMIT ignoredPathsChanged();
    }
}

std::expected<void, FileProblem> ReceiptStore::ignore(const QStringList &paths) {
    QSet<QString> ignored = ignored_;
    for (const QString &path : paths) {
        ignored.insert(path);
    }
    auto saved = ignoredFile_.rewrite(encodePaths(ignored));
    if (saved) {
        ignored_ = std::move(ignored);
        Q_EMIT ignoredPathsChanged();
    }
    return saved;
}

void ReceiptStore::clearAll() {
    for (const Receipt &receipt : std::as_const(receipts_)) {
        ignored_.insert(receipt.filePath);
    }
    const ReceiptsChange change{ReceiptsChange::Kind::cleared};
    Q_EMIT receiptsAboutToChange(change);
    receipts_.clear();
    records_.clear();
    listedPaths_.clear();
    Q_EMIT receiptsChanged(change);
    // In this order: killed in between, the program would else find the files of a cleared list unknown, and
    // scan and pay for them again.
    saveIgnored();
    saveReceipts();
    Q_EMIT ignoredPathsChanged();
}

void ReceiptStore::load() {
    if (auto receipts = decodeReceipts(receiptsFile_.content())) {
        // The program writes it in order; a list of another hand may not be.
        if (!std::is_sorted(receipts->cbegin(), receipts->cend(), isNewer)) {
            std::stable_sort(receipts->begin(), receipts->end(), isNewer);
        }
        receipts_ = *std::move(receipts);
    } else {
        receiptsFile_.setDamaged();
    }
    listedPaths_.reserve(receipts_.size());
    for (const Receipt &receipt : std::as_const(receipts_)) {
        countPath(receipt.filePath, +1);
    }
    records_.resize(receipts_.size());
    if (auto ignored = decodePaths(ignoredFile_.content())) {
        ignored_ = *std::move(ignored);
    } else {
        ignoredFile_.setDamaged();
    }
}

void ReceiptStore::saveReceipts() {
    for (qsizetype row = 0; row < records_.size(); ++row) {
        if (records_[row].isEmpty()) {
            records_[row] = encodeReceipt(receipts_[row]);
        }
    }
    save(receiptsFile_, joinReceipts(records_));
}

void ReceiptStore::saveIgnored() {
    save(ignoredFile_, encodePaths(ignored_));
}

void ReceiptStore::save(WholeFile &file, const QByteArray &content) {
    const auto saved = file.rewrite(content);
    const QString reason = saved ? QString() : saved.error().description();
    if (!saved && reason != saveFailure_) {
        Q_EMIT saveFailed(reason);
    }
    saveFailure_ = reason;
}

qsizetype ReceiptStore::rowOf(const QString &id) const {
    const auto found = std::find_if(receipts_.cbegin(), receipts_.cend(),
                                    [&id](const Receipt &receipt) { return receipt.id == id; });
    return found == receipts_.cend() ? -1 : found - receipts_.cbegin();
}

// The row where a stable sort puts `receipt` when it replaces the one at `row` and all others are in order.
qsizetype ReceiptStore::sortedRow(qsizetype row, const Receipt &receipt) const {
    const auto begin = receipts_.cbegin();
    const auto here = begin + row;
    const auto above = std::upper_bound(begin, here, receipt, isNewer);
    if (above != here) {
        return above - begin;
    }
    return std::lower_bound(here + 1, receipts_.cend(), receipt, isNewer) - begin - 1;
}

void ReceiptStore::countPath(const QString &path, int difference) {
    int &count = listedPaths_[path];
    count += difference;
    if (count == 0) {
        listedPaths_.remove(path);
    }
}

} // namespace fennick
