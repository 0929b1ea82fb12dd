#include "engine/knowledge/calendar_names.h"

#include "engine/knowledge/words.h"

#include <QHash>
#include <QSet>

#include <unicode/dtfmtsym.h>

namespace fennick::engine {

namespace {

using icu::DateFormatSymbols;

constexpr qsizetype shortestName = 3;
constexpr int monthsInYear = 12;
constexpr int daysInWeek = 7;

using Meanings = QHash<QString, QSet<int>>; // every beginning of a name, and what it may stand for

struct CalendarNames {
    Meanings months;
    Meanings weekdays;
};

void addName(Meanings &meanings, const icu::UnicodeString &name, int number) {
    const QString plain =
        withoutAccents(wordsOf(QString::fromUtf16(name.getBuffer(), name.length()))).trimmed();
    for (qsizetype length = shortestName; length <= plain.size(); ++length) {
        meanings[plain.left(length)].insert(number);
    }
}

void addNames(CalendarNames &names, const DateFormatSymbols &symbols,
              DateFormatSymbols::DtContextType context, DateFormatSymbols::DtWidthType width) {
    int32_t count = 0;
    const icu::UnicodeString *months = symbols.getMonths(count, context, width);
    for (int month = 0; month < count && month < monthsInYear; ++month) {
        addName(names.months, months[month], month + 1);
    }
    // They begin with a nameless one and Sunday.
    const icu::UnicodeString *weekdays = symbols.getWeekdays(count, context, width);
    for (int day = 1; day < count && day <= daysInWeek; ++day) {
        addName(names.weekdays, weekdays[day], day == 1 ? daysInWeek : day - 1);
    }
}

CalendarNames namesIn(const QString &language) {
    CalendarNames names;
    UErrorCode error = U_ZERO_ERROR;
    const DateFormatSymbols symbols(icu::Locale(language.toUtf8().constData()), error);
    if (U_FAILURE(error)) {
        return names;
    }
    for (const auto context : {DateFormatSymbols::FORMAT, DateFormatSymbols::STANDALONE}) {
        addNames(names, symbols, context, DateFormatSymbols::WIDE);
        addNames(names, symbols, context, DateFormatSymbols::ABBREVIATED);
    }
    return names;
}

const QHash<QString, CalendarNames> &namesByLanguage() {
    static const QHash<QString, CalendarNames> all = [] {
        QHash<QString, CalendarNames> loaded;
        const Languages languages = knownLanguages();
        for (const QString &language : languages) {
            loaded.insert(language, namesIn(language));
        }
        return loaded;
    }();
    return all;
}

int numberOf(const QString &name, const Languages &languages, Meanings CalendarNames::*kind) {
    const QString plain = withoutAccents(wordsOf(name)).trimmed();
    QSet<int> found;
    for (auto own = namesByLanguage().cbegin(); own != namesByLanguage().cend(); ++own) {
        if (own.key() == u"en" || languages.contains(own.key())) {
            found.unite((own.value().*kind).value(plain));
        }
    }
    return found.size() == 1 ? *found.cbegin() : 0;
}

} // namespace

int monthNumber(const QString &name, const Languages &languages) {
    return numberOf(name, languages, &CalendarNames::months);
}

int weekdayNumber(const QString &name, const Languages &languages) {
    return numberOf(name, languages, &CalendarNames::weekdays);
}

} // namespace fennick::engine
