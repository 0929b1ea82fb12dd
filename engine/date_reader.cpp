#include "engine/date_reader.h"

#include "engine/word_search.h"

#include <QRegularExpression>
#include <QStringList>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int earliestYear = 1990;

bool isPlausible(QDate date, QDate today) {
    return date.year() >= earliestYear && date <= today.addDays(1);
}

// Dates of other events than the purchase. Words that only stand before a date: "Date due", "Valid until".
const QStringList &otherEvents() {
    static const QStringList words = {
        u"due"_s,      u"fällig"_s,     u"zahlbar"_s,     u"expires"_s,     u"expiry"_s,      u"exp"_s,
        u"valid"_s,    u"until"_s,      u"gültig"_s,      u"arrival"_s,     u"arrive"_s,      u"anreise"_s,
        u"check in"_s, u"born"_s,       u"birth"_s,       u"since"_s,       u"best before"_s, u"return by"_s,
        u"delivery"_s, u"delivered"_s,  u"lieferung"_s,   u"lieferdatum"_s, u"shipped"_s,     u"period"_s,
        u"next"_s,     u"from"_s,       u"established"_s, u"departure"_s,   u"abreise"_s,     u"check out"_s,
        u"bis"_s,      u"order date"_s, u"ordered"_s,
    };
    return words;
}

const QStringList &labels() {
    static const QStringList words = {
        u"date"_s,       u"datum"_s,  u"invoice date"_s, u"rechnungsdatum"_s,
        u"belegdatum"_s, u"issued"_s, u"fecha"_s,        u"data"_s,
        u"le"_s,         u"den"_s,    u"dated"_s,        u"dato"_s,
    };
    return words;
}

bool hasClockTime(const QString &line) {
    static const QRegularExpression time(uR"((?<!\d)\d{1,2}[:h]\d{2}(?!\d))"_s);
    return time.match(line).hasMatch();
}

// A time beside a date is the surest sign of a till's own line.
int score(const QString &line, qsizetype start) {
    const QString before = wordsOf(line.left(start));
    int points = 0;
    if (containsAnyPhrase(before, labels())) {
        points += 2;
    }
    if (hasClockTime(line)) {
        points += 2;
    }
    if (containsAnyPhrase(before, otherEvents())) {
        points -= 5;
    }
    return points;
}

} // namespace

std::optional<FoundDate> readDate(const QList<TextLine> &lines, DayMonthOrder order, QDate today) {
    std::optional<FoundDate> best;
    int bestScore = 0;
    for (qsizetype index = 0; index < lines.size(); ++index) {
        for (const PrintedDate &candidate : printedDates(lines[index].text, order)) {
            if (!isPlausible(candidate.date, today)) {
                continue;
            }
            const int points = score(lines[index].text, candidate.start);
            if (best && points <= bestScore) {
                continue;
            }
            best = FoundDate{candidate.date, index};
            bestScore = points;
        }
    }
    return best;
}

} // namespace fennick
