#include "made_receipt.h"

#include "receipt_rows.h"

#include <cmath>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// "Bäckerei {Kornblum}": what stands in braces is distinctive.
Shop chosenShop(const Customs &customs, const QString &trade, SeededRandom &random) {
    const QString name = random.oneOf(customs.all(u"names "_s + trade));
    const qsizetype begin = name.indexOf(u'{');
    const qsizetype end = name.indexOf(u'}');
    Shop shop{.name = name,
              .distinctiveName = begin < 0 ? name : name.sliced(begin + 1, end - begin - 1),
              .place = random.filled(random.oneOf(customs.all(u"places"_s)))};
    shop.name.remove(u'{').remove(u'}');
    return shop;
}

QList<SheetRow> allRows(const ReceiptParts &parts) {
    QList<SheetRow> rows;
    const QList<SheetRow> header = headerRows(parts);
    const QList<SheetRow> date = dateRows(parts);
    const QList<SheetRow> end = {ruleRow(parts)};
    switch (parts.style.datePlace) {
    case DatePlace::top:
        rows = header + date + end + itemRows(parts);
        break;
    case DatePlace::beforeItems:
        rows = header + end + date + end + itemRows(parts);
        break;
    case DatePlace::bottom:
        rows = header + end + itemRows(parts);
        break;
    }
    rows += end;
    rows += totalRows(parts);
    rows += paymentRows(parts);
    rows += taxRows(parts);
    rows += cardSlipRows(parts);
    if (parts.style.datePlace == DatePlace::bottom) {
        rows += end;
        rows += date;
    }
    return rows + footerRows(parts);
}

bool isRule(const SheetRow &row) {
    return row.kind == RowKind::rule;
}

// Parts may be empty, and end with a rule of their own.
QList<SheetRow> withSingleRules(const QList<SheetRow> &rows) {
    QList<SheetRow> result;
    for (const SheetRow &row : rows) {
        if (!isRule(row) || (!result.isEmpty() && !isRule(result.last()))) {
            result.append(row);
        }
    }
    return result;
}

// As tills print that know capitals of English alone.
QString withoutAccents(const QString &text) {
    QString result;
    for (const QChar character : text.normalized(QString::NormalizationForm_D)) {
        static const QHash<QChar, QString> letters = {
            {u'ß', u"ss"_s}, {u'ø', u"o"_s},  {u'Ø', u"O"_s},  {u'æ', u"ae"_s}, {u'Æ', u"AE"_s},
            {u'ł', u"l"_s},  {u'Ł', u"L"_s},  {u'đ', u"d"_s},  {u'Đ', u"D"_s},  {u'ı', u"i"_s},
            {u'ð', u"d"_s},  {u'þ', u"th"_s}, {u'Þ', u"TH"_s}, {u'Ð', u"D"_s}};
        if (character.category() != QChar::Mark_NonSpacing) {
            result += letters.value(character, QString(character));
        }
    }
    return result;
}

void removeAccents(MadeReceipt &receipt) {
    for (SheetRow &row : receipt.sheet.rows) {
        for (QString &cell : row.cells) {
            cell = withoutAccents(cell);
        }
    }
    receipt.truth.merchant = withoutAccents(receipt.truth.merchant);
}

} // namespace

MadeReceipt madeReceipt(const Customs &customs, SeededRandom &random) {
    const Purchase purchase = madePurchase(customs, random);
    const Shop shop = chosenShop(customs, purchase.trade, random);
    const TillStyle style = TillStyle::chosen(customs, purchase, random);
    const ReceiptParts parts{customs, purchase, style, shop, random};
    MadeReceipt receipt{
        .sheet = {.rows = withSingleRules(allRows(parts)), .columns = style.columns},
        .truth = {.file = {},
                  .date = purchase.moment.date(),
                  .total = static_cast<double>(purchase.due) / std::pow(10, purchase.digits),
                  .currency = customs.first(u"currency"_s),
                  .merchant = shop.distinctiveName,
                  .isPartOfMerchant = true,
                  .categories = categoriesOf(purchase)},
    };
    if (style.isPlain) {
        removeAccents(receipt);
    }
    return receipt;
}

} // namespace fennick
