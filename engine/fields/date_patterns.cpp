#include "engine/fields/date_patterns.h"

#include "text/characters.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// English, German, French, Spanish, Italian, Dutch and Swedish names by what tells them apart, so that
// "Sept.", "Sep" and "September" need no entry each.
const QHash<QString, int> &monthsByStem() {
    static const QHash<QString, int> months = {
        {u"jan"_s, 1},  {u"jän"_s, 1},  {u"ene"_s, 1},  {u"gen"_s, 1},  {u"feb"_s, 2},  {u"fév"_s, 2},
        {u"fev"_s, 2},  {u"mar"_s, 3},  {u"mär"_s, 3},  {u"mrz"_s, 3},  {u"maa"_s, 3},  {u"apr"_s, 4},
        {u"avr"_s, 4},  {u"abr"_s, 4},  {u"may"_s, 5},  {u"mai"_s, 5},  {u"maj"_s, 5},  {u"mei"_s, 5},
        {u"mag"_s, 5},  {u"jun"_s, 6},  {u"juin"_s, 6}, {u"giu"_s, 6},  {u"jul"_s, 7},  {u"juil"_s, 7},
        {u"lug"_s, 7},  {u"aug"_s, 8},  {u"aoû"_s, 8},  {u"aou"_s, 8},  {u"ago"_s, 8},  {u"sep"_s, 9},
        {u"set"_s, 9},  {u"oct"_s, 10}, {u"okt"_s, 10}, {u"ott"_s, 10}, {u"nov"_s, 11}, {u"dec"_s, 12},
        {u"dez"_s, 12}, {u"déc"_s, 12}, {u"dic"_s, 12},
    };
    return months;
}

int monthNumber(const QString &name) {
    const QString lowered = lowerCased(name);
    if (const auto month = monthsByStem().constFind(lowered.left(4)); month != monthsByStem().cend()) {
        return *month;
    }
    return monthsByStem().value(lowered.left(3), 0);
}

int fullYear(const QString &digits) {
    return digits.size() == 2 ? 2000 + digits.toInt() : digits.toInt();
}

QDate fromTwoNumbers(int first, int second, int year, QChar separator, DayMonthOrder order) {
    const QDate dayFirst(year, second, first);
    const QDate monthFirst(year, first, second);
    if (!dayFirst.isValid() || !monthFirst.isValid()) {
        return dayFirst.isValid() ? dayFirst : monthFirst;
    }
    // Points are written between numbers only where the day comes first.
    return order == DayMonthOrder::DayFirst || separator == u'.' ? dayFirst : monthFirst;
}

struct Pattern {
    QRegularExpression expression;
    QDate (*date)(const QRegularExpressionMatch &match, DayMonthOrder order);
};

QDate yearFirst(const QRegularExpressionMatch &match, DayMonthOrder) {
    return QDate(match.captured(1).toInt(), match.captured(3).toInt(), match.captured(4).toInt());
}

QDate numbersOnly(const QRegularExpressionMatch &match, DayMonthOrder order) {
    return fromTwoNumbers(match.captured(1).toInt(), match.captured(3).toInt(), fullYear(match.captured(4)),
                          match.captured(2).at(0), order);
}

QDate dayThenName(const QRegularExpressionMatch &match, DayMonthOrder) {
    return QDate(fullYear(match.captured(3)), monthNumber(match.captured(2)), match.captured(1).toInt());
}

QDate nameThenDay(const QRegularExpressionMatch &match, DayMonthOrder) {
    return QDate(fullYear(match.captured(3)), monthNumber(match.captured(1)), match.captured(2).toInt());
}

QDate eastAsian(const QRegularExpressionMatch &match, DayMonthOrder) {
    return QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
}

const QList<Pattern> &patterns() {
    static const QList<Pattern> all = {
        {QRegularExpression(uR"((?<![\d.,/\-])(\d{4})\s?([\-/.])\s?(\d{1,2})\s?\2\s?(\d{1,2})(?!\d))"_s),
         yearFirst},
        {QRegularExpression(
             uR"((?<![\d.,/\-])(\d{1,2})\s?([\-/.])\s?(\d{1,2})\s?\2\s?(\d{4}|\d{2})(?![\d/]|[.,\-]\d))"_s),
         numbersOnly},
        {QRegularExpression(
             uR"((?<!\d)(\d{1,2})(?:st|nd|rd|th|er)?[.\-/\s]{0,2}(?:de\s)?(\p{L}{3,10})[.,\-/\s]{0,3}(?:de\s)?['’]?(\d{4}|\d{2})(?![\d:]|[.,]\d))"_s),
         dayThenName},
        {QRegularExpression(
             uR"((?<!\p{L})(\p{L}{3,10})[.\-\s]{1,2}(\d{1,2})(?:st|nd|rd|th)?[,.\-\s]{1,3}['’]?(\d{4})(?!\d))"_s),
         nameThenDay},
        {QRegularExpression(uR"((\d{4})\s?年\s?(\d{1,2})\s?月\s?(\d{1,2})\s?日)"_s), eastAsian},
    };
    return all;
}

} // namespace

QList<PrintedDate> printedDates(const QString &line, DayMonthOrder order) {
    QList<PrintedDate> dates;
    for (const Pattern &pattern : patterns()) {
        QRegularExpressionMatchIterator matches = pattern.expression.globalMatch(line);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const QDate date = pattern.date(match, order);
            if (date.isValid()) {
                dates.append({date, match.capturedStart()});
            }
        }
    }
    std::ranges::stable_sort(dates, {}, &PrintedDate::start);
    return dates;
}

} // namespace fennick::engine
