#include "engine/knowledge/currency_table.h"

#include "engine/knowledge/country_table.h"
#include "engine/knowledge/table_file.h"

#include <QHash>
#include <QSet>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

SignKind kindOf(const QString &text) {
    if (text == u"plain") {
        return SignKind::plain;
    }
    return text == u"faint" ? SignKind::faint : SignKind::certain;
}

// Codes that are words as well stand for money only beside digits.
QString codePattern(const QString &code) {
    static const QSet<QString> words = {u"TRY"_s, u"PEN"_s, u"MAD"_s, u"COP"_s, u"RON"_s, u"SAR"_s, u"ARS"_s};
    return words.contains(code) ? u"(?<=\\d)\\s?%1(?![\\p{L}\\d])|(?<![\\p{L}\\d])%1(?=\\s?\\d)"_s.arg(code)
                                : u"(?<![\\p{L}\\d])%1(?!\\p{L})"_s.arg(code);
}

QList<CurrencySign> loadedSigns() {
    QList<CurrencySign> signs;
    const QList<QStringList> rows = tableRows(u":/engine/currencies.txt"_s);
    for (const QStringList &row : rows) {
        signs.append({kindOf(row.value(0)), row.value(1).split(u','), QRegularExpression(row.value(2))});
    }
    QStringList codes;
    for (const Country &country : countries()) {
        codes.append(country.currency);
        if (!country.currencyBefore.isEmpty()) {
            codes.append(country.currencyBefore);
        }
    }
    codes.removeDuplicates();
    for (const QString &code : std::as_const(codes)) {
        signs.append({SignKind::certain, {code}, QRegularExpression(codePattern(code))});
    }
    return signs;
}

QHash<QString, PriceStyle> loadedStyles() {
    QHash<QString, PriceStyle> styles;
    const QList<QStringList> rows = tableRows(u":/engine/minor_units.txt"_s);
    for (const QStringList &row : rows) {
        const QStringList codes = row.value(2).split(u',');
        for (const QString &code : codes) {
            styles.insert(code.trimmed(),
                          {.decimals = row.value(0).toInt(), .groupsWithSpaces = row.value(1) == u"space"});
        }
    }
    return styles;
}

QHash<int, QStringList> loadedBlankGroups() {
    QHash<int, QStringList> signs;
    const QList<QStringList> rows = tableRows(u":/engine/blank_groups.txt"_s);
    for (const QStringList &row : rows) {
        signs.insert(row.value(0).toInt(), row.value(1).split(u','));
    }
    return signs;
}

} // namespace

PriceStyle priceStyle(const std::optional<QString> &currency) {
    static const QHash<QString, PriceStyle> styles = loadedStyles();
    return currency ? styles.value(*currency) : PriceStyle();
}

const QStringList &signsBehindBlankGroups(int decimals) {
    static const QHash<int, QStringList> signs = loadedBlankGroups();
    static const QStringList none;
    const auto found = signs.constFind(decimals);
    return found == signs.constEnd() ? none : *found;
}

const QList<CurrencySign> &currencySigns() {
    static const QList<CurrencySign> signs = loadedSigns();
    return signs;
}

} // namespace fennick::engine
