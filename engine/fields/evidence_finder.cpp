#include "engine/fields/evidence_finder.h"

#include "engine/fields/amount_pattern.h"
#include "engine/fields/date_repair.h"
#include "engine/fields/name_place.h"
#include "engine/fields/number_reader.h"
#include "engine/fields/time_reader.h"
#include "engine/knowledge/currency_table.h"

#include <algorithm>
#include <cmath>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Of two lines whose texts follow one another, a name that was broken.
constexpr double brokenName = 0.8;
// Of an amount that stands there without a role.
constexpr double unnamedAmount = 0.5;

struct Span {
    qsizetype start = 0;
    qsizetype length = 0;
};

// The part of a piece's place that the characters from `start` to `end` take, for letters of one width.
QRectF partOf(const TextPiece &piece, qsizetype start, qsizetype end) {
    const auto length = static_cast<double>(std::max<qsizetype>(1, piece.length));
    const double from = static_cast<double>(std::max(start, piece.start) - piece.start) / length;
    const double to = static_cast<double>(std::min(end, piece.start + piece.length) - piece.start) / length;
    const QRectF &place = piece.place;
    return QRectF(place.left() + from * place.width(), place.top(), (to - from) * place.width(),
                  place.height());
}

std::optional<Evidence> evidenceAt(const TextLine &line, Span span) {
    const qsizetype end = span.start + span.length;
    QRectF place;
    for (const TextPiece &piece : line.pieces) {
        if (piece.start < end && piece.start + piece.length > span.start) {
            place |= partOf(piece, span.start, end);
        }
    }
    place &= QRectF(0, 0, 1, 1);
    if (place.isEmpty()) {
        return std::nullopt;
    }
    return Evidence{
        .page = line.page, .place = place, .text = line.text.mid(span.start, span.length).trimmed()};
}

// A line and the one below it as one line; empty if they stand on different pages.
TextLine joinedLines(const TextLine &upper, const TextLine &lower) {
    if (upper.page != lower.page) {
        return {};
    }
    TextLine both = upper;
    both.text += u' ';
    for (TextPiece piece : lower.pieces) {
        piece.start += both.text.size();
        both.pieces.append(piece);
    }
    both.text += lower.text;
    both.confidence = std::min(upper.confidence, lower.confidence);
    return both;
}

// The best of what the readings show of one value.
class BestPlace {
public:
    void offer(const TextLine &line, Span span, double worth) {
        const double score = worth * (0.1 + line.confidence);
        if (score <= best_ || span.length == 0) {
            return;
        }
        if (std::optional<Evidence> found = evidenceAt(line, span)) {
            evidence_ = std::move(found);
            best_ = score;
        }
    }

    const std::optional<Evidence> &evidence() const { return evidence_; }

private:
    std::optional<Evidence> evidence_;
    double best_ = 0;
};

Span wholeOf(const QString &text) {
    return {0, text.size()};
}

std::optional<Evidence> evidenceOfDate(QDate date, const QList<ReadingFacts> &facts) {
    BestPlace best;
    for (const ReadingFacts &reading : facts) {
        for (const TextLine &line : reading.lines) {
            const double besideTime = printedTimes(line.text).isEmpty() ? 1 : 2;
            for (const DateOrder order : {DateOrder::dayFirst, DateOrder::monthFirst, DateOrder::yearFirst}) {
                const DateStyle style{
                    .order = order, .languages = reading.languages, .hasBuddhistYears = true};
                for (const PrintedDate &printed : printedDates(line.text, style)) {
                    if (printed.date == date) {
                        best.offer(line, {printed.start, printed.length}, 2 * besideTime);
                    }
                }
                for (const PrintedDate &printed : garbledDates(line.text, style)) {
                    if (printed.date == date) {
                        best.offer(line, {printed.start, printed.length}, besideTime / 2);
                    }
                }
            }
        }
    }
    return best.evidence();
}

std::optional<Evidence> evidenceOfTime(QTime time, const std::optional<Evidence> &date,
                                       const QList<ReadingFacts> &facts) {
    BestPlace best;
    for (const ReadingFacts &reading : facts) {
        for (const TextLine &line : reading.lines) {
            const double besideDate = date && line.text.contains(date->text) ? 2 : 1;
            for (const PrintedTime &printed : printedTimes(line.text)) {
                if (printed.time == time) {
                    best.offer(line, {printed.start, printed.length}, besideDate);
                }
            }
        }
    }
    return best.evidence();
}

double worthOf(AmountRole role) {
    switch (role) {
    case AmountRole::finalTotal:
        return 4;
    case AmountRole::total:
        return 3;
    case AmountRole::card:
    case AmountRole::mention:
    case AmountRole::tendered:
    case AmountRole::subtotal:
        return 2;
    default:
        return 1;
    }
}

