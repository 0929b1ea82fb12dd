#include "engine/knowledge/word_table.h"

#include "engine/knowledge/table_file.h"
#include "engine/knowledge/words.h"

namespace fennick::engine {

using namespace Qt::StringLiterals;

WordTable::WordTable(const QString &path) {
    const QList<QStringList> rows = tableRows(path);
    for (const QStringList &row : rows) {
        const QString language = row.value(1);
        const QStringList cells = row.value(2).split(u',');
        for (const QString &cell : cells) {
            // "*straße" is the end of a word, which is nothing that can be looked for in a text as it stands.
            const bool isEnd = cell.trimmed().startsWith(u'*');
            const QString phrase = withoutAccents(wordsOf(cell)).trimmed();
            byMeaning_[row.value(0)][language].append(isEnd ? u'*' + phrase : phrase);
            if (!isEnd) {
                byLanguage_[language].insert(phrase);
            }
        }
    }
}

QStringList WordTable::phrases(const QString &meaning, const Languages &languages) const {
    const QMap<QString, QStringList> all = byMeaning_.value(meaning);
    QStringList found;
    for (auto own = all.cbegin(); own != all.cend(); ++own) {
        if (own.key() == u"en" || languages.contains(own.key())) {
            found += own.value();
        }
    }
    return found;
}

const WordTable &amountWords() {
    static const WordTable table(u":/engine/amount_words.txt"_s);
    return table;
}

const WordTable &categoryWords() {
    static const WordTable table(u":/engine/category_words.txt"_s);
    return table;
}

const WordTable &dateWords() {
    static const WordTable table(u":/engine/date_words.txt"_s);
    return table;
}

const WordTable &nameWords() {
    static const WordTable table(u":/engine/name_words.txt"_s);
    return table;
}

Languages knownLanguages() {
    Languages languages;
    for (const WordTable *table : {&amountWords(), &dateWords(), &nameWords()}) {
        const QList<QString> codes = table->byLanguage().keys();
        languages.unite(Languages(codes.cbegin(), codes.cend()));
    }
    return languages;
}

} // namespace fennick::engine
