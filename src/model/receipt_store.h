#pragma once

#include "model/receipt.h"
#include "model/whole_file.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>

#include <optional>

namespace fennick {

// What an operation does to the published list, in rows. `moved` is one row that also changed its content.
struct ReceiptsChange {
    enum class Kind { inserted, updated, moved, cleared };
    Kind kind;
    qsizetype from = 0; // the row before the change; for `inserted`, the new row
    qsizetype to = 0;   // the row after the change
};

// The single owner of the list of receipts and of the set of paths that are never taken in again, and the
// only code that reads or writes "receipts.json" and "ignored.json". Every change is on disk when the
// operation returns; after a file error, which is reported, the list in memory stays as changed. A file that
// could not be understood is set aside before it is first overwritten. Created once by the application, which
// owns it; main thread only.
class ReceiptStore : public QObject {
    Q_OBJECT

public:
    // Finds or makes the folder "Fennick" in the user's data folder and loads both files.
    explicit ReceiptStore(QObject *parent = nullptr);

    // Newest first.
    const QList<Receipt> &receipts() const { return receipts_; }

    // Whether a receipt with exactly this path is listed, or the path is ignored.
    bool hasFilePath(const QString &path) const;

    // Whether a receipt with this identifier is (still) listed.
    bool hasReceipt(const QString &id) const;

    // The receipt with this identifier as it is now. Whoever has waited for something changes this one, and
    // of it only what has come of the waiting: what a user has corrected meanwhile stays.
    [[nodiscard]] std::optional<Receipt> receipt(const QString &id) const;

    // Callers test hasFilePath first: duplicates are not looked for here.
    void add(const Receipt &receipt);

    // Replaces the receipt with the same `id` as a whole; without one, nothing happens and nothing is
    // written.
    void update(const Receipt &receipt);

    // Gives the receipt with this identifier, as it is now, the status `error` and this text. Does nothing if
    // there is none.
    void setError(const QString &id, const QString &error);

    // Empties the list; its paths are ignored from now on, so the files that stay are never scanned again.
    void clearAll();

Q_SIGNALS:
    void receiptsAboutToChange(const ReceiptsChange &change);
    void receiptsChanged(const ReceiptsChange &change);

    // A change is not on the disk; `reason` is the system's description. Once, until it succeeds or the
    // reason is another.
    void saveFailed(const QString &reason);

private:
    void load();
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
