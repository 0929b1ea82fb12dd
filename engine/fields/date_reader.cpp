#include "engine/fields/date_reader.h"

#include "engine/fields/date_repair.h"
#include "engine/knowledge/calendar_names.h"
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

struct DateWords {
    QStringList labels;
    QStringList otherEvents; // words that only stand before a date: "Date due", "Valid until"
};

DateWords wordsIn(const Languages &languages) {
    return {.labels = dateWords().phrases(u"date"_s, languages),
            .otherEvents = dateWords().phrases(u"other date"_s, languages)};
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
constexpr double otherOrderShare = 0.9;
constexpr double repeatedDateShare = 0.2;
// What being one line further up is worth between equals.
constexpr double perLine = 0.001;
// All readings have it, or nearly.
constexpr double certainDateScore = 1.5;
constexpr double certainDateLead = 8;

double score(const TextLine &line, qsizetype start, const DateWords &words) {
    const QString before = withoutAccents(wordsOf(line.text.left(start)));
    double points = plainDate;
    if (containsAnyPhrase(before, words.labels)) {
        points += labelled;
    }
    if (hasClockTime(line.text)) {
        points += besideTime;
    }
    if (containsAnyPhrase(before, words.otherEvents)) {
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
    ReadingDates(const Reading &reading, const DateStyle &style, QDate today)
        : words_(wordsIn(style.languages))
        , today_(today) {
        DateStyle other = style;
        other.order = style.order == DateOrder::monthFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
        for (qsizetype index = 0; index < reading.size(); ++index) {
            const TextLine &line = reading[index];
            add(line, index, printedDates(line.text, style), 1);
            add(line, index, garbledDates(line.text, style), garbledShare);
            // What is still to come in one order was in the other.
            if (hasImplausible(printedDates(line.text, style))) {
                add(line, index, printedDates(line.text, other), otherOrderShare);
            }
        }
    }

    const QMap<QDate, Candidate> &candidates() const { return candidates_; }

private:
    bool hasImplausible(const QList<PrintedDate> &dates) const {
        return std::ranges::any_of(
            dates, [this](const PrintedDate &printed) { return !isPlausible(printed.date, today_); });
    }

    void add(const TextLine &line, qsizetype index, const QList<PrintedDate> &dates, double share) {
        for (const PrintedDate &printed : dates) {
            if (!isPlausible(printed.date, today_)) {
                continue;
            }
            const double points =
                share * score(line, printed.start, words_) - perLine * static_cast<double>(index);
            Candidate &candidate = candidates_[printed.date];
            if (points > candidate.score) {
                candidate.score = points + repeatedDateShare * candidate.score;
                candidate.line = index;
            } else {
                candidate.score += repeatedDateShare * points;
            }
        }
    }

    DateWords words_;
    QDate today_;
    QMap<QDate, Candidate> candidates_;
};

// How many dates of a line prove that the day, or the month, stands first.
struct OrderProof {
    int dayFirst = 0;
    int monthFirst = 0;
};

// The day of the week that `line` names beside a date, if any.
int weekdayIn(const QString &line, const Languages &languages) {
    const QStringList words = wordsOf(line).split(u' ', Qt::SkipEmptyParts);
    for (const QString &word : words) {
        if (const int day = weekdayNumber(word, languages)) {
            return day;
        }
    }
    return 0;
}

OrderProof orderProof(const QString &line, const Languages &languages) {
    static const QRegularExpression numbers(
        uR"((?<![\d.,/\-])(\d{1,2})([\-/.])(\d{1,2})\2(\d{4}|\d{2})(?![\d/]))"_s);
    OrderProof proof;
    QRegularExpressionMatchIterator matches = numbers.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const int first = match.captured(1).toInt();
        const int second = match.captured(3).toInt();
        const int year = match.captured(4).toInt() + (match.capturedLength(4) == 2 ? 2000 : 0);
        const QDate dayFirst(year, second, first);
        const QDate monthFirst(year, first, second);
        const int weekday = dayFirst.isValid() && monthFirst.isValid() ? weekdayIn(line, languages) : 0;
        const auto isIt = [weekday](QDate date, QDate other) {
            return date.isValid() &&
                   (!other.isValid() || (date.dayOfWeek() == weekday && other.dayOfWeek() != weekday));
        };
        proof.dayFirst += isIt(dayFirst, monthFirst) ? 1 : 0;
        proof.monthFirst += isIt(monthFirst, dayFirst) ? 1 : 0;
    }
    return proof;
}

} // namespace

std::optional<FoundDate> readDate(const QList<Reading> &readings, const DateStyle &style, QDate today) {
    QList<QMap<QDate, Candidate>> byReading;
    QMap<QDate, double> scores;
    for (const Reading &reading : readings) {
        byReading.append(ReadingDates(reading, style, today).candidates());
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

DateOrder printedOrder(const QList<Reading> &readings, const DateStyle &style) {
    int dayFirst = 0;
    int monthFirst = 0;
    for (const Reading &reading : readings) {
        for (const TextLine &line : reading) {
            const OrderProof proof = orderProof(line.text, style.languages);
            dayFirst += proof.dayFirst;
            monthFirst += proof.monthFirst;
        }
    }
    if (dayFirst == monthFirst) {
        return style.order;
    }
    return dayFirst > monthFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
}

} // namespace fennick::engine
