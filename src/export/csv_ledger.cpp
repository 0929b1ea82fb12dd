#include "export/export_service.h"
#include "export/line_buffer.h"
#include "text/characters.h"

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

void appendLine(QString &csv, LineBuffer &line, std::initializer_list<QStringView> fields) {
    line.clear();
    for (const QStringView field : fields) {
        if (needsQuotes(field)) {
            appendQuoted(line, field);
        } else {
            line.append(field);
        }
        line.append(u',');
    }
    csv.append(line.text().chopped(1)).append(u'\n');
}

} // namespace

QString buildCSV(const QList<Receipt> &receipts) {
    QString csv;
    LineBuffer line;
    csv.reserve((receipts.size() + 1) * typicalLineLength);
    appendLine(csv, line,
               {u"Date", u"Time", u"Amount", u"Currency", u"Location", u"Category", u"Summary", u"File Name",
                u"Status", u"Scanned At"});
    for (const Receipt &receipt : receipts) {
        appendLine(csv, line,
                   {textOrNothing(receipt.date), textOrNothing(receipt.time),
                    receipt.amount ? trimNumber(*receipt.amount) : QString(), textOrNothing(receipt.currency),
                    textOrNothing(receipt.location), receipt.category, receipt.summary, receipt.fileName,
                    rawValue(receipt.status), receipt.scannedAt});
    }
    return wellFormed(csv);
}

} // namespace fennick::ExportService
