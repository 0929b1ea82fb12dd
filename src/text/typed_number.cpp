#include "text/typed_number.h"

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype thousandsGroup = 3;

bool isCurrencySign(QChar character) {
    return character.category() == QChar::Symbol_Currency;
}

bool isSeparator(QChar character) {
    return character == u'.' || character == u',';
}

bool isGroupMark(QChar character) {
    return character == u'\'' || character == u'\u2019' || character.category() == QChar::Separator_Space;
}

bool isAsciiDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

// Digits, points and commas; the separators at the end of a number still being typed included.
bool isPlain(const QString &text) {
    return !text.isEmpty() && isAsciiDigit(text.front()) &&
           std::ranges::all_of(text, [](QChar each) { return isAsciiDigit(each) || isSeparator(each); });
}

QString withoutSeparators(QString text) {
    text.removeIf(isSeparator);
    return text;
}

// The readings of digits with separators.
QStringList readingsOfPlain(const QString &text) {
    const qsizetype separators = std::ranges::count_if(text, isSeparator);
    if (separators == 0) {
        return {text};
    }
    const auto last = std::find_if(text.crbegin(), text.crend(), isSeparator);
    const qsizetype place = text.crend() - last - 1;
    const QString whole = withoutSeparators(text.first(place));
    const QString decimals = text.sliced(place + 1);
    const QString decimal = whole + u'.' + decimals;
    const bool isOneKind = text.count(*last) == separators;
    if (isOneKind && separators > 1) {
        return {withoutSeparators(text)};
    }
    const bool mayBeGrouped = decimals.size() == thousandsGroup && whole.size() <= thousandsGroup;
    if (isOneKind && mayBeGrouped && !whole.startsWith(u'0')) {
        return {whole + decimals, decimal};
    }
    return {decimal};
}

} // namespace

QStringList readingsOfNumber(const QString &typed) {
    QString text = typed;
    text.replace(u'\u2212', u'-'); // the minus sign proper
    text.removeIf([](QChar character) { return isCurrencySign(character) || isGroupMark(character); });
    const bool isNegative = text.startsWith(u'-');
    text = isNegative ? text.sliced(1) : text;
    if (!isPlain(text)) {
        return {};
    }
    QStringList readings = readingsOfPlain(text);
    if (isNegative) {
        for (QString &reading : readings) {
            reading.prepend(u'-');
        }
    }
    return readings;
}

} // namespace fennick
