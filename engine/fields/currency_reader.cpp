#include "engine/fields/currency_reader.h"

#include "engine/knowledge/country_table.h"
#include "engine/knowledge/currency_table.h"
#include "text/number_text.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// A sign that is certain counts as much as a tax number does for its country, but not without end: receipts
// state the price in a second currency too.
constexpr double perCertainSign = 4;
constexpr double perPlainSign = 2;
constexpr qsizetype mostCounted = 3;
constexpr double leastWithSign = 2;
constexpr double leastWithoutSign = 3;
constexpr double leastForSharedSign = 2; // two words of a language, or one other thing

qsizetype signCount(const QRegularExpression &pattern, const Reading &lines) {
    qsizetype count = 0;
    for (const TextLine &line : lines) {
        QRegularExpressionMatchIterator matches = pattern.globalMatch(line.text);
        for (; matches.hasNext() && count < mostCounted; matches.next()) {
            ++count;
        }
    }
    return count;
}

// Countries that share a currency are one for it.
QHash<QString, double> scoresByCurrency(const CountryScores &countryScores) {
    QHash<QString, double> scores;
    for (const Country &country : countries()) {
        double &score = scores[country.currency];
        score = std::max(score, countryScores.value(country.code));
    }
    return scores;
}

// In the order of the countries; of equals the first wins.
const QStringList &knownCurrencies() {
    static const QStringList codes = [] {
        QStringList all;
        for (const Country &country : countries()) {
            all << country.currency;
            if (!country.currencyBefore.isEmpty()) {
                all << country.currencyBefore;
            }
        }
        all.removeDuplicates();
        return all;
    }();
    return codes;
}

} // namespace

std::optional<QString> readCurrency(const Reading &lines, const CountryScores &countryScores) {
    const QHash<QString, double> byCountry = scoresByCurrency(countryScores);
    QHash<QString, double> scores = byCountry;
    QSet<QString> printed;
    for (const CurrencySign &sign : currencySigns()) {
        const auto count = static_cast<double>(signCount(sign.pattern, lines));
        if (count == 0) {
            continue;
        }
        const bool needsCountry = sign.kind == SignKind::faint || sign.currencies.size() > 1;
        for (const QString &code : sign.currencies) {
            if (needsCountry && byCountry.value(code) < leastForSharedSign) {
                continue;
            }
            printed.insert(code);
            scores[code] += count * (sign.kind == SignKind::certain ? perCertainSign : perPlainSign);
        }
    }
    std::optional<QString> best;
    for (const QString &code : knownCurrencies()) {
        const double least = printed.contains(code) ? leastWithSign : leastWithoutSign;
        if (scores.value(code) >= least && (!best || scores.value(code) > scores.value(*best))) {
            best = code;
        }
    }
    return best;
}

bool hasCurrencyBeside(const QString &line, qsizetype start, qsizetype end) {
    static const QString mark = [] {
        QStringList codes;
        for (const Country &country : countries()) {
            codes.append(country.currency);
        }
        codes.removeDuplicates();
        return u"(?:[$€£¥￥₹₩฿₫₱₺₴₪₦₽৳]|(?<!\\p{L})(?:%1|RM|Rs\\.?|Rp\\.?|kr\\.?|Fr\\.?|zł|Kč|Ft|lei|TL|[KTU]Sh\\.?|R|B|NIS|円|元)(?!\\p{L}))"_s
            .arg(codes.join(u'|'));
    }();
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
