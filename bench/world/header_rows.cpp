#include "date_text.h"
#include "receipt_rows.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// "Café Kornblum" as a part of an address in the web.
QString webName(const QString &name) {
    QString result;
    for (const QChar character : name.normalized(QString::NormalizationForm_D).toLower()) {
        if (character.unicode() < 128 && character.isLetterOrNumber()) {
            result += character;
        }
    }
    return result;
}

SheetRow nameRow(const ReceiptParts &parts) {
    SheetRow row =
        lineRow(parts, parts.style.isCapital || parts.random.chance(0.3) ? parts.shop.name.toUpper()
                                                                         : parts.shop.name);
    const int look = parts.random.below(10);
    row.scale = look < 5 ? 2 : look < 8 ? 1.5 : 1;
    row.isBold = look % 2 == 0;
    row.isInverse = look == 9;
    return row;
}

void addAddress(const ReceiptParts &parts, QList<SheetRow> &rows) {
    const QString street = parts.random.filled(parts.random.oneOf(parts.customs.all(u"streets"_s)));
    if (parts.random.chance(0.2)) {
        rows.append(lineRow(parts, street + u", "_s + parts.shop.place));
        return;
    }
    rows.append(lineRow(parts, street));
    rows.append(lineRow(parts, parts.shop.place));
}

void addCompany(const ReceiptParts &parts, QList<SheetRow> &rows) {
    if (parts.customs.has(u"company"_s) && parts.random.chance(0.45)) {
        rows.append(lineRow(parts, parts.word(u"company"_s).replace(u"{}"_s, parts.shop.distinctiveName)));
    } else if (parts.customs.has(u"operators"_s) && parts.random.chance(0.25)) {
        rows.append(lineRow(parts, parts.word(u"operators"_s)));
    }
}

void addContacts(const ReceiptParts &parts, QList<SheetRow> &rows) {
    if (parts.random.chance(0.7)) {
        rows.append(lineRow(parts, parts.word(u"phone label"_s) + u' ' + parts.phrase(u"phone"_s)));
    }
    if (parts.customs.has(u"web"_s) && parts.random.chance(0.3)) {
        QString web = parts.random.oneOf(parts.customs.all(u"web"_s));
        rows.append(lineRow(parts, web.replace(u"{name}"_s, webName(parts.shop.distinctiveName))));
    }
}

void addIfCustomary(const ReceiptParts &parts, QList<SheetRow> &rows, const QString &key,
                    double probability) {
    if (parts.customs.has(key) && parts.random.chance(probability)) {
        rows.append(lineRow(parts, parts.phrase(key)));
    }
}

void addHeading(const ReceiptParts &parts, QList<SheetRow> &rows) {
    const QString key = parts.purchase.isRefund ? u"refund"_s : u"heading"_s;
    if (parts.customs.has(key) && (parts.purchase.isRefund || parts.random.chance(0.45))) {
        rows.append(
            {.kind = RowKind::centred, .cells = {parts.word(key)}, .isBold = parts.random.chance(0.5)});
    }
}

QString labelled(const QString &label, const QString &text) {
    return label.endsWith(u':') ? label + u' ' + text : label + u": "_s + text;
}

QString numberText(const ReceiptParts &parts) {
    return parts.random.filled(parts.random.oneOf({u"####"_s, u"######"_s, u"@##-#####"_s, u"###/####"_s}));
}

} // namespace

QList<SheetRow> headerRows(const ReceiptParts &parts) {
    QList<SheetRow> rows;
    addIfCustomary(parts, rows, u"welcome"_s, 0.1);
    rows.append(nameRow(parts));
    addIfCustomary(parts, rows, u"slogan"_s, 0.2);
    addCompany(parts, rows);
    addAddress(parts, rows);
    addContacts(parts, rows);
    addIfCustomary(parts, rows, u"tax id"_s, 0.75);
    addIfCustomary(parts, rows, u"hours"_s,
                   parts.purchase.trade == u"taxi" || parts.purchase.trade == u"rail" ? 0 : 0.15);
    rows.append({.kind = RowKind::gap});
    addHeading(parts, rows);
    return rows;
}

QList<SheetRow> dateRows(const ReceiptParts &parts) {
    QList<SheetRow> rows;
    const QString date = dateText(parts.purchase.moment, parts.style.date, parts.customs);
    const QString time = dateText(parts.purchase.moment, parts.style.time, parts.customs);
    const QString number = parts.word(u"number"_s) + u' ' + numberText(parts);
    switch (parts.random.below(4)) {
    case 0:
        rows.append(textRow(date + u' ' + time, number));
        break;
    case 1:
        rows.append(textRow(date, time));
        rows.append(textRow(number));
        break;
    case 2:
        rows.append(textRow(labelled(parts.word(u"date label"_s), date + u' ' + time)));
        rows.append(textRow(number));
        break;
    default:
        rows.append(textRow(number, date));
        rows.append(
            textRow(parts.word(u"till"_s) + u' ' + QString::number(parts.random.between(1, 19)), time));
        break;
    }
    if (parts.random.chance(0.5)) {
        rows.append(textRow(parts.word(u"cashier"_s) + u' ' + parts.word(u"cashier names"_s)));
    }
    if (parts.purchase.trade == u"restaurant" && parts.random.chance(0.7)) {
        const QString table = parts.word(u"table"_s) + u' ' + QString::number(parts.random.between(1, 40));
        const QString guests =
            parts.customs.has(u"guests"_s)
                ? parts.word(u"guests"_s) + u' ' + QString::number(parts.random.between(1, 6))
                : QString();
        rows.append(textRow(table, guests));
    }
    return rows;
}

} // namespace fennick
