#pragma once

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

namespace fennick::engine {

// ISO 639-1 codes of the languages on a receipt. English, which is everywhere, need not be among them.
using Languages = QSet<QString>;

// Phrases by meaning and language, from a table that is part of the program. They are words without accents,
// as withoutAccents(wordsOf()) gives them.
class WordTable {
public:
    explicit WordTable(const QString &path);

    // The phrases that have `meaning` in English and in `languages`; none if there is no such meaning.
    [[nodiscard]] QStringList phrases(const QString &meaning, const Languages &languages) const;

    // All phrases of each language.
    [[nodiscard]] const QMap<QString, QSet<QString>> &byLanguage() const { return byLanguage_; }

private:
    QHash<QString, QMap<QString, QStringList>> byMeaning_;
    QMap<QString, QSet<QString>> byLanguage_;
};

// The tables, loaded when they are first asked for. Callable from any thread.
[[nodiscard]] const WordTable &amountWords();
[[nodiscard]] const WordTable &categoryWords();
[[nodiscard]] const WordTable &dateWords();
[[nodiscard]] const WordTable &nameWords();

// The languages that some table has words of.
[[nodiscard]] Languages knownLanguages();

} // namespace fennick::engine
