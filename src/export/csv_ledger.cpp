#include "export/export_service.h"
#include "export/line_buffer.h"
#include "text/characters.h"
#include "text/white_space.h"

#include <algorithm>
#include <initializer_list>

namespace fennick::ExportService {

namespace {

// For the reserved memory alone; a longer text makes it grow.
constexpr qsizetype typicalLineLength = 192;

QStringView textOrNothing(const std::optional<QString> &text) {
    return text ? QStringView(*text) : QStringView();
}

bool needsQuotes(QStringView field) {
    return std::ranges::any_of(field, [](QChar character) {
        return character == u'"' || character == u',' || character == u'\n' || character == u'\r';
    });
}

void appendQuoted(LineBuffer &line, QStringView field) {
    line.append(u'"');
    for (const QChar character : field) {
        line.append(character);
        if (character == u'"') {
            line.append(character);
        }
    }
    line.append(u'"');
}

template <typename Append>
void appendLine(QString &ledger, LineBuffer &line, QChar separator, Append appendField,
                std::initializer_list<QStringView> fields) {
    line.clear();
    for (const QStringView field : fields) {
        appendField(line, field);
        line.append(separator);
    }
    ledger.append(line.text().chopped(1)).append(u'\n');
}

template <typename Append>
QString buildLines(const QList<Receipt> &receipts, QChar separator, Append appendField) {
    QString ledger;
    LineBuffer line;
    ledger.reserve((receipts.size() + 1) * typicalLineLength);
    appendLine(ledger, line, separator, appendField,
               {u"Date", u"Time", u"Amount", u"Currency", u"Location", u"Category", u"Summary", u"File Name",
                u"Status", u"Scanned At"});
    for (const Receipt &receipt : receipts) {
        appendLine(ledger, line, separator, appendField,
                   {textOrNothing(receipt.date), textOrNothing(receipt.time),
                    receipt.amount ? trimNumber(*receipt.amount) : QString(), textOrNothing(receipt.currency),
                    textOrNothing(receipt.location), receipt.category, receipt.summary, receipt.fileName,
                    rawValue(receipt.status), receipt.scannedAt});
    }
    return wellFormed(ledger);
}

void appendCsvField(LineBuffer &line, QStringView field) {
    if (needsQuotes(field)) {
        appendQuoted(line, field);
    } else {
        line.append(field);
    }
}

bool breaksACell(QChar character) {
    return isWhiteSpace(character) && character.category() != QChar::Separator_Space;
}

// Spreadsheets take a cell that begins with a quote for a quoted one, which may reach beyond its line.
void appendCell(LineBuffer &line, QStringView field) {
    QString cell = field.toString();
    std::ranges::replace_if(cell, breaksACell, QChar(u' '));
    if (cell.startsWith(u'"')) {
        appendQuoted(line, cell);
    } else {
        line.append(cell);
    }
}

} // namespace

QString buildCSV(const QList<Receipt> &receipts) {
    return buildLines(receipts, u',', appendCsvField);
}

QString buildTabSeparated(const QList<Receipt> &receipts) {
    return buildLines(receipts, u'\t', appendCell);
}

} // namespace fennick::ExportService
