#include "model/searchable_receipt.h"

#include "text/search_text.h"

#include <QLocale>

#include <algorithm>

namespace fennick {

namespace {

QString joinedTexts(const Receipt &receipt) {
    QString texts;
    for (const QString &text :
         {receipt.date.value_or(QString()), receipt.time.value_or(QString()),
          receipt.currency.value_or(QString()), receipt.location.value_or(QString()), receipt.category,
          receipt.summary, receipt.fileName, receipt.error.value_or(QString())}) {
        texts += text + u'\n';
    }
    return texts;
}

QString plainAmount(double amount) {
    constexpr int usualDecimals = 2;
    QString text = QString::number(amount, 'f', QLocale::FloatingPointShortest);
    const qsizetype point = text.indexOf(u'.');
    const qsizetype decimals = point < 0 ? 0 : text.size() - point - 1;
    if (point < 0) {
        text += u'.';
    }
    return text + QString(std::max<qsizetype>(0, usualDecimals - decimals), u'0');
}

} // namespace

SearchableReceipt::SearchableReceipt(const Receipt &receipt, bool isPossibleDuplicate)
    : words(searchText(joinedTexts(receipt)))
    , amountText(receipt.amount ? plainAmount(*receipt.amount) : QString())
    , amount(receipt.amount)
    , currency(receipt.currency.value_or(QString()).toLower())
    , status(receipt.status)
    , addedToPhotos(receipt.addedToPhotos)
    , mayBeDuplicate(isPossibleDuplicate) {
    const QString date = receipt.date.value_or(QString());
    if (date.size() == 10 && date[4] == u'-' && date[7] == u'-') { // ISO 8601, as extraction writes it
        year = QStringView(date).first(4).toInt();
        month = QStringView(date).sliced(5, 2).toInt();
    }
}

} // namespace fennick
