#include "date_text.h"
#include "receipt_rows.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

void addPhrase(const ReceiptParts &parts, QList<SheetRow> &rows, const QString &key, double probability) {
    if (parts.customs.has(key) && parts.random.chance(probability)) {
        rows.append(lineRow(parts, parts.phrase(key)));
    }
}

} // namespace

QList<SheetRow> cardSlipRows(const ReceiptParts &parts) {
    QList<SheetRow> rows;
    if (parts.purchase.isCash || !parts.customs.has(u"slip title"_s) || !parts.random.chance(0.5)) {
        return rows;
    }
    rows.append({.kind = RowKind::gap});
    rows.append({.kind = RowKind::centred, .cells = {parts.word(u"slip title"_s)}});
    QStringList lines = parts.customs.all(u"slip line"_s);
    for (int count = parts.random.between(1, 4); count > 0 && !lines.isEmpty(); --count) {
        const QString line = lines.takeAt(parts.random.below(static_cast<int>(lines.size())));
        rows.append(textRow(parts.random.filled(line)));
    }
    rows.append(textRow(parts.phrase(u"card number"_s)));
    rows.append(textRow(parts.dateAndTime()));
    const Purchase &purchase = parts.purchase;
    rows.append(textRow(parts.word(u"slip amount"_s), parts.style.totalText(purchase.due, purchase.digits)));
    rows.append({.kind = RowKind::centred, .cells = {parts.word(u"approved"_s)}});
    return rows;
}

QList<SheetRow> footerRows(const ReceiptParts &parts) {
    QList<SheetRow> rows;
    rows.append({.kind = RowKind::gap});
    static const QStringList shops = {u"supermarket"_s, u"pharmacy"_s, u"bookshop"_s, u"hardware"_s};
    const bool isShop = shops.contains(parts.purchase.trade);
    addPhrase(parts, rows, u"count"_s, parts.purchase.lines.size() > 1 ? 0.35 : 0);
    addPhrase(parts, rows, u"loyalty"_s, 0.2);
    addPhrase(parts, rows, u"best before"_s, isShop ? 0.15 : 0);
    addPhrase(parts, rows, u"thanks"_s, 0.8);
    addPhrase(parts, rows, u"return"_s, isShop ? 0.3 : 0);
    addPhrase(parts, rows, u"fiscal"_s, 0.6);
    const double codes = parts.random.share();
    if (codes < 0.18) {
        rows.append({.kind = RowKind::barcode, .cells = {parts.random.filled(u"#############"_s)}});
    } else if (codes < 0.3) {
        rows.append({.kind = RowKind::qrCode, .cells = {parts.random.filled(u"@@##@@##"_s)}});
    }
    return rows;
}

} // namespace fennick
