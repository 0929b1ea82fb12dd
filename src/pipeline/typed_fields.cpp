#include "pipeline/typed_fields.h"

#include "extraction/valid_categories.h"
#include "pipeline/typed_values.h"
#include "text/money_locale.h"

#include <algorithm>

namespace fennick {

namespace {

template <typename Value>
std::expected<void, FieldProblem> takeTyped(std::optional<Value> &field, TypedValues::Typed<Value> typed) {
    if (!typed) {
        return std::unexpected(std::move(typed.error()));
    }
    field = *std::move(typed);
    return {};
}

std::expected<void, FieldProblem> takeCategory(QString &category, const QString &typed) {
    if (std::ranges::find(GeminiClient::validCategories, typed) == GeminiClient::validCategories.end()) {
        return std::unexpected(FieldProblem{FieldProblem::Kind::unknownCategory, typed});
    }
    category = typed;
    return {};
}

std::expected<void, FieldProblem> takeField(Receipt &receipt, ReceiptField field, const QString &typed,
                                            const FieldFormats &formats) {
    switch (field) {
    case ReceiptField::date:
        return takeTyped(receipt.date, TypedValues::date(typed, formats.dates));
    case ReceiptField::time:
        return takeTyped(receipt.time, TypedValues::time(typed));
    case ReceiptField::amount:
        return takeTyped(receipt.amount, TypedValues::amount(typed, formats.money));
    case ReceiptField::currency:
        return takeTyped(receipt.currency, TypedValues::currency(typed));
    case ReceiptField::category:
        return takeCategory(receipt.category, typed);
    case ReceiptField::location: {
        const QString location = TypedValues::line(typed);
        receipt.location = location.isEmpty() ? std::nullopt : std::optional(location);
        return {};
    }
    case ReceiptField::summary:
        receipt.summary = TypedValues::line(typed);
        return {};
    }
    Q_UNREACHABLE();
}

} // namespace

FieldFormats FieldFormats::ofUser() {
    return {QLocale::system(), moneyLocale()};
}

QString fieldText(const Receipt &receipt, ReceiptField field, const FieldFormats &formats) {
    switch (field) {
    case ReceiptField::date:
        return receipt.date.value_or(QString());
    case ReceiptField::time:
        return receipt.time.value_or(QString());
    case ReceiptField::amount:
        return receipt.amount ? TypedValues::amountText(*receipt.amount, receipt.currency, formats.money)
                              : QString();
    case ReceiptField::currency:
        return receipt.currency.value_or(QString());
    case ReceiptField::location:
        return receipt.location.value_or(QString());
    case ReceiptField::category:
        return receipt.category;
    case ReceiptField::summary:
        return receipt.summary;
    }
    Q_UNREACHABLE();
}

std::expected<Receipt, FieldProblems> withTypedFields(const Receipt &receipt, const TypedFields &typed,
                                                      const FieldFormats &formats) {
    Receipt changed = receipt;
    FieldProblems problems;
    for (const auto &[field, text] : typed) {
        if (const auto taken = takeField(changed, field, text, formats); !taken) {
            problems.emplace(field, taken.error());
        }
    }
    if (!problems.empty()) {
        return std::unexpected(std::move(problems));
    }
    return changed;
}

} // namespace fennick
