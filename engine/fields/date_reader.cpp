#include "engine/fields/date_reader.h"

#include "engine/fields/date_repair.h"
#include "engine/knowledge/words.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr int earliestYear = 1990;

bool isPlausible(QDate date, QDate today) {
    return date.year() >= earliestYear && date <= today.addDays(1);
}

// Dates of other events than the purchase. Words that only stand before a date: "Date due", "Valid until".
const QStringList &otherEvents() {
    static const QStringList words = {
        u"due"_s,      u"fällig"_s,     u"zahlbar"_s,     u"expires"_s,     u"expiry"_s,       u"exp"_s,
        u"valid"_s,    u"until"_s,      u"gültig"_s,      u"arrival"_s,     u"arrive"_s,       u"anreise"_s,
        u"check in"_s, u"born"_s,       u"birth"_s,       u"since"_s,       u"best before"_s,  u"return by"_s,
        u"delivery"_s, u"delivered"_s,  u"lieferung"_s,   u"lieferdatum"_s, u"shipped"_s,      u"period"_s,
        u"next"_s,     u"from"_s,       u"established"_s, u"departure"_s,   u"abreise"_s,      u"check out"_s,
        u"bis"_s,      u"order date"_s, u"ordered"_s,     u"valid thru"_s,  u"member since"_s,
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

// The shares of a date's score: a time beside it is the surest sign of a till's own line.
constexpr double plainDate = 1;
constexpr double labelled = 2;
constexpr double besideTime = 2;
constexpr double ofOtherEvent = 0.1;
constexpr double garbledShare = 0.3;
constexpr double repeatedDateShare = 0.2;
// What being one line further up is worth between equals.
constexpr double perLine = 0.001;
// All readings have it, or nearly.
constexpr double certainDateScore = 1.5;
constexpr double certainDateLead = 8;

double score(const TextLine &line, qsizetype start) {
    const QString before = wordsOf(line.text.left(start));
    double points = plainDate;
    if (containsAnyPhrase(before, labels())) {
        points += labelled;
    }
    if (hasClockTime(line.text)) {
        points += besideTime;
    }
    if (containsAnyPhrase(before, otherEvents())) {
        points *= ofOtherEvent;
    }
    return points * (0.5 + line.confidence / 2);
}

struct Candidate {
    double score = 0;
    qsizetype line = 0;
};

// The dates of one reading.
class ReadingDates {
public:
    ReadingDates(const Reading &reading, DayMonthOrder order, QDate today)
        : today_(today) {
        for (qsizetype index = 0; index < reading.size(); ++index) {
            const TextLine &line = reading[index];
            add(line, index, printedDates(line.text, order), 1);
            add(line, index, garbledDates(line.text, order), garbledShare);
        }
    }

    const QMap<QDate, Candidate> &candidates() const { return candidates_; }

private:
    void add(const TextLine &line, qsizetype index, const QList<PrintedDate> &dates, double share) {
        for (const PrintedDate &printed : dates) {
            if (!isPlausible(printed.date, today_)) {
                continue;
            }
            const double points = share * score(line, printed.start) - perLine * static_cast<double>(index);
            Candidate &candidate = candidates_[printed.date];
            if (points > candidate.score) {
                candidate.score = points + repeatedDateShare * candidate.score;
                candidate.line = index;
            } else {
                candidate.score += repeatedDateShare * points;
            }
        }
    }

    QDate today_;
    QMap<QDate, Candidate> candidates_;
};

} // namespace

std::optional<FoundDate> readDate(const QList<Reading> &readings, DayMonthOrder order, QDate today) {
    QList<QMap<QDate, Candidate>> byReading;
    QMap<QDate, double> scores;
    for (const Reading &reading : readings) {
        byReading.append(ReadingDates(reading, order, today).candidates());
        const QMap<QDate, Candidate> &own = byReading.last();
        for (auto candidate = own.cbegin(); candidate != own.cend(); ++candidate) {
            scores[candidate.key()] += candidate->score / static_cast<double>(readings.size());
        }
    }
    const auto best = std::max_element(scores.cbegin(), scores.cend());
    if (best == scores.cend()) {
        return std::nullopt;
    }
    double second = 0;
    for (auto other = scores.cbegin(); other != scores.cend(); ++other) {
        second = other == best ? second : std::max(second, *other);
    }

    FoundDate found{.date = best.key(),
                    .lines = {},
                    .isCertain = *best >= certainDateScore && *best >= certainDateLead * second};
    for (const QMap<QDate, Candidate> &candidates : std::as_const(byReading)) {
        const auto own = candidates.constFind(best.key());
        found.lines.append(own == candidates.cend() ? std::nullopt : std::optional(own->line));
    }
    return found;
}

DayMonthOrder printedOrder(const QList<Reading> &readings, DayMonthOrder fallback) {
    static const QRegularExpression numbers(
        uR"((?<![\d.,/\-])(\d{1,2})([\-/.])(\d{1,2})\2(?:\d{4}|\d{2})(?![\d/]))"_s);
    int dayFirst = 0;
    int monthFirst = 0;
    for (const Reading &reading : readings) {
        for (const TextLine &line : reading) {
            QRegularExpressionMatchIterator matches = numbers.globalMatch(line.text);
            while (matches.hasNext()) {
                const QRegularExpressionMatch match = matches.next();
                const int first = match.captured(1).toInt();
                const int second = match.captured(3).toInt();
                dayFirst += first > 12 && first <= 31 && second <= 12 ? 1 : 0;
                monthFirst += second > 12 && second <= 31 && first <= 12 ? 1 : 0;
            }
        }
    }
    if (dayFirst == monthFirst) {
        return fallback;
    }
    return dayFirst > monthFirst ? DayMonthOrder::DayFirst : DayMonthOrder::MonthFirst;
}

} // namespace fennick::engine
