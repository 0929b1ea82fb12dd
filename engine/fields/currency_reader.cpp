#include "engine/fields/currency_reader.h"

#include "engine/fields/country_evidence.h"
#include "text/number_text.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

struct Mark {
    QLatin1StringView code;
    const char16_t *pattern; // a regular expression, matched with case
    int weight;
};

// A code or a symbol with its country is surer than a symbol alone, however often that is repeated:
// recognition takes the tax letter S for a dollar. What else tells the country counts once for each kind of
// evidence.
constexpr int sure = 4;
constexpr int plainMark = 2;
constexpr int perEvidence = 3;
constexpr qsizetype mostPlain = 2;

constexpr std::array marks = {
    Mark{"USD"_L1, u"(?<!\\p{L})(?:USD|US\\$)", sure},
    Mark{"CAD"_L1, u"(?<!\\p{L})(?:CAD|CA?\\$)", sure},
    Mark{"AUD"_L1, u"(?<!\\p{L})(?:AUD|AU?\\$)", sure},
    Mark{"NZD"_L1, u"(?<!\\p{L})(?:NZD|NZ\\$)", sure},
    Mark{"SGD"_L1, u"(?<!\\p{L})(?:SGD|S\\$)", sure},
    Mark{"HKD"_L1, u"(?<!\\p{L})(?:HKD|HK\\$)", sure},
    Mark{"BRL"_L1, u"(?<!\\p{L})(?:BRL|R\\$)", sure},
    // Not "$S21/1A" or "$521/1A": an address whose S was misread.
    Mark{"USD"_L1, u"(?<![\\p{L}])\\$(?=\\s?\\d[\\d,.]*(?![\\d/\\p{L}\\-]))|(?:\\d|,\\d{2}\\s)\\$(?!\\S)",
         plainMark},
    Mark{"EUR"_L1, u"€|(?<!\\p{L})(?:EUR|Euro|EURO)(?!\\p{L})", sure},
    Mark{"GBP"_L1, u"£(?=\\s?\\d+(?![\\d.,]*\\p{L}))|(?<!\\p{L})GBP(?!\\p{L})", sure},
    Mark{"CNY"_L1, u"(?<!\\p{L})(?:CNY(?!\\p{L})|RMB(?=\\s\\d))", sure},
    Mark{"JPY"_L1, u"(?<!\\p{L})JPY(?!\\p{L})", sure},
    Mark{"JPY"_L1, u"[¥￥]|\\d円", plainMark},
    Mark{"CHF"_L1, u"(?<!\\p{L})(?:CHF|SFr\\.?)(?!\\p{L})", sure},
    Mark{"MYR"_L1, u"(?<!\\p{L})(?:MYR|RM(?=[\\s:.]{0,2}\\d))|\\(RM\\)", sure},
    Mark{"MYR"_L1, u"(?<!\\S)RM(?!\\S)", plainMark}, // the heading of a column
    Mark{"NOK"_L1, u"(?<!\\p{L})NOK(?!\\p{L})", sure},
    Mark{"DKK"_L1, u"(?<!\\p{L})DKK(?!\\p{L})", sure},
    Mark{"SEK"_L1, u"(?<!\\p{L})SEK(?!\\p{L})", sure},
    Mark{"SEK"_L1, u"\\d\\s?kr(?!\\p{L})|(?<!\\p{L})kr\\.?\\s?\\d", plainMark},
    Mark{"INR"_L1, u"₹|(?<!\\p{L})(?:INR|Rs\\.?(?=\\s?\\d))", sure},
    Mark{"PLN"_L1, u"(?<!\\p{L})(?:PLN|zł)(?!\\p{L})", sure},
    Mark{"CZK"_L1, u"(?<!\\p{L})(?:CZK|Kč)(?!\\p{L})", sure},
    Mark{"KRW"_L1, u"₩|(?<!\\p{L})KRW(?!\\p{L})", sure},
    Mark{"THB"_L1, u"฿|(?<!\\p{L})THB(?!\\p{L})", sure},
};

const QList<QRegularExpression> &markPatterns() {
    static const QList<QRegularExpression> patterns = [] {
        QList<QRegularExpression> compiled;
        for (const Mark &mark : marks) {
            compiled.append(QRegularExpression(QString::fromUtf16(mark.pattern)));
        }
        return compiled;
    }();
    return patterns;
}

qsizetype matchCount(const QRegularExpression &pattern, const QString &text) {
    qsizetype count = 0;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(text);
    for (; matches.hasNext(); matches.next()) {
        ++count;
    }
    return count;
}

} // namespace

std::optional<QString> readCurrency(const Reading &lines) {
    QHash<QString, qsizetype> scores;
    QSet<QString> named;
    for (qsizetype index = 0; index < markPatterns().size(); ++index) {
        const Mark &mark = marks[static_cast<size_t>(index)];
        qsizetype count = 0;
        for (const TextLine &line : lines) {
            count += matchCount(markPatterns()[index], line.text);
        }
        if (count > 0 && mark.weight == sure) {
            named.insert(QString(mark.code));
        }
        scores[QString(mark.code)] +=
            mark.weight * (mark.weight == plainMark ? std::min(count, mostPlain) : count);
    }
    const QHash<QString, int> evidence = countryEvidence(lines);
    for (auto country = evidence.cbegin(); country != evidence.cend(); ++country) {
        scores[country.key()] += perEvidence * *country;
    }
    const auto isOtherDollar = [](const QString &code) {
        return code.endsWith(u'D') && code != u"USD";
    };
    if (std::ranges::any_of(named, isOtherDollar) && !named.contains(u"USD"_s)) {
        scores.remove(u"USD"_s);
    }

    std::optional<QString> best;
    qsizetype bestScore = 0;
    for (const Mark &mark : marks) {
        const QString code(mark.code);
        if (scores.value(code) > bestScore) {
            bestScore = scores.value(code);
            best = code;
        }
    }
    return best;
}

bool hasCurrencyBeside(const QString &line, qsizetype start, qsizetype end) {
    static const QString mark =
        u"(?:[$€£¥￥₹₩฿]|(?<!\\p{L})(?:USD|EUR|GBP|JPY|CAD|AUD|NZD|SGD|HKD|CHF|MYR|SEK|NOK|DKK|INR|PLN|CZK|"
        "CNY|KRW|THB|BRL|RM|Rs\\.?|kr\\.?|Fr\\.?|zł|Kč|円)(?!\\p{L}))"_s;
    static const QRegularExpression before(mark + u"[\\s:]{0,2}$"_s);
    static const QRegularExpression after(u"^\\s?"_s + mark);
    return before.match(line.left(start)).hasMatch() || after.match(line.mid(end)).hasMatch();
}

QString moneyText(double amount, const std::optional<QString> &currency) {
    static const QHash<QString, QString> symbols = {
        {u"USD"_s, u"$"_s},  {u"EUR"_s, u"€"_s},  {u"GBP"_s, u"£"_s}, {u"JPY"_s, u"¥"_s},
        {u"CAD"_s, u"C$"_s}, {u"AUD"_s, u"A$"_s}, {u"INR"_s, u"₹"_s},
    };
    const bool hasNoDecimals = currency == u"JPY"_s || currency == u"KRW"_s;
    const QString number = hasNoDecimals ? QString::number(amount, 'f', 0) : twoDecimals(amount);
    if (!currency) {
        return number;
    }
    return symbols.contains(*currency) ? symbols.value(*currency) + number : *currency + u' ' + number;
}

} // namespace fennick::engine
