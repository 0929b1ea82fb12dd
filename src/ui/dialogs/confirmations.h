#pragma once

#include "model/receipt_store.h"

#include <QString>
#include <QWidget>

// The questions before something goes that the user may want to keep. Each call blocks until the user
// answers; closing the dialog means no.
namespace fennick::Confirmations {

[[nodiscard]] bool confirmClear(QWidget *parent);

// `formatName` is "CSV" or "HTML". The question shows the number of all receipts, whatever their status, and
// keeps it up to date.
[[nodiscard]] bool confirmArchive(QWidget *parent, const QString &formatName, const ReceiptStore *store,
                                  const QString &destination);

// Before that many files are opened at once.
[[nodiscard]] bool confirmOpen(QWidget *parent, int files);

// Before that many receipts are read again whose fields a person has typed.
[[nodiscard]] bool confirmReadAgain(QWidget *parent, int corrected);

// Before the program ends with corrections that were typed and not saved.
bool confirmDiscard(QWidget *parent);

} // namespace fennick::Confirmations
