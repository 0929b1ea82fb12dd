#include "text/characters.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

#include <memory>

namespace fennick {

namespace {

const char16_t *utf16(QStringView text) {
    return text.utf16();
}

int32_t length(QStringView text) {
    return static_cast<int32_t>(text.size());
}

// A read-only view of the text; the QString must outlive it.
icu::UnicodeString aliased(QStringView text) {
    return icu::UnicodeString(false, utf16(text), length(text));
}

QString toQString(const icu::UnicodeString &text) {
    return QString::fromUtf16(text.getBuffer(), text.length());
}

// The number of UTF-16 units that the first `count` grapheme clusters of `text` take.
qsizetype endOfCharacters(const QString &text, qsizetype count) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) {
        return std::min(count, text.size());
    }
    const icu::UnicodeString units = aliased(text);
    characters->setText(units);
    int32_t end = characters->first();
    for (qsizetype taken = 0; taken < count; ++taken) {
        const int32_t next = characters->next();
        if (next == icu::BreakIterator::DONE) {
            break;
        }
        end = next;
    }
    return end;
}

} // namespace

bool canonicallyEqual(QStringView left, QStringView right) {
    if (left == right) {
        return true;
    }
    UErrorCode status = U_ZERO_ERROR;
    const int32_t order =
        unorm_compare(utf16(left), length(left), utf16(right), length(right), U_FOLD_CASE_DEFAULT, &status);
    return U_SUCCESS(status) && order == 0;
}

int compareScalars(QStringView left, QStringView right) {
    return u_strCompare(utf16(left), length(left), utf16(right), length(right), true);
}

QString firstCharacters(const QString &text, qsizetype count) {
    if (text.size() <= count) {
        return text;
    }
    return text.left(endOfCharacters(text, count));
}

QString shortened(const QString &text, qsizetype count) {
    constexpr qsizetype mostUnits = 16; // the flag of Scotland, the longest emoji in use, has 14
    const QString characters = firstCharacters(text, count);
    if (characters.size() <= count * mostUnits) {
        return characters;
    }
    const QString units = characters.first(count * mostUnits);
    return units.back().isHighSurrogate() ? units.chopped(1) : units;
}

QString wellFormed(const QString &text) {
    if (text.isValidUtf16()) {
        return text;
    }
    QString repaired;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar unit = text[index];
        if (unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate()) {
            repaired.append(text.sliced(index, 2));
            ++index;
        } else {
            repaired.append(unit.isSurrogate() ? QChar(QChar::ReplacementCharacter) : unit);
        }
    }
    return repaired;
}

QString upperCased(const QString &text) {
    icu::UnicodeString mapped = aliased(text);
    return toQString(mapped.toUpper(icu::Locale::getRoot()));
}

QString lowerCased(const QString &text) {
    icu::UnicodeString mapped = aliased(text);
    return toQString(mapped.toLower(icu::Locale::getRoot()));
}

QString firstCharacterUpperCased(const QString &text) {
    const qsizetype end = endOfCharacters(text, 1);
    return upperCased(text.left(end)) + text.mid(end);
}

QString capitalised(const QString &text) {
    QString result = text.toLower();
    bool isWordStart = true;
    for (QChar &character : result) {
        if (isWordStart) {
            character = character.toUpper();
        }
        isWordStart = character.isSpace();
    }
    return result;
}

} // namespace fennick
