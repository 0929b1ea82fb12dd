#include "date_text.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int buddhistYears = 543;

QString twoDigits(int number) {
    return u"%1"_s.arg(number, 2, 10, QLatin1Char('0'));
}

QString numberOf(int number, qsizetype length) {
    return length == 1 ? QString::number(number) : twoDigits(number % 100);
}

QString yearText(int year, qsizetype length) {
    return length == 2 ? twoDigits(year % 100) : QString::number(year);
}

QString nameOr(const QStringList &names, int number, qsizetype length) {
    return length > 2 ? names.value(number - 1) : numberOf(number, length);
}

QString fieldText(const QDateTime &moment, QChar letter, qsizetype length, const Customs &customs) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    const QString size = length == 3 ? u"short "_s : QString();
    switch (letter.unicode()) {
    case u'd':
        return nameOr(customs.all(size + u"days"_s), length > 2 ? date.dayOfWeek() : date.day(), length);
    case u'M':
        return nameOr(customs.all(size + u"months"_s), date.month(), length);
    case u'y':
        return yearText(date.year(), length);
    case u'B':
        return yearText(date.year() + buddhistYears, length);
    case u'H':
        return numberOf(time.hour(), length);
    case u'h':
        return numberOf((time.hour() + 11) % 12 + 1, length);
    case u'm':
        return numberOf(time.minute(), length);
    case u's':
        return numberOf(time.second(), length);
    default:
        return {};
    }
}

QString halfOfTheDay(const QDateTime &moment, bool isSmall) {
    const QString half = moment.time().hour() < 12 ? u"AM"_s : u"PM"_s;
    return isSmall ? half.toLower() : half;
}

} // namespace

QString dateText(const QDateTime &moment, const QString &pattern, const Customs &customs) {
    QString text;
    for (qsizetype place = 0; place < pattern.size();) {
        const QChar letter = pattern[place];
        if (letter == u'\'') {
            const qsizetype end = pattern.indexOf(u'\'', place + 1);
            text += pattern.mid(place + 1, end - place - 1);
            place = end < 0 ? pattern.size() : end + 1;
            continue;
        }
        if (pattern.sliced(place).startsWith(u"AP", Qt::CaseInsensitive)) {
            text += halfOfTheDay(moment, letter == u'a');
            place += 2;
            continue;
        }
        qsizetype length = 1;
        while (place + length < pattern.size() && pattern[place + length] == letter) {
            ++length;
        }
        text += u"dMyBHhms"_s.contains(letter) ? fieldText(moment, letter, length, customs)
                                               : QString(length, letter);
        place += length;
    }
    return text;
}

} // namespace fennick
