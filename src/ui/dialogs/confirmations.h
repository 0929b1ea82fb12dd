#pragma once

#include "model/receipt_store.h"

#include <QString>
#include <QWidget>

// The two questions before a batch leaves the list. Each blocks until it is answered; closing means no.
namespace fennick::Confirmations {

bool confirmClear(QWidget *parent);

// `formatName` is "CSV" or "HTML". The number of all receipts that is shown follows the list, whatever their
// status.
bool confirmArchive(QWidget *parent, const QString &formatName, const ReceiptStore *store,
                    const QString &destination);

} // namespace fennick::Confirmations
