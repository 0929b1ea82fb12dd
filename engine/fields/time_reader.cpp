#include "engine/fields/time_reader.h"

#include "engine/knowledge/words.h"

#include <QRegularExpression>
#include <QStringList>

#include <cstdlib>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

QTime parsed(const QRegularExpressionMatch &match) {
    int hour = match.captured(u"hour").toInt();
    const int minute = match.captured(u"minute").toInt();
    const QString half = match.captured(u"half").toLower();
    if (!half.isEmpty() && (hour < 1 || hour > 12)) {
        return half == u"p" && hour < 24 ? QTime(hour, minute) : QTime();
    }
    if (half == u"p" && hour < 12) {
        hour += 12;
    }
    if (half == u"a" && hour == 12) {
        hour = 0;
    }
    return QTime(hour, minute);
}

bool tellsOpeningHours(const QString &line, const QStringList &words) {
    static const QRegularExpression span(
        uR"(\d{1,2}[:.]\d{2}\s*(?:[AaPp]\.?[Mm]\.?)?\s*(?:-|–|—|to|bis)\s*\d{1,2}[:.]\d{2})"_s);
    return span.match(line).hasMatch() || containsAnyPhrase(withoutAccents(wordsOf(line)), words);
}

// Lower is better.
qsizetype distance(const QString &line, qsizetype index, std::optional<qsizetype> dateLine,
                   const QStringList &labels) {
    if (index == dateLine) {
        return -2;
    }
    if (containsAnyPhrase(withoutAccents(wordsOf(line)), labels)) {
        return -1;
    }
    return dateLine ? std::abs(index - *dateLine) : index;
}

} // namespace

QList<PrintedTime> printedTimes(const QString &line) {
    static const QRegularExpression colons(
        uR"((?<![\d:.,])(?<hour>\d{1,2})\s?[:h]\s?(?<minute>[0-5]\d)(?:\s?:\s?[0-5]\d)?(?!\d)(?:\s*(?<half>[AaPp])\.?\s?[Mm]\b)?)"_s);
    static const QRegularExpression points(
        uR"((?<![\d:.,])(?<hour>\d{1,2})\.(?<minute>[0-5]\d)(?![.,]?\d)(?:\s*(?<half>[AaPp])\.?[Mm]\b|\s*Uhr\b))"_s);
    // With a point it is a time behind a date or a word for it only: "12.5.2024 14.32", "klo 14.32",
    // "Jam 14.32".
    static const QRegularExpression introduced(
        uR"((?:(?<!\d)\d{1,4}[./\-]\d{1,2}[./\-]\d{1,4}[\s,]{1,3}|\b(?:kl\.?|klo|ore|jam|pukul|godz\.?|ob|alle)\s?)(?<hour>\d{1,2})\.(?<minute>[0-5]\d)(?!\d|[.,]\d))"_s,
        QRegularExpression::CaseInsensitiveOption);
    QList<PrintedTime> times;
    for (const QRegularExpression &pattern : {colons, points, introduced}) {
        QRegularExpressionMatchIterator matches = pattern.globalMatch(line);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const QTime time = parsed(match);
            if (time.isValid()) {
                const qsizetype start = match.capturedStart(u"hour");
                times.append({time, start, match.capturedEnd() - start});
            }
        }
    }
    return times;
}

std::optional<QTime> readTime(const QList<TextLine> &lines, std::optional<qsizetype> dateLine,
                              const Languages &languages) {
    const QStringList labels = dateWords().phrases(u"time"_s, languages);
    const QStringList hours = dateWords().phrases(u"hours"_s, languages);
    std::optional<QTime> best;
    qsizetype bestDistance = 0;
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const QString &line = lines[index].text;
        const QList<PrintedTime> times = printedTimes(line);
        if (times.isEmpty() || (index != dateLine && tellsOpeningHours(line, hours))) {
            continue;
        }
        const qsizetype away = distance(line, index, dateLine, labels);
        if (best && away >= bestDistance) {
            continue;
        }
        best = times.first().time;
        bestDistance = away;
    }
    return best;
}

} // namespace fennick::engine
