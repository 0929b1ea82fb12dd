#include "engine/fields/date_patterns.h"

#include "engine/knowledge/calendar_names.h"

#include <QRegularExpression>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// The Buddhist era began 543 years before the Christian one. No receipt is from a year that far ahead.
constexpr int buddhistEra = 543;
constexpr int firstBuddhistYear = 2443;
// Of two digits: 2500 to 2543 were before there were tills.
constexpr int firstShortBuddhistYear = 44;

int fullYear(const QString &digits, const DateStyle &style) {
    const int year = digits.toInt();
    if (digits.size() > 2) {
        return year >= firstBuddhistYear ? year - buddhistEra : year;
    }
    return style.hasBuddhistYears && year >= firstShortBuddhistYear ? 2500 + year - buddhistEra : 2000 + year;
}

QDate fromTwoNumbers(int first, int second, int year, QChar separator, DateOrder order) {
    const QDate dayFirst(year, second, first);
    const QDate monthFirst(year, first, second);
    if (!dayFirst.isValid() || !monthFirst.isValid()) {
        return dayFirst.isValid() ? dayFirst : monthFirst;
    }
    // Points are written between numbers only where the day comes first.
    return order != DateOrder::monthFirst || separator == u'.' ? dayFirst : monthFirst;
}

struct Pattern {
    QRegularExpression expression;
    QDate (*date)(const QRegularExpressionMatch &match, const DateStyle &style);
};

QDate yearFirst(const QRegularExpressionMatch &match, const DateStyle &style) {
    return QDate(fullYear(match.captured(1), style), match.captured(3).toInt(), match.captured(4).toInt());
}

QDate numbersOnly(const QRegularExpressionMatch &match, const DateStyle &style) {
    const QString last = match.captured(4);
    const int first = match.captured(1).toInt();
    const int second = match.captured(3).toInt();
    if (style.order == DateOrder::yearFirst && last.size() == 2) {
        const QDate date(2000 + first, second, last.toInt());
        if (date.isValid()) {
            return date;
        }
    }
    return fromTwoNumbers(first, second, fullYear(last, style), match.captured(2).at(0), style.order);
}

QDate dayThenName(const QRegularExpressionMatch &match, const DateStyle &style) {
    return QDate(fullYear(match.captured(3), style), monthNumber(match.captured(2), style.languages),
                 match.captured(1).toInt());
}

QDate nameThenDay(const QRegularExpressionMatch &match, const DateStyle &style) {
    return QDate(fullYear(match.captured(3), style), monthNumber(match.captured(1), style.languages),
                 match.captured(2).toInt());
}

QDate yearNameDay(const QRegularExpressionMatch &match, const DateStyle &style) {
    return QDate(fullYear(match.captured(1), style), monthNumber(match.captured(2), style.languages),
                 match.captured(3).toInt());
}

QDate eastAsian(const QRegularExpressionMatch &match, const DateStyle &) {
    return QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
}

QDate vietnamese(const QRegularExpressionMatch &match, const DateStyle &) {
    return QDate(match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt());
}

const QList<Pattern> &patterns() {
    static const QList<Pattern> all = {
        {QRegularExpression(uR"((?<![\d.,/\-])(\d{4})\s?([\-/.])\s?(\d{1,2})\s?\2\s?(\d{1,2})(?!\d))"_s),
         yearFirst},
        {QRegularExpression(
             uR"((?<![\d.,/\-])(\d{1,2})\s?([\-/.])\s?(\d{1,2})\s?\2\s?(\d{4}|\d{2})(?![\d/]|[.,\-]\d))"_s),
         numbersOnly},
        {QRegularExpression(
             uR"((?<!\d)(\d{1,2})(?:st|nd|rd|th|er)?[.\-/\s]{0,2}(?:de\s|d'\s?)?(\p{L}{3,12})[.,\-/\s]{0,3}(?:del?\s)?['’]?(\d{4}|\d{2})(?![\d:]|[.,]\d))"_s),
         dayThenName},
        {QRegularExpression(
             uR"((?<!\p{L})(\p{L}{3,10})[.\-\s]{1,2}(\d{1,2})(?:st|nd|rd|th)?[,.\-\s]{1,3}['’]?(\d{4})(?!\d))"_s),
         nameThenDay},
        {QRegularExpression(
             uR"((?<!\d)(\d{4})[.\-\s]{1,3}(?:m\.?\s)?(\p{L}{3,12})[.\-\s]{1,3}(\d{1,2})(?!\d))"_s),
         yearNameDay},
        {QRegularExpression(uR"(ng[aà]y\s?(\d{1,2})\s?th[aá]ng\s?(\d{1,2})\s?n[aă]m\s?(\d{4})(?!\d))"_s,
                            QRegularExpression::CaseInsensitiveOption |
                                QRegularExpression::UseUnicodePropertiesOption),
         vietnamese},
        {QRegularExpression(uR"((\d{4})\s?年\s?(\d{1,2})\s?月\s?(\d{1,2})\s?日)"_s), eastAsian},
    };
    return all;
}

} // namespace

QList<PrintedDate> printedDates(const QString &line, const DateStyle &style) {
    QList<PrintedDate> dates;
    for (const Pattern &pattern : patterns()) {
        QRegularExpressionMatchIterator matches = pattern.expression.globalMatch(line);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const QDate date = pattern.date(match, style);
            if (date.isValid()) {
                dates.append({date, match.capturedStart(), match.capturedLength()});
            }
        }
    }
    std::ranges::stable_sort(dates, {}, &PrintedDate::start);
    return dates;
}

} // namespace fennick::engine
