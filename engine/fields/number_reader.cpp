#include "engine/fields/number_reader.h"

#include "engine/fields/currency_reader.h"

#include <QRegularExpression>

#include <optional>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Digits with groups of three (Indian ones of two before the last) and at most two decimals. A space groups
// only where a decimal comma or a currency that is written so follows, so that "2 100.00" on an item line
// stays two numbers.
const QRegularExpression &numberPattern() {
    static const QRegularExpression pattern(
        uR"((?<![\p{L}\d.,:/\-'])(?:\d{1,2}(?:,\d{2})+,\d{3}|\d{1,3}(?:[.,'’]\d{3})+|\d{1,3}(?:[ \x{a0}\x{202f}]\d{3})+(?=,\d{2}(?!\d)|\s?(?:kr|€|EUR|SEK)(?!\p{L}))|\d+)(?:[.,]\d{2}(?![\d]))?)"_s);
    return pattern;
}

// 1.234,56: the last separator counts as decimal sign when exactly two digits follow it.
PrintedNumber parsed(const QString &text) {
    PrintedNumber number;
    QString digits;
    const qsizetype sign = text.size() - 3;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (text[index].isDigit()) {
            digits += text[index];
        } else if (index == sign && (text[index] == u'.' || text[index] == u',')) {
            digits += u'.';
            number.hasDecimals = true;
        }
    }
    number.value = digits.toDouble();
    return number;
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

QList<PrintedNumber> printedNumbers(const QString &line) {
    QList<PrintedNumber> numbers;
    QRegularExpressionMatchIterator matches = numberPattern().globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (isPartOfSomethingElse(line, match.capturedStart(), match.capturedEnd())) {
            continue;
        }
        PrintedNumber number = parsed(match.captured());
        number.start = match.capturedStart();
        number.length = match.capturedLength();
        number.hasCurrency = hasCurrencyBeside(line, number.start, match.capturedEnd());
        numbers.append(number);
    }
    return numbers;
}

} // namespace fennick::engine
