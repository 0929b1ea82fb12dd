#include "date_text.h"
#include "receipt_rows.h"

#include <cmath>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QList<double> columnEnds = {0.72, 1};

QString pointOf(const ReceiptParts &parts) {
    const AmountShape &shape = parts.style.amount;
    return !shape.point.isEmpty() ? shape.point : shape.group == u'.' ? u","_s : u"."_s;
}

QString quantityText(const ReceiptParts &parts, const PurchaseLine &line) {
    const bool isWhole = line.quantity == std::floor(line.quantity);
    return isWhole ? QString::number(static_cast<int>(line.quantity))
                   : QString::number(line.quantity, 'f', 2).replace(u'.', pointOf(parts));
}

QString unitPriceText(const ReceiptParts &parts, const PurchaseLine &line) {
    if (parts.purchase.trade == u"fuel" && parts.purchase.digits > 0) {
        return QString::number(line.unitPrice, 'f', 3).replace(u'.', pointOf(parts));
    }
    const double units = std::pow(10, parts.purchase.digits);
    return amountText(std::lround(line.unitPrice * units), parts.purchase.digits, parts.style.amount);
}

QString amountOf(const ReceiptParts &parts, const PurchaseLine &line) {
    const QString amount = parts.style.text(line.amount, parts.purchase.digits);
    return parts.style.hasRateCodes ? amount + u' ' + parts.customs.all(u"rate codes"_s).value(line.rate)
                                    : amount;
}

QString multiplication(const ReceiptParts &parts, const PurchaseLine &line) {
    const QString unit = parts.purchase.trade == u"fuel"
                             ? u' ' + parts.customs.first(u"fuel unit"_s) + u" x"_s
                             : u' ' + parts.word(u"pieces"_s);
    return quantityText(parts, line) + unit + u' ' + unitPriceText(parts, line);
}

QString itemName(const ReceiptParts &parts, const PurchaseLine &line) {
    const QString name = parts.style.isCapital ? line.name.toUpper() : line.name;
    return parts.style.numbersItems && !line.isExtra ? parts.random.filled(u"##### "_s) + name : name;
}

void addSingle(const ReceiptParts &parts, const PurchaseLine &line, QList<SheetRow> &rows) {
    const bool isNumbered = parts.style.quantity == QuantityPlace::beforeName && !line.isExtra;
    rows.append(textRow((isNumbered ? u"1 "_s : QString()) + itemName(parts, line), amountOf(parts, line)));
}

void addSeveral(const ReceiptParts &parts, const PurchaseLine &line, QList<SheetRow> &rows) {
    const QString amount = amountOf(parts, line);
    const bool isFuel = parts.purchase.trade == u"fuel";
    switch (isFuel ? QuantityPlace::belowItem : parts.style.quantity) {
    case QuantityPlace::beforeName:
        rows.append(textRow(quantityText(parts, line) + u' ' + itemName(parts, line), amount));
        break;
    case QuantityPlace::aboveItem:
        rows.append(textRow(u"  "_s + multiplication(parts, line)));
        rows.append(textRow(itemName(parts, line), amount));
        break;
    case QuantityPlace::belowItem:
    case QuantityPlace::column:
        rows.append(textRow(itemName(parts, line)));
        rows.append(textRow(u"  "_s + multiplication(parts, line), amount));
        break;
    }
}

void addInColumns(const ReceiptParts &parts, const PurchaseLine &line, QList<SheetRow> &rows) {
    rows.append({.cells = {itemName(parts, line), quantityText(parts, line), amountOf(parts, line)},
                 .ends = columnEnds});
}

bool isInColumns(const ReceiptParts &parts) {
    return parts.style.quantity == QuantityPlace::column && parts.purchase.trade != u"fuel";
}

bool isShop(const QString &trade) {
    return trade == u"supermarket" || trade == u"hardware" || trade == u"bookshop" || trade == u"pharmacy";
}

void addLine(const ReceiptParts &parts, const PurchaseLine &line, QList<SheetRow> &rows) {
    if (parts.style.hasBarcodes && isShop(parts.purchase.trade) && !line.isExtra) {
        rows.append(textRow(parts.random.filled(u"#############"_s)));
    }
    if (isInColumns(parts) && !line.isExtra) {
        addInColumns(parts, line, rows);
    } else if (line.quantity == 1) {
        addSingle(parts, line, rows);
    } else {
        addSeveral(parts, line, rows);
    }
    rows.last().isCut = parts.style.cutsNames;
}

void addColumnHeads(const ReceiptParts &parts, QList<SheetRow> &rows) {
    if (!parts.customs.has(u"columns"_s) || !(isInColumns(parts) || parts.random.chance(0.2))) {
        return;
    }
    QStringList heads;
    for (const QString &head : parts.word(u"columns"_s).split(u',')) {
        heads.append(head.trimmed());
    }
    if (heads.size() > 3) {
        heads = {heads.first(), heads[1], heads.last()};
    }
    rows.append({.cells = heads, .ends = heads.size() == 3 ? columnEnds : QList<double>()});
    rows.append(ruleRow(parts));
}

// The bill is of the day on which the guest leaves.
void addStay(const ReceiptParts &parts, QList<SheetRow> &rows) {
    const QDateTime departure = parts.purchase.moment;
    const QDateTime arrival = departure.addDays(-static_cast<int>(parts.purchase.lines.first().quantity));
    const QString from = parts.word(u"arrival"_s) + u' ' + dateText(arrival, parts.style.date, parts.customs);
    const QString until =
        parts.word(u"departure"_s) + u' ' + dateText(departure, parts.style.date, parts.customs);
    rows.append(textRow(from));
    rows.append(textRow(until));
}

} // namespace

QList<SheetRow> itemRows(const ReceiptParts &parts) {
    QList<SheetRow> rows;
    addColumnHeads(parts, rows);
    for (const QString &trade : {u"taxi"_s, u"rail"_s}) {
        const QString key = trade == u"taxi" ? u"trip"_s : u"route"_s;
        if (parts.purchase.trade == trade && parts.customs.has(key)) {
            rows.append(textRow(parts.phrase(key)));
        }
    }
    if (parts.purchase.trade == u"cinema" && parts.customs.has(u"show"_s)) {
        rows.append(textRow(parts.phrase(u"show"_s)));
    }
    if (parts.purchase.trade == u"hotel" && parts.customs.has(u"arrival"_s)) {
        addStay(parts, rows);
    }
    for (const PurchaseLine &line : parts.purchase.lines) {
        addLine(parts, line, rows);
    }
    return rows;
}

} // namespace fennick
