#include "text/white_space.h"

namespace fennick {

namespace {

QString trimmedOf(const QString &text, bool (*isMargin)(QChar)) {
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && isMargin(text[begin])) {
        ++begin;
    }
    while (end > begin && isMargin(text[end - 1])) {
        --end;
    }
    return text.mid(begin, end - begin);
}

} // namespace

bool isBlank(QChar character) {
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

bool isWhiteSpace(QChar character) {
    const char16_t unit = character.unicode();
    return isBlank(character) || (unit >= 0x000A && unit <= 0x000D) || unit == 0x0085 || unit == 0x2028 ||
           unit == 0x2029;
}

QString trimmedOfBlanks(const QString &text) {
    return trimmedOf(text, isBlank);
}

QString trimmedOfWhiteSpace(const QString &text) {
    return trimmedOf(text, isWhiteSpace);
}

QStringList splitOnWhiteSpace(const QString &text) {
    QStringList pieces;
    qsizetype begin = 0;
    for (qsizetype index = 0; index <= text.size(); ++index) {
        if (index < text.size() && !isWhiteSpace(text[index])) {
            continue;
        }
        if (index > begin) {
            pieces.append(text.mid(begin, index - begin));
        }
        begin = index + 1;
    }
    return pieces;
}

} // namespace fennick
