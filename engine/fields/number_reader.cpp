#include "engine/fields/number_reader.h"

#include "engine/fields/currency_reader.h"
#include "engine/knowledge/currency_table.h"

#include <QRegularExpression>

#include <optional>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// A blank groups only where a decimal comma or a currency that is written so follows, so that "2 100.00" on
// an item line stays two numbers.
QString groupsOfBlanks(int decimals) {
    QStringList signs;
    for (const QString &sign : signsBehindBlankGroups(decimals)) {
        signs.append(QRegularExpression::escape(sign));
    }
    return uR"(\d{1,3}(?:[ \x{a0}\x{202f}]\d{3})+(?=,\d{2}(?!\d)|\s?(?:%1)(?!\p{L})))"_s.arg(
        signs.join(u'|'));
}

// Digits with groups of three (Indian ones of two before the last) and at most two decimals.
const QRegularExpression &twoDecimals() {
    static const QRegularExpression pattern(
        uR"((?<![\p{L}\d.,:/\-'])(?:\d{1,2}(?:,\d{2})+,\d{3}|\d{1,3}(?:[.,'’]\d{3})+|%1|\d+)(?:[.,]\d{2}(?![\d]))?)"_s
            .arg(groupsOfBlanks(2)));
    return pattern;
}

const QRegularExpression &threeDecimals() {
    static const QRegularExpression pattern(
        uR"((?<![\p{L}\d.,:/\-'])(?:\d{1,3}(?:[.,']\d{3})*[.,]\d{3}|\d+)(?:[.,]\d{2,3})?(?!\d))"_s);
    return pattern;
}

// "175, 000": recognition sees a blank behind a comma. Few tills print two noughts all the same.
const QRegularExpression &wholeNumbers() {
    static const QRegularExpression pattern(
        uR"((?<![\p{L}\d.,:/\-'])(?:\d{1,3}(?:[.,'’]\s?\d{3})+|%1|\d+)(?:[.,]\d{2}(?!\d))?)"_s.arg(
            groupsOfBlanks(0)));
    return pattern;
}

const QRegularExpression &wholeNumbersWithSpaces() {
    static const QRegularExpression pattern(
        uR"((?<![\p{L}\d.,:/\-'])(?:\d{1,3}(?:[.,'’ \x{a0}\x{202f}]\d{3})+|\d+)(?:[.,]\d{2}(?!\d))?(?!\d))"_s);
    return pattern;
}

const QRegularExpression &numberPattern(const PriceStyle &style) {
    if (style.decimals == 3) {
        return threeDecimals();
    }
    if (style.decimals == 2) {
        return twoDecimals();
    }
    return style.groupsWithSpaces ? wholeNumbersWithSpaces() : wholeNumbers();
}

bool isSeparator(QChar character) {
    return character == u'.' || character == u',';
}

// Where in `text` the decimal sign stands: as many digits follow it as prices have, two at any rate.
qsizetype decimalSign(const QString &text, int decimals) {
    for (const int digits : {decimals, 2}) {
        const qsizetype sign = text.size() - digits - 1;
        if (digits > 0 && sign > 0 && isSeparator(text[sign])) {
            return sign;
        }
    }
    return -1;
}

// Longer ones without groups are numbers of receipts, telephones and taxpayers.
constexpr qsizetype mostDigits = 7;

PrintedNumber parsed(const QString &text, int decimals) {
    PrintedNumber number;
    const qsizetype sign = decimalSign(text, decimals);
    QString digits;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (text[index].isDigit()) {
            digits += text[index];
        } else if (index == sign) {
            digits += u'.';
        }
    }
    number.hasGroups = text.size() > digits.size();
    const bool isWholePrice =
        decimals == 0 && text.size() > 1 && (number.hasGroups || digits.size() <= mostDigits);
    number.hasDecimals = sign >= 0 || isWholePrice;
    number.value = digits.toDouble();
    return number;
}

// "29:-", "45.-", "12,–": so many and no hundredths.
qsizetype lengthOfDash(const QString &line, qsizetype end) {
    static const QRegularExpression dash(uR"(\G\s?[:.,]\s?[\-–—]{1,2}(?![\d\p{L}]))"_s);
    return dash.match(line, end).capturedLength();
}

// What follows decides whether the digits were a price at all.
bool isPartOfSomethingElse(const QString &line, qsizetype start, qsizetype end) {
    static const QRegularExpression continued(
        uR"(\G(?:\s?%|[.,:/\-']?\d|[:/]|\p{L}{1,2}\d|h\d|(?:kg|g|ml|l|cl|cm|mm|km|pm|am|st|nd|rd|th)\b))"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression negative(uR"((?:^|[\s(])[\-−–]\s?[^\s\d\p{L}]?$)"_s);
    if (continued.match(line, end).hasMatch()) {
        return true;
    }
    const bool trailingMinus =
        end < line.size() && line[end] == u'-' && (end + 1 == line.size() || line[end + 1].isSpace());
    return trailingMinus || negative.match(line.left(start)).hasMatch();
}

} // namespace

QList<PrintedNumber> printedNumbers(const QString &line, const PriceStyle &style) {
    QList<PrintedNumber> numbers;
    QRegularExpressionMatchIterator matches = numberPattern(style).globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const qsizetype dash = lengthOfDash(line, match.capturedEnd());
        const qsizetype end = match.capturedEnd() + dash;
        if (isPartOfSomethingElse(line, match.capturedStart(), end)) {
            continue;
        }
        PrintedNumber number = parsed(match.captured(), style.decimals);
        number.hasDecimals = number.hasDecimals || dash > 0;
        number.start = match.capturedStart();
        number.length = end - number.start;
        number.hasCurrency = hasCurrencyBeside(line, number.start, end);
        numbers.append(number);
    }
    return numbers;
}

} // namespace fennick::engine
