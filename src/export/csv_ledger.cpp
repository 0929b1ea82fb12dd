#include "export/export_service.h"
#include "text/characters.h"

#include <algorithm>
#include <initializer_list>

namespace fennick::ExportService {

namespace {

constexpr qsizetype typicalLineLength = 192;

QStringView textOrNothing(const std::optional<QString> &text) {
    return text ? QStringView(*text) : QStringView();
}

bool needsQuotes(QStringView field) {
    return std::ranges::any_of(field, [](QChar character) {
        return character == u'"' || character == u',' || character == u'\n' || character == u'\r';
    });
}

void appendQuoted(QString &csv, QStringView field) {
    csv.append(u'"');
    for (const QChar character : field) {
        csv.append(character);
        if (character == u'"') {
            csv.append(character);
        }
    }
    csv.append(u'"');
}

void appendLine(QString &csv, std::initializer_list<QStringView> fields) {
    bool isFirst = true;
    for (const QStringView field : fields) {
        if (!isFirst) {
            csv.append(u',');
        }
        isFirst = false;
        if (needsQuotes(field)) {
            appendQuoted(csv, field);
        } else {
            csv.append(field);
        }
    }
    csv.append(u'\n');
}

} // namespace

QString buildCSV(const QList<Receipt> &receipts) {
    QString csv;
    csv.reserve((receipts.size() + 1) * typicalLineLength);
    appendLine(csv, {u"Date", u"Time", u"Amount", u"Currency", u"Location", u"Category", u"Summary",
                     u"File Name", u"Status", u"Scanned At"});
    for (const Receipt &receipt : receipts) {
        appendLine(csv, {textOrNothing(receipt.date), textOrNothing(receipt.time),
                         receipt.amount ? trimNumber(*receipt.amount) : QString(),
                         textOrNothing(receipt.currency), textOrNothing(receipt.location), receipt.category,
                         receipt.summary, receipt.fileName, rawValue(receipt.status), receipt.scannedAt});
    }
    return wellFormed(csv);
}

} // namespace fennick::ExportService
