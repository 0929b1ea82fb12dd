#pragma once

#include "model/receipt.h"
#include "model/whole_file.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <expected>
#include <functional>
#include <optional>

namespace fennick {

// How an operation changes the published list, in rows. A `moved` row has also changed its content.
struct ReceiptsChange {
    enum class Kind { inserted, updated, moved, removed, cleared };
    Kind kind;
    qsizetype from = 0; // the row before the change; for `inserted` and `removed`, the first row of them
    qsizetype to = 0;   // the row after the change; for `inserted` and `removed`, the last row of them
};

// Receipts that leave the list, with what is needed to put them back.
struct RemovedReceipts {
    struct Row {
        Receipt receipt;
        qsizetype rowsBelow = 0; // how many receipts stood below it, those that leave with it among them
    };
    QList<Row> rows;          // in the order of the list
    QStringList newlyIgnored; // the paths that are ignored only because the receipts leave
};

// Owns the list of receipts and the set of paths that are never taken in again; nothing else reads or writes
// "receipts.json" and "ignored.json". Every change is signalled and then written before the operation
// returns. If writing fails, the failure is reported and the list in memory keeps the change. A file that
// cannot be parsed is renamed before it is first overwritten. Created and owned by the application; main
// thread only.
class ReceiptStore : public QObject {
    Q_OBJECT

public:
    // Creates the folder "Fennick" in the user's data folder if necessary and loads both files.
    explicit ReceiptStore(QObject *parent = nullptr);

    // By the moment of their scan, newest first.
    const QList<Receipt> &receipts() const { return receipts_; }

    // Whether a receipt with exactly this path is listed, or the path is ignored.
    bool hasFilePath(const QString &path) const;

    // A snapshot of hasFilePath, for any thread.
    std::function<bool(const QString &path)> knownPaths() const;

    // Whether a receipt with this identifier is (still) listed.
    bool hasReceipt(const QString &id) const;

    // The receipt with this identifier as it is now. After waiting, callers change this one, and only the
    // fields that the wait was for: the user may have corrected others meanwhile.
    [[nodiscard]] std::optional<Receipt> receipt(const QString &id) const;

    // Does not check for duplicates: callers check hasFilePath first.
    void add(const Receipt &receipt);

    // Replaces the receipt that has the same `id`. If there is none, nothing changes and nothing is written.
    void update(const Receipt &receipt);

    // Gives the receipt with this identifier, as it is now, the status `error` and this text. Does nothing if
    // there is none.
    void setError(const QString &id, const QString &error);

    // Takes the receipts with these identifiers from the list. Their paths are ignored from then on, so their
    // files, which stay where they are, are never scanned again. Skips what is not listed.
    void remove(const QSet<QString> &ids);

    // What putBack needs if the receipts with these identifiers, or all of them, now leave the list.
    RemovedReceipts beforeRemoval(const QSet<QString> &ids) const;
    RemovedReceipts beforeRemovalOfAll() const;

    // Lists removed receipts again, where they were as far as the list's order allows, and no longer ignores
    // what was ignored only with their removal. Receipts that are listed stay as they are.
    void putBack(const RemovedReceipts &removed);

    // Whether a file at this path is never taken in, even if no receipt is listed for it.
    bool isIgnored(const QString &path) const { return ignored_.contains(path); }
    const QSet<QString> &ignoredPaths() const { return ignored_; }

    // No longer ignores these paths, on disk when it returns.
    void stopIgnoring(const QStringList &paths);

    // Ignores these paths from now on, on disk when it returns. On failure, which is not reported otherwise,
    // none of them is ignored.
    [[nodiscard]] std::expected<void, FileProblem> ignore(const QStringList &paths);

    // Empties the list. Its paths are ignored from then on, so files that remain are never scanned again.
    void clearAll();

Q_SIGNALS:
    void receiptsAboutToChange(const ReceiptsChange &change);
    void receiptsChanged(const ReceiptsChange &change);

    // Which paths are ignored has changed.
    void ignoredPathsChanged();

    // A change could not be written; `reason` is the system's description. Emitted once per reason until a
    // write succeeds.
    void saveFailed(const QString &reason);

private:
    void load();
    RemovedReceipts beforeRemovalOf(const std::function<bool(const Receipt &)> &leaves) const;
    void removeRows(qsizetype first, qsizetype last);
    qsizetype rowForReturn(const RemovedReceipts::Row &returning) const;
    void insertRows(qsizetype first, const QList<Receipt> &receipts);
    void saveReceipts();
    void saveIgnored();
    void save(WholeFile &file, const QByteArray &content);
    qsizetype rowOf(const QString &id) const;
    qsizetype sortedRow(qsizetype row, const Receipt &receipt) const;
    void countPath(const QString &path, int difference);

    QList<Receipt> receipts_;
    QList<QByteArray> records_; // the receipts' stored form, row by row; empty where it is yet to be made
    QSet<QString> ignored_;
    QHash<QString, int> listedPaths_; // how many receipts have each path, so that hasFilePath need not search
    WholeFile receiptsFile_;
    WholeFile ignoredFile_;
    QString saveFailure_; // the reason that was reported last, until a save succeeds
};

} // namespace fennick
