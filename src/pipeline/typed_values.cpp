#include "pipeline/typed_values.h"

#include "text/characters.h"
#include "text/currency_codes.h"
#include "text/white_space.h"

#include <QRegularExpression>

namespace fennick::TypedValues {

using namespace Qt::StringLiterals;

namespace {

constexpr int hoursOfHalfADay = 12;

FieldProblem unclearTime(const QString &text) {
    return {FieldProblem::Kind::unclearTime, text};
}

// The hour of the day for one of "am" or "pm"; nothing if there is no such hour.
std::optional<int> hourOfDay(int hour, const QString &half) {
    if (half.isEmpty()) {
        return hour;
    }
    if (hour < 1 || hour > hoursOfHalfADay) {
        return std::nullopt;
    }
    return hour % hoursOfHalfADay + (half.startsWith(u'p') ? hoursOfHalfADay : 0);
}

} // namespace

Typed<QString> time(const QString &text) {
    static const QRegularExpression form(uR"(\A(\d{1,2})[:.h](\d{2})(?:[:.]\d{2})?\s*(?:([ap])\.?m\.?)?\z)"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const QString typed = trimmedOfWhiteSpace(text);
    if (typed.isEmpty()) {
        return std::nullopt;
    }
    const QRegularExpressionMatch match = form.match(typed);
    if (!match.hasMatch()) {
        return std::unexpected(unclearTime(typed));
    }
    const auto hour = hourOfDay(match.captured(1).toInt(), lowerCased(match.captured(3)));
    const int minute = match.captured(2).toInt();
    constexpr int hours = 24;
    constexpr int minutes = 60;
    if (!hour || *hour >= hours || minute >= minutes) {
        return std::unexpected(unclearTime(typed));
    }
    return u"%1:%2"_s.arg(*hour, 2, 10, QLatin1Char('0')).arg(minute, 2, 10, QLatin1Char('0'));
}

Typed<QString> currency(const QString &text) {
    const QString typed = trimmedOfWhiteSpace(text);
    if (typed.isEmpty()) {
        return std::nullopt;
    }
    const QString code = upperCased(typed);
    if (!isIsoCurrency(code)) {
        return std::unexpected(FieldProblem{FieldProblem::Kind::unknownCurrency, typed});
    }
    return code;
}

QString line(const QString &text) {
    constexpr qsizetype longest = 1000; // as of what an extraction stores
    const QString joined = splitOnWhiteSpace(wellFormed(text)).join(u' ');
    return trimmedOfWhiteSpace(shortened(joined, longest));
}

} // namespace fennick::TypedValues
