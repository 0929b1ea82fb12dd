#pragma once

#include "export/export_service.h"

#include <QList>
#include <QString>

#include <optional>

namespace fennick::ExportService {

// A receipt as a ledger has it; what the ledger does not have is empty.
struct LedgerRow {
    QString date;
    std::optional<double> amount;
    QString currency;   // its code; an HTML ledger has none
    QString amountText; // as an HTML ledger shows amount and currency; empty in others
    QString location;
    QString category;
    QString fileName;
};

// The rows of a ledger that buildCSV() or buildHTML() made, also after a spreadsheet has saved it again. A
// ledger that is damaged gives the rows before the damage.
[[nodiscard]] QList<LedgerRow> readLedger(const QString &ledger, Format format);

} // namespace fennick::ExportService
