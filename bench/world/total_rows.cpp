#include "receipt_rows.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QString percent(const ReceiptParts &parts, double rate) {
    const QString point = parts.style.amount.point.isEmpty() ? u"."_s : parts.style.amount.point;
    return QString::number(rate).replace(u'.', point);
}

SheetRow sumRow(const ReceiptParts &parts, const QString &label, int64_t amount) {
    return textRow(label, parts.style.text(amount, parts.purchase.digits));
}

// The word may name the currency already: "SUMME EUR".
SheetRow finalRow(const ReceiptParts &parts, const QString &key, int64_t amount) {
    const QString label = parts.word(key);
    QString sign = parts.style.totalAmount.before + parts.style.totalAmount.after;
    sign.remove(u' ');
    const bool isNamed = label.contains(parts.customs.first(u"currency"_s), Qt::CaseInsensitive) ||
                         (!sign.isEmpty() && label.contains(sign, Qt::CaseInsensitive));
    const QString text = isNamed ? parts.style.text(amount, parts.purchase.digits)
                                 : parts.style.totalText(amount, parts.purchase.digits);
    SheetRow row = textRow(label, text);
    const int look = parts.random.below(4);
    row.scale = look == 0 ? 1.5 : look == 1 ? 1.25 : 1;
    row.isBold = look < 3;
    return row;
}

// "Tip: ______" for the guest to fill in.
void addBlankTip(const ReceiptParts &parts, QList<SheetRow> &rows) {
    rows.append({.kind = RowKind::gap});
    rows.append(textRow(parts.word(u"tip"_s) + u':', u"____________"_s));
    rows.append({.kind = RowKind::gap});
    rows.append(textRow(parts.word(u"total"_s) + u':', u"____________"_s));
}

void addSuggestedTips(const ReceiptParts &parts, QList<SheetRow> &rows) {
    rows.append(lineRow(parts, u"Suggested Tip:"_s));
    for (const int share : {18, 20, 22}) {
        const int64_t tip = parts.purchase.subtotal * share / 100;
        rows.append(
            lineRow(parts, u"%1%: (Tip %2 Total %3)"_s.arg(
                               QString::number(share), parts.style.totalText(tip, parts.purchase.digits),
                               parts.style.totalText(parts.purchase.total + tip, parts.purchase.digits))));
    }
}

void addIncludedSentences(const ReceiptParts &parts, QList<SheetRow> &rows) {
    for (const TaxAmount &tax : parts.purchase.includedTaxes) {
        if (tax.tax == 0) {
            continue;
        }
        QString label = parts.word(u"tax line"_s);
        label.replace(u"{rate}"_s, percent(parts, tax.rate), Qt::CaseInsensitive);
        label.replace(u"{net}"_s, parts.style.text(tax.net, parts.purchase.digits), Qt::CaseInsensitive);
        rows.append(sumRow(parts, label, tax.tax));
    }
}

// A column is named by its first word: "rate MwSt%, net Netto, tax MwSt, gross Brutto".
QString cellOf(const ReceiptParts &parts, const QString &column, const TaxAmount &tax, const QString &code) {
    const QString kind = column.trimmed().section(u' ', 0, 0);
    if (kind == u"rate") {
        return (parts.style.hasRateCodes ? code + u' ' : QString()) + percent(parts, tax.rate) + u'%';
    }
    const int64_t amount = kind == u"net" ? tax.net : kind == u"tax" ? tax.tax : tax.net + tax.tax;
    return parts.style.text(amount, parts.purchase.digits);
}

void addTaxTable(const ReceiptParts &parts, QList<SheetRow> &rows) {
    const QStringList columns = parts.random.oneOf(parts.customs.all(u"tax table"_s)).split(u',');
    QStringList heads;
    for (const QString &column : columns) {
        heads.append(column.trimmed().section(u' ', 1));
    }
    rows.append({.cells = heads});
    const QStringList codes = parts.customs.all(u"rate codes"_s);
    for (const TaxAmount &tax : parts.purchase.includedTaxes) {
        QStringList cells;
        for (const QString &column : columns) {
            cells.append(cellOf(parts, column, tax, codes.value(parts.purchase.rates.indexOf(tax.rate))));
        }
        rows.append({.cells = cells});
    }
}

} // namespace

QList<SheetRow> totalRows(const ReceiptParts &parts) {
    const Purchase &purchase = parts.purchase;
    QList<SheetRow> rows;
    const bool isAdded = !purchase.addedTaxes.isEmpty() || purchase.service != 0;
    if (isAdded || (parts.customs.has(u"subtotal"_s) && parts.random.chance(0.3))) {
        rows.append(sumRow(parts, parts.word(u"subtotal"_s), purchase.subtotal));
    }
    if (purchase.service != 0) {
        rows.append(sumRow(parts, parts.word(u"service"_s), purchase.service));
    }
    for (const TaxAmount &tax : purchase.addedTaxes) {
        const bool showsRate = parts.random.chance(0.6);
        rows.append(sumRow(parts, showsRate ? u"%1 %2%"_s.arg(tax.name, percent(parts, tax.rate)) : tax.name,
                           tax.tax));
    }
    if (parts.random.chance(0.5)) {
        rows.append(ruleRow(parts));
    }
    const bool isLast = purchase.rounding == 0 && purchase.tip == 0;
    const QString key =
        purchase.isRefund && parts.customs.has(u"refund total"_s) ? u"refund total"_s : u"total"_s;
    if (isLast) {
        rows.append(finalRow(parts, key, purchase.due));
        return rows;
    }
    rows.append(sumRow(parts, parts.word(u"total"_s), purchase.total));
    if (purchase.rounding != 0) {
        rows.append(sumRow(parts, parts.word(u"rounding"_s), purchase.rounding));
    }
    if (purchase.tip != 0) {
        rows.append(sumRow(parts, parts.word(u"tip"_s), purchase.tip));
    }
    rows.append(finalRow(parts, parts.customs.has(u"payable"_s) ? u"payable"_s : u"total"_s, purchase.due));
    return rows;
}

QList<SheetRow> paymentRows(const ReceiptParts &parts) {
    const Purchase &purchase = parts.purchase;
    QList<SheetRow> rows;
    if (!purchase.isCash) {
        rows.append(sumRow(parts, parts.word(u"card"_s), purchase.due));
    } else if (purchase.isRefund || purchase.given == purchase.due) {
        rows.append(sumRow(parts, parts.word(u"cash"_s), purchase.due));
    } else {
        rows.append(sumRow(parts, parts.word(u"cash"_s), purchase.given));
        rows.append(sumRow(parts, parts.word(u"change"_s), purchase.given - purchase.due));
    }
    const bool isTipped =
        parts.customs.has(u"tips"_s) && purchase.trade == u"restaurant" && purchase.tip == 0;
    if (isTipped && parts.random.chance(0.5)) {
        addSuggestedTips(parts, rows);
    } else if (isTipped && !purchase.isCash) {
        addBlankTip(parts, rows);
    }
    return rows;
}

QList<SheetRow> taxRows(const ReceiptParts &parts) {
    QList<SheetRow> rows;
    if (parts.customs.has(u"tax table"_s) && parts.random.chance(0.5)) {
        addTaxTable(parts, rows);
    } else if (parts.customs.has(u"tax line"_s) && parts.random.chance(0.8)) {
        addIncludedSentences(parts, rows);
    }
    return rows;
}

} // namespace fennick
