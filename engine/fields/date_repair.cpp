#include "engine/fields/date_repair.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Letters between digits, as a date has none.
QString withDigits(const QString &line) {
    static const QRegularExpression zero(uR"((?<=[\d/\-.])[OoQD@](?=[\d/\-.OoQD@]|\b))"_s);
    static const QRegularExpression leadingZero(uR"((?<![\p{L}\d])[OoQD@](?=\d[/\-.]\d))"_s);
    static const QRegularExpression one(uR"((?<=[\d/\-.])[Il|](?=[\d/\-.]))"_s);
    static const QRegularExpression five(uR"((?<=[\d/\-.])[S§](?=[\d/\-.]))"_s);
    static const QRegularExpression eight(uR"((?<=[\d/\-.])B(?=[\d/\-.]|\b))"_s);
    QString digits = line;
    digits.replace(zero, u"0"_s).replace(leadingZero, u"0"_s).replace(one, u"1"_s);
    return digits.replace(five, u"5"_s).replace(eight, u"8"_s);
}

QDate dateOf(int first, int second, int year, DateOrder order) {
    if (order == DateOrder::monthFirst) {
        std::swap(first, second);
    }
    return QDate(year, second, first);
}

void collect(QList<PrintedDate> &dates, const QString &line, const QRegularExpression &pattern,
             const DateStyle &style) {
    QRegularExpressionMatchIterator matches = pattern.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const int year = 2000 + match.captured(u"year").toInt();
        const QDate date =
            dateOf(match.captured(u"first").toInt(), match.captured(u"second").toInt(), year, style.order);
        if (date.isValid()) {
            dates.append({date, match.capturedStart(), match.capturedLength()});
        }
    }
}

} // namespace

QList<PrintedDate> garbledDates(const QString &line, const DateStyle &style) {
    // Two digits, two digits and a year from 2000 on; between them a sign, a digit that was one, or nothing.
    static const QRegularExpression anySeparators(
        uR"((?<!\d)(?<first>[0-3]?\d)\s?[/\-.,:'’\\17l|]?\s?(?<second>[0-3]\d)\s?[/\-.,:'’\\17l|]?\s?20(?<year>[0-3]\d)(?!\d))"_s);
    static const QRegularExpression century(
        uR"((?<!\d)(?<first>[0-3]?\d)[/\-.](?<second>[0-3]?\d)[/\-.](?:2\d|\d0)(?<year>[0-3]\d)(?!\d))"_s);
    // A short year only before a time of day.
    static const QRegularExpression shortYear(
        uR"((?<!\d)(?<first>[0-3]?\d)\s?[/\-.,]\s?(?<second>[0-3]?\d)\s?[/\-.,\s]\s?(?<year>[0-3]\d)[\s,;]+\d{1,2}[:.]\d{2})"_s);
    const QString digits = withDigits(line);
    QList<PrintedDate> dates = printedDates(digits, style);
    for (const QRegularExpression &pattern : {anySeparators, century, shortYear}) {
        collect(dates, digits, pattern, style);
    }
    return dates;
}

} // namespace fennick::engine
