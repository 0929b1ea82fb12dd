#include "engine/currency_reader.h"

#include "text/number_text.h"

#include <QHash>
#include <QRegularExpression>

#include <array>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

struct Mark {
    QLatin1StringView code;
    const char16_t *pattern; // a regular expression, matched with case
    int weight;
};

// A code or a symbol with its country is surer than a symbol alone, and that surer than a country's habit.
constexpr int sure = 4;
constexpr int plain = 2;
constexpr int hint = 1;

constexpr std::array marks = {
    Mark{"USD"_L1, u"(?<!\\p{L})(?:USD|US\\$)", sure},
    Mark{"CAD"_L1, u"(?<!\\p{L})(?:CAD|CA?\\$)", sure},
    Mark{"AUD"_L1, u"(?<!\\p{L})(?:AUD|AU?\\$)", sure},
    Mark{"NZD"_L1, u"(?<!\\p{L})(?:NZD|NZ\\$)", sure},
    Mark{"SGD"_L1, u"(?<!\\p{L})(?:SGD|S\\$)", sure},
    Mark{"HKD"_L1, u"(?<!\\p{L})(?:HKD|HK\\$)", sure},
    Mark{"BRL"_L1, u"(?<!\\p{L})(?:BRL|R\\$)", sure},
    Mark{"USD"_L1, u"(?<![\\p{L}])\\$", plain},
    Mark{"EUR"_L1, u"€|(?<!\\p{L})(?:EUR|Euro|EURO)(?!\\p{L})", sure},
    Mark{"GBP"_L1, u"£|(?<!\\p{L})GBP(?!\\p{L})", sure},
    Mark{"CNY"_L1, u"(?<!\\p{L})(?:CNY|RMB)(?!\\p{L})", sure},
    Mark{"JPY"_L1, u"(?<!\\p{L})JPY(?!\\p{L})", sure},
    Mark{"JPY"_L1, u"[¥￥]|\\d円", plain},
    Mark{"CHF"_L1, u"(?<!\\p{L})(?:CHF|SFr\\.?)(?!\\p{L})", sure},
    Mark{"MYR"_L1, u"(?<!\\p{L})(?:MYR|RM(?=[\\s:.]{0,2}\\d))|\\(RM\\)", sure},
    Mark{"MYR"_L1, u"(?i)(?<!\\p{L})sdn\\.?\\s?bhd", hint},
    Mark{"NOK"_L1, u"(?<!\\p{L})NOK(?!\\p{L})", sure},
    Mark{"DKK"_L1, u"(?<!\\p{L})DKK(?!\\p{L})", sure},
    Mark{"SEK"_L1, u"(?<!\\p{L})SEK(?!\\p{L})", sure},
    Mark{"SEK"_L1, u"\\d\\s?kr(?!\\p{L})|(?<!\\p{L})kr\\.?\\s?\\d", plain},
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

std::optional<QString> readCurrency(const QList<TextLine> &lines) {
    QHash<QLatin1StringView, qsizetype> scores;
    bool otherDollar = false;
    for (qsizetype index = 0; index < markPatterns().size(); ++index) {
        const Mark &mark = marks[static_cast<size_t>(index)];
        for (const TextLine &line : lines) {
            scores[mark.code] += mark.weight * matchCount(markPatterns()[index], line.text);
        }
        otherDollar =
            otherDollar || (mark.code.endsWith(u'D') && mark.code != "USD"_L1 && scores[mark.code] > 0);
        if (otherDollar && mark.code == "USD"_L1 && mark.weight == plain) {
            scores[mark.code] = 0;
        }
    }
    std::optional<QString> best;
    qsizetype bestScore = 0;
    for (const Mark &mark : marks) {
        if (scores[mark.code] <= bestScore) {
            continue;
        }
        bestScore = scores[mark.code];
        best = QString(mark.code);
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

} // namespace fennick
