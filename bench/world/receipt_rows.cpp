#include "receipt_rows.h"

#include "date_text.h"

namespace fennick {

using namespace Qt::StringLiterals;

QString ReceiptParts::word(const QString &key) const {
    const QString text = random.oneOf(customs.all(key));
    return style.isCapital ? text.toUpper() : text;
}

QString ReceiptParts::phrase(const QString &key) const {
    QString text = random.oneOf(customs.all(key));
    const QDateTime later = purchase.moment.addDays(random.between(5, 400));
    const QDateTime earlier = purchase.moment.addDays(-random.between(2, 60));
    text.replace(u"{later}"_s, dateText(later, style.date, customs));
    text.replace(u"{earlier}"_s, dateText(earlier, style.date, customs));
    text.replace(u"{earlier time}"_s, dateText(purchase.moment.addSecs(-1500), style.time, customs));
    text.replace(u"{n}"_s, QString::number(purchase.lines.size()));
    text = random.filled(text);
    return style.isCapital ? text.toUpper() : text;
}

QString ReceiptParts::dateAndTime() const {
    return dateText(purchase.moment, style.date + u"  "_s + style.time, customs);
}

SheetRow ruleRow(const ReceiptParts &parts) {
    return {.kind = RowKind::rule, .cells = {parts.style.rule}};
}

SheetRow textRow(const QString &left, const QString &right) {
    return {.kind = RowKind::text, .cells = {left, right}};
}

SheetRow lineRow(const ReceiptParts &parts, const QString &text) {
    return {.kind = parts.style.isCentred ? RowKind::centred : RowKind::text, .cells = {text}};
}

} // namespace fennick
