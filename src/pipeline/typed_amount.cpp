#include "pipeline/typed_values.h"
#include "text/currency_codes.h"
#include "text/white_space.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace fennick::TypedValues {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype groupSize = 3;

bool isSeparator(QChar character) {
    return character == u'.' || character == u',' || character == u'\u066B' || character == u'\u066C';
}

// Separates groups in every locale that uses it, and nothing else.
bool isGroupMark(QChar character) {
    return isBlank(character) || character == u'\'' || character == u'\u2019';
}

// The digits as ASCII, separators as they are, nothing else; nothing for a text that is no number. A minus
// sign in front has been taken.
std::optional<QString> numberShape(const QString &text) {
    QString shape;
    for (const QChar character : text) {
        if (const int digit = character.digitValue(); digit >= 0) {
            shape.append(QChar(u'0' + digit));
        } else if (isSeparator(character)) {
            shape.append(character);
        } else if (!isGroupMark(character)) {
            return std::nullopt;
        }
    }
    return shape;
}

// Whether the pieces between a separator are a number's groups of three.
bool areGroups(const QStringList &pieces) {
    return !pieces.first().isEmpty() && pieces.first().size() <= groupSize &&
           std::all_of(pieces.cbegin() + 1, pieces.cend(),
                       [](const QString &piece) { return piece.size() == groupSize; });
}

// The number with a full stop for its decimals and no groups.
std::optional<QString> withoutGroups(const QString &shape, QChar decimal) {
    const auto last = std::find_if(shape.crbegin(), shape.crend(), isSeparator);
    if (last == shape.crend()) {
        return shape;
    }
    const QChar separator = *last;
    const QStringList pieces = shape.split(separator);
    if (std::ranges::any_of(pieces.mid(1),
                            [](const QString &piece) { return std::ranges::any_of(piece, isSeparator); })) {
        return std::nullopt;
    }
    const QString &whole = pieces.first();
    const auto other = std::find_if(whole.cbegin(), whole.cend(), isSeparator);
    const QStringList groups = other == whole.cend() ? QStringList{whole} : whole.split(*other);
    const bool hasGroups = groups.size() > 1;
    if (hasGroups && (pieces.size() > 2 || !areGroups(groups))) {
        return std::nullopt;
    }
    const bool isDecimal =
        pieces.size() == 2 && (hasGroups || separator == decimal || pieces.last().size() != groupSize);
    if (isDecimal) {
        return groups.join(QString()) + u'.' + pieces.last();
    }
    return areGroups(pieces) ? std::optional(pieces.join(QString())) : std::nullopt;
}

std::optional<double> parsed(const QString &number) {
    const bool hasDigits = std::ranges::any_of(number, [](QChar character) { return character.isDigit(); });
    const QByteArray ascii = (number.startsWith(u'.') ? u'0' + number : number).toLatin1();
    double value = 0;
    const auto [end, error] = std::from_chars(ascii.cbegin(), ascii.cend(), value, std::chars_format::fixed);
    const bool isNumber = hasDigits && error == std::errc() && end == ascii.cend() && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

} // namespace

Typed<double> amount(const QString &text, const QLocale &locale) {
    QString typed = trimmedOfWhiteSpace(text);
    if (typed.isEmpty()) {
        return std::nullopt;
    }
    const bool isNegative = typed.startsWith(u'-') || typed.startsWith(u'\u2212');
    if (isNegative) {
        typed.remove(0, 1);
    }
    const auto shape = numberShape(typed);
    const auto number = shape ? withoutGroups(*shape, locale.decimalPoint().front()) : std::nullopt;
    const auto value = number ? parsed(*number) : std::nullopt;
    if (!value) {
        const QString example = amountText(1234.5, std::nullopt, locale);
        return std::unexpected(FieldProblem{FieldProblem::Kind::unclearAmount, example});
    }
    return isNegative && *value != 0 ? -*value : *value;
}

QString amountText(double amount, const std::optional<QString> &currency, const QLocale &locale) {
    const int least = currencyDecimals(currency.value_or(QString()));
    QString text = QString::number(amount, 'f', QLocale::FloatingPointShortest);
    const qsizetype point = text.indexOf(u'.');
    const qsizetype decimals = point < 0 ? 0 : text.size() - point - 1;
    if (decimals < least) {
        text += (point < 0 ? u"."_s : QString()) + QString(least - decimals, u'0');
    }
    return text.replace(u'.', locale.decimalPoint());
}

} // namespace fennick::TypedValues
