#pragma once

#include "pipeline/field_problem.h"

#include <QLocale>
#include <QString>

#include <expected>
#include <optional>

// What a person types into a field, turned into what a receipt stores, and back. Pure functions; a text of
// nothing but white space is an absent value.
namespace fennick::TypedValues {

template <typename Value>
using Typed = std::expected<std::optional<Value>, FieldProblem>;

// yyyy-MM-dd, from that form or from day, month and year in the locale's order, with any separators. Of a
// year with two digits, 80 to 99 belong to the last century.
[[nodiscard]] Typed<QString> date(const QString &text, const QLocale &locale);

// HH:mm, from 24 hours or from twelve with "am" or "pm", with a colon, a full stop or an "h" between.
[[nodiscard]] Typed<QString> time(const QString &text);

// From the locale's separators, and from the other decimal separator where it cannot be meant otherwise.
[[nodiscard]] Typed<double> amount(const QString &text, const QLocale &locale);

// The upper-case ISO 4217 code.
[[nodiscard]] Typed<QString> currency(const QString &text);

// As one line without white space at its ends, and at most 1,000 characters long.
QString line(const QString &text);

// The amount with the locale's decimal separator and without grouping, with all of its decimals and at least
// as many as the currency has.
QString amountText(double amount, const std::optional<QString> &currency, const QLocale &locale);

} // namespace fennick::TypedValues
