#pragma once

#include "model/receipt.h"
#include "pipeline/field_problem.h"

#include <QLocale>
#include <QString>

#include <array>
#include <expected>
#include <map>

namespace fennick {

// The fields of a receipt that a person may correct, in the order in which they are shown.
enum class ReceiptField { date, time, amount, currency, location, category, summary };

inline constexpr std::array receiptFields = {
    ReceiptField::date,     ReceiptField::time,     ReceiptField::amount, ReceiptField::currency,
    ReceiptField::location, ReceiptField::category, ReceiptField::summary};

// How a person's texts stand for dates and amounts.
struct FieldFormats {
    QLocale dates; // for the order of day, month and year
    QLocale money; // for the decimal separator

    // Those of the desktop.
    static FieldFormats ofUser();
};

// What a person has typed, of the fields that were changed.
using TypedFields = std::map<ReceiptField, QString>;

using FieldProblems = std::map<ReceiptField, FieldProblem>;

// The field's value as it is put before a person for editing; empty if it is absent.
QString fieldText(const Receipt &receipt, ReceiptField field, const FieldFormats &formats);

// `receipt` with the typed fields in place of its own, or every field that cannot be understood. Fields that
// were not typed keep their exact values.
[[nodiscard]] std::expected<Receipt, FieldProblems>
withTypedFields(const Receipt &receipt, const TypedFields &typed, const FieldFormats &formats);

} // namespace fennick
