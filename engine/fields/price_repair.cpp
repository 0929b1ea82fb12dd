#include "engine/fields/price_repair.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// What recognition takes digits for.
QChar digitFor(QChar character) {
    static const QHash<QChar, QChar> digits = {
        {u'O', u'0'}, {u'o', u'0'}, {u'Q', u'0'}, {u'D', u'0'}, {u'@', u'0'}, {u'¢', u'0'},
        {u'l', u'1'}, {u'I', u'1'}, {u'|', u'1'}, {u'i', u'1'}, {u'Z', u'2'}, {u'z', u'2'},
        {u'S', u'5'}, {u's', u'5'}, {u'§', u'5'}, {u'B', u'8'},
    };
    return digits.value(character, character);
}

// "7.0O" yes, "S.O.S" no: at least half of what becomes digits must have been read as such.
QString withDigits(const QString &number) {
    QString repaired = number;
    std::ranges::transform(repaired, repaired.begin(), digitFor);
    const auto isDigit = [](QChar character) {
        return character.isDigit();
    };
    const auto before = std::ranges::count_if(number, isDigit);
    const auto after = std::ranges::count_if(repaired, isDigit);
    return 2 * before >= after ? repaired : number;
}

QString replacedMatches(const QString &line, const QRegularExpression &pattern,
                        QString (*replacement)(const QRegularExpressionMatch &match)) {
    QString result;
    qsizetype done = 0;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result += line.sliced(done, match.capturedStart() - done) + replacement(match);
        done = match.capturedEnd();
    }
    return result + line.sliced(done);
}

} // namespace

QString repairedPrices(const QString &line) {
    // A blank after the decimal sign: wide-set print.
    static const QRegularExpression parted(
        uR"((?<=\d)\s?([.,])\s(?=[\dOo]{2}(?![\w.,/:]))|(?<=\d)\s([.,])(?=\d{2}(?![\w.,/:])))"_s);
    // A currency in letters, often misread, directly before the digits: "RM7.00", "fM4.00".
    static const QRegularExpression attached(
        uR"((?<![\p{L}\d])(?![OoQDlIiZzSsB]\d)(\p{L}{1,3}\.?)(?=\d+[.,][\dOo]{2}(?!\d)))"_s);
    // "Change 005": nothing else than a price begins with a nought.
    static const QRegularExpression unseparatedNought(uR"((\p{L}[^\d]*\s0)(\d{2}[^\w%.,]*)$)"_s);
    static const QRegularExpression price(
        uR"((?<![\p{L}\d.,/:\-])[\dOoQDlI|iZzSsB§@]{1,6}[.,][\dOoQDlI|iZzSsB§@¢]{2}(?![\w.,/:%§@¢]))"_s);
    // The decimal sign of the only price was too faint.
    static const QRegularExpression unseparated(uR"(^([^\d]*\p{L}{3}[^\d]*\s\d{1,4})\s(\d{2}[^\w%]*)$)"_s);
    QString repaired = line;
    repaired.replace(unseparated, u"\\1.\\2"_s);
    repaired.replace(parted, u"\\1\\2"_s);
    repaired.replace(unseparatedNought, u"\\1.\\2"_s);
    repaired.replace(attached, u"\\1 "_s);
    return replacedMatches(repaired, price,
                           [](const QRegularExpressionMatch &match) { return withDigits(match.captured()); });
}

} // namespace fennick::engine
