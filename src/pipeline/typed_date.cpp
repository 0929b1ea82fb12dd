#include "pipeline/typed_values.h"
#include "text/white_space.h"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>
#include <array>
#include <utility>

namespace fennick::TypedValues {

using namespace Qt::StringLiterals;

namespace {

using Kind = FieldProblem::Kind;

struct DatePart {
    int value = 0;
    qsizetype digits = 0;
};

struct DateParts {
    DatePart year;
    DatePart month;
    DatePart day;
};

// The numbers in the text, which has no letters; nothing if it has any.
std::optional<QList<DatePart>> numbersIn(const QString &text) {
    constexpr qsizetype mostDigits = 4;
    QList<DatePart> numbers;
    bool isInside = false;
    for (const QChar character : text) {
        if (character.isLetter()) {
            return std::nullopt;
        }
        const int digit = character.digitValue();
        if (digit < 0) {
            isInside = false;
            continue;
        }
        if (!std::exchange(isInside, true)) {
            numbers.append(DatePart());
        }
        DatePart &number = numbers.last();
        number.value = number.value * 10 + digit;
        if (++number.digits > mostDigits) {
            return std::nullopt;
        }
    }
    return numbers;
}

// By the order of the letters in the locale's pattern.
DateParts inOrderOf(const QLocale &locale, const QList<DatePart> &numbers) {
    const QString pattern = locale.dateFormat(QLocale::ShortFormat);
    std::array<QChar, 3> order = {u'd', u'M', u'y'};
    std::ranges::sort(order, {}, [&pattern](QChar letter) { return pattern.indexOf(letter); });
    DateParts parts;
    for (std::size_t place = 0; place < order.size(); ++place) {
        DatePart &part = order.at(place) == u'd'   ? parts.day
                         : order.at(place) == u'M' ? parts.month
                                                   : parts.year;
        part = numbers[static_cast<qsizetype>(place)];
    }
    return parts;
}

int fullYear(const DatePart &year) {
    constexpr int firstOfLastCentury = 80;
    if (year.digits > 2) {
        return year.value;
    }
    return year.value + (year.value >= firstOfLastCentury ? 1900 : 2000);
}

FieldProblem unclear(const QLocale &locale) {
    return {Kind::unclearDate, locale.toString(QDate(2024, 5, 31), QLocale::ShortFormat)};
}

// The language of the windows, which need not be that of the formats.
QString dayInWords(int day, int month, std::optional<int> year) {
    //: The language's code, for the names of months.
    const QLocale language(QCoreApplication::translate("FieldProblem", "en"));
    const QString name = language.standaloneMonthName(month);
    if (year) {
        //: Follows "There is no": %1 is a day, %2 the name of a month, %3 a year.
        return QCoreApplication::translate("FieldProblem", "%1 %2 %3").arg(day).arg(name).arg(*year);
    }
    //: Follows "There is no": %1 is a day, %2 the name of a month.
    return QCoreApplication::translate("FieldProblem", "%1 %2").arg(day).arg(name);
}

Typed<QString> existingDate(int year, int month, int day, const QLocale &locale) {
    constexpr int months = 12;
    constexpr int anyLeapYear = 2024;
    if (month > months) {
        return std::unexpected(FieldProblem{Kind::unknownMonth, QString::number(month)});
    }
    if (year == 0 || month == 0) {
        return std::unexpected(unclear(locale));
    }
    if (!QDate::isValid(anyLeapYear, month, day)) {
        return std::unexpected(FieldProblem{Kind::unknownDay, dayInWords(day, month, std::nullopt)});
    }
    if (!QDate::isValid(year, month, day)) {
        return std::unexpected(FieldProblem{Kind::unknownDay, dayInWords(day, month, year)});
    }
    return QDate(year, month, day).toString(Qt::ISODate);
}

} // namespace

Typed<QString> date(const QString &text, const QLocale &locale) {
    constexpr qsizetype parts = 3;
    const QString typed = trimmedOfWhiteSpace(text);
    if (typed.isEmpty()) {
        return std::nullopt;
    }
    // Some locales write the month as a word.
    if (const QDate written = locale.toDate(typed, QLocale::ShortFormat);
        written.isValid() &&
        std::ranges::any_of(typed, [](QChar character) { return character.isLetter(); })) {
        return written.toString(Qt::ISODate);
    }
    const auto numbers = numbersIn(typed);
    if (!numbers || numbers->size() != parts) {
        return std::unexpected(unclear(locale));
    }
    const bool isIso = numbers->first().digits > 2;
    const DateParts found =
        isIso ? DateParts{numbers->at(0), numbers->at(1), numbers->at(2)} : inOrderOf(locale, *numbers);
    const bool hasOddYear = found.year.digits != 2 && found.year.digits != 4;
    if (hasOddYear || found.month.digits > 2 || found.day.digits > 2) {
        return std::unexpected(unclear(locale));
    }
    return existingDate(fullYear(found.year), found.month.value, found.day.value, locale);
}

} // namespace fennick::TypedValues