// A bare whole number counts something else where amounts have decimals: "3 items".
bool isPrice(const LabelledAmount &amount, const PriceStyle &style) {
    return amount.hasDecimals || amount.hasCurrency || amount.role != AmountRole::unnamed ||
           style.decimals == 0;
}

// The digits of `thousandths` in a line; the whole line if they were put right.
Span spanOfAmount(const QString &line, qint64 thousandths, const PriceStyle &style) {
    for (const PrintedNumber &number : printedNumbers(line, style)) {
        if (std::llround(number.value * 1000) == thousandths) {
            return {number.start, number.length};
        }
    }
    return wholeOf(line);
}

std::optional<Evidence> evidenceOfTotal(double amount, const std::optional<QString> &currency,
                                        const QList<ReadingFacts> &facts) {
    const PriceStyle style = priceStyle(currency);
    const qint64 thousandths = std::llround(std::abs(amount) * 1000);
    const QRegularExpression pattern = amountPattern(thousandths);
    BestPlace best;
    for (const ReadingFacts &reading : facts) {
        for (const LabelledAmount &found : amountsIn(reading, currency)) {
            if (found.thousandths == thousandths && found.line < reading.lines.size() &&
                isPrice(found, style)) {
                const TextLine &line = reading.lines[found.line];
                best.offer(line, spanOfAmount(line.text, thousandths, style),
                           worthOf(found.role) * found.weight);
            }
        }
        for (const TextLine &line : reading.lines) {
            const QRegularExpressionMatch match = pattern.match(line.text);
            best.offer(line, {match.capturedStart(), match.capturedLength()}, unnamedAmount);
        }
    }
    return best.evidence();
}

std::optional<Evidence> evidenceOfCurrency(const QString &currency, const std::optional<Evidence> &total,
                                           const QList<ReadingFacts> &facts) {
    BestPlace best;
    for (const CurrencySign &sign : currencySigns()) {
        if (!sign.currencies.contains(currency)) {
            continue;
        }
        for (const ReadingFacts &reading : facts) {
            for (const TextLine &line : reading.lines) {
                const QRegularExpressionMatch match = sign.pattern.match(line.text);
                const bool isBesideTotal = total && line.text.contains(total->text);
                best.offer(line, {match.capturedStart(), match.capturedLength()}, isBesideTotal ? 2 : 1);
            }
        }
    }
    return best.evidence();
}

std::optional<Evidence> evidenceOfName(const QString &name, const QList<ReadingFacts> &facts) {
    BestPlace best;
    for (const ReadingFacts &reading : facts) {
        for (const TextLine &line : reading.lines) {
            if (const auto place = placeOfName(line.text, name)) {
                best.offer(line, {place->start, place->length}, place->likeness);
            }
        }
        for (qsizetype index = 1; index < reading.lines.size(); ++index) {
            const TextLine pair = joinedLines(reading.lines[index - 1], reading.lines[index]);
            const auto place = placeOfName(pair.text, name);
            if (place && place->likeness > brokenName) {
                best.offer(pair, {place->start, place->length}, place->likeness * brokenName);
            }
        }
    }
    return best.evidence();
}

// A text of the program's own stands on a page by chance only, so it must stand there word for word.
std::optional<Evidence> evidenceOfText(const QString &text, const QList<ReadingFacts> &facts) {
    BestPlace best;
    if (text.isEmpty()) {
        return std::nullopt;
    }
    const QRegularExpression pattern(
        uR"((?<!\p{L}))"_s + QRegularExpression::escape(text) + uR"((?!\p{L}))"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    for (const ReadingFacts &reading : facts) {
        for (const TextLine &line : reading.lines) {
            const QRegularExpressionMatch match = pattern.match(line.text);
            best.offer(line, {match.capturedStart(), match.capturedLength()}, 1);
        }
    }
    return best.evidence();
}

} // namespace

ReceiptEvidence findEvidence(const ReceiptFields &fields, const QList<ReadingFacts> &facts) {
    ReceiptEvidence evidence;
    if (fields.date) {
        evidence.date = evidenceOfDate(*fields.date, facts);
    }
    if (fields.time) {
        evidence.time = evidenceOfTime(*fields.time, evidence.date, facts);
    }
    if (fields.amount) {
        evidence.total = evidenceOfTotal(*fields.amount, fields.currency, facts);
    }
    if (fields.currency) {
        evidence.currency = evidenceOfCurrency(*fields.currency, evidence.total, facts);
    }
    if (fields.location) {
        evidence.merchant = evidenceOfName(*fields.location, facts);
    }
    evidence.category = evidenceOfText(fields.category, facts);
    evidence.summary = evidenceOfText(fields.summary, facts);
    return evidence;
}

} // namespace fennick::engine
