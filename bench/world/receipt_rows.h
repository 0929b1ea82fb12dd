#pragma once

#include "purchase.h"
#include "receipt_sheet.h"
#include "till_style.h"

namespace fennick {

// The shop as it names itself.
struct Shop {
    QString name;
    QString distinctiveName; // the part of the name by which it is known
    QString place;
};

// What the parts of a receipt are made of, from top to bottom.
struct ReceiptParts {
    const Customs &customs;
    const Purchase &purchase;
    const TillStyle &style;
    const Shop &shop;
    SeededRandom &random;

    // One of the words for `key`, as the till prints it.
    QString word(const QString &key) const;
    // The same with its places filled: {later} and {earlier} dates, {n} items, digits and letters.
    QString phrase(const QString &key) const;
    QString dateAndTime() const;
};

QList<SheetRow> headerRows(const ReceiptParts &parts);
QList<SheetRow> dateRows(const ReceiptParts &parts);
QList<SheetRow> itemRows(const ReceiptParts &parts);
QList<SheetRow> totalRows(const ReceiptParts &parts);
QList<SheetRow> paymentRows(const ReceiptParts &parts);
QList<SheetRow> taxRows(const ReceiptParts &parts);
QList<SheetRow> cardSlipRows(const ReceiptParts &parts);
QList<SheetRow> footerRows(const ReceiptParts &parts);

// Rows that several parts have.
SheetRow ruleRow(const ReceiptParts &parts);
SheetRow textRow(const QString &left, const QString &right = {});
SheetRow lineRow(const ReceiptParts &parts, const QString &text); // centred or at the left, as the till does

} // namespace fennick
