#pragma once

#include "pipeline/typed_fields.h"

#include <QFuture>
#include <QString>

#include <expected>

namespace fennick {

class CorrectedReceipts;
class FolderThreads;
class ReceiptRenaming;
class ReceiptStore;

// Puts what a person has typed in place of what was read: into the list, and into the file's name by the
// rules of a scan. Owned by AppState; main thread.
class Correction {
public:
    Correction(ReceiptStore *store, ReceiptRenaming *renaming, CorrectedReceipts *corrected,
               const FolderThreads *folderThreads);

    // Whether the receipt is listed and no scan is about to overwrite its fields.
    bool isPossible(const QString &id) const;

    // Changes the typed fields of the receipt as it is now; a failed receipt is done then. If a field cannot
    // be understood, nothing changes. Does nothing if nothing was typed or if no correction is possible.
    [[nodiscard]] std::expected<void, FieldProblems> correct(const QString &id, const TypedFields &typed,
                                                             const FieldFormats &formats);

    // The name that the file would have after the correction; the present one for a receipt that is not
    // listed or while a field cannot be understood. Looks at the folder, which may not answer: not on this
    // thread.
    QFuture<QString> fileNameAfter(const QString &id, const TypedFields &typed,
                                   const FieldFormats &formats) const;

private:
    ReceiptStore *store_;
    ReceiptRenaming *renaming_;
    CorrectedReceipts *corrected_;
    const FolderThreads *folderThreads_;
};

} // namespace fennick
