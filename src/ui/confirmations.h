#pragma once

#include <QString>
#include <QWidget>

// The two questions before a batch leaves the list. Each blocks until it is answered; closing means no.
namespace fennick::Confirmations {

bool confirmClear(QWidget *parent);

// `formatName` is "CSV" or "HTML"; `receipts` counts all of them, whatever their status.
bool confirmArchive(QWidget *parent, const QString &formatName, qsizetype receipts,
                    const QString &destination);

} // namespace fennick::Confirmations
