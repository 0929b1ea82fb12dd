#pragma once

#include "model/receipt.h"
#include "platform/file_problem.h"

#include <QList>
#include <QString>

#include <expected>
#include <optional>

// Turns receipts into a ledger: comma-separated values for spreadsheets, with everything, or a self-contained
// HTML page as a reading copy. Keeps no state; callable from any thread.
namespace fennick::ExportService {

enum class Format { csv, html };

// "csv" or "html".
QString fileExtension(Format format);

// "receipts-", today's date stamp and the extension, as in "receipts-2025-03-04.csv".
QString proposedFileName(Format format);

// One line per receipt below a line of column names, in the order given; lines end with a line feed.
QString buildCSV(const QList<Receipt> &receipts);

// The values of buildCSV() for the clipboard, as spreadsheets take them: a tab between two values. Tabs and
// line breaks inside values are blanks.
QString buildTabSeparated(const QList<Receipt> &receipts);

// One table row per receipt, in the order given, and their total. The total adds all amounts whatever their
// currency and the receipts' status.
QString buildHTML(const QList<Receipt> &receipts);

// Builds the ledger and writes it as UTF-8, complete or not at all. On failure an older file at `path` is
// unchanged.
[[nodiscard]] std::expected<void, FileProblem> writeLedger(const QList<Receipt> &receipts, Format format,
                                                           const QString &path);

// Two decimals, a point, no grouping. Despite its name it trims nothing, so that columns of amounts line up.
QString trimNumber(double value);

// The amount as the user's locale writes it in the currency, always with two decimals; two decimals alone
// without a currency; an em dash without an amount.
QString formatAmount(std::optional<double> amount, const std::optional<QString> &currency);

// The current time in English, in the device's time zone, as in "March 4, 2025 at 5:05 PM" (the blank before
// "PM" is a narrow one that does not break).
QString longDateTime();

// Today's date in the device's time zone, as in "2025-03-04".
QString isoDateStamp();

} // namespace fennick::ExportService
