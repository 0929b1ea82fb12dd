#include "engine/fields/category_reader.h"

#include "engine/knowledge/words.h"

#include <QFile>
#include <QStringList>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

struct CategoryWords {
    QString category;
    QStringList phrases;
};

QList<CategoryWords> loadedTable() {
    QFile file(u":/engine/category_words.txt"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QList<CategoryWords> table;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString &line : lines) {
        const qsizetype colon = line.indexOf(u':');
        if (colon < 0 || line.startsWith(u'#')) {
            continue;
        }
        CategoryWords entry{line.left(colon).trimmed(), {}};
        const QStringList phrases = line.mid(colon + 1).split(u',', Qt::SkipEmptyParts);
        for (const QString &phrase : phrases) {
            entry.phrases.append(wordsOf(phrase).trimmed());
        }
        table.append(entry);
    }
    return table;
}

const QList<CategoryWords> &table() {
    static const QList<CategoryWords> loaded = loadedTable();
    return loaded;
}

// More than the words of things bought come to on most receipts. Supermarkets sell more than their petrol
// stations do.
constexpr int brandVotes = 8;
constexpr int brandVotesForFuelAmongOthers = 6;

int votesOfBrand(const QString &category, const QStringList &brandCategories) {
    if (!brandCategories.contains(category)) {
        return 0;
    }
    return category == u"fuel" && brandCategories.size() > 1 ? brandVotesForFuelAmongOthers : brandVotes;
}

int votes(const QStringList &phrases, const QString &merchantWords, const QString &allWords) {
    int count = 0;
    for (const QString &phrase : phrases) {
        if (containsPhrase(merchantWords, phrase)) {
            count += 3;
        } else if (containsPhrase(allWords, phrase)) {
            count += 1;
        }
    }
    return count;
}

// Without a time, lunch: most receipts of meals that people keep for work are.
QString mealAt(std::optional<QTime> time) {
    if (!time) {
        return u"lunch"_s;
    }
    if (*time >= QTime(4, 0) && *time < QTime(10, 30)) {
        return u"breakfast"_s;
    }
    return *time >= QTime(10, 30) && *time < QTime(16, 30) ? u"lunch"_s : u"dinner"_s;
}

} // namespace

QString readCategory(const QList<TextLine> &lines, const std::optional<QString> &merchant,
                     std::optional<QTime> time, const QStringList &brandCategories) {
    QString allText;
    for (const TextLine &line : lines) {
        allText += line.text + u'\n';
    }
    const QString allWords = wordsOf(allText);
    const QString merchantWords = wordsOf(merchant.value_or(QString()));

    QString best = u"misc"_s;
    int bestVotes = 0;
    for (const CategoryWords &entry : table()) {
        const int count =
            votes(entry.phrases, merchantWords, allWords) + votesOfBrand(entry.category, brandCategories);
        if (count <= bestVotes) {
            continue;
        }
        best = entry.category;
        bestVotes = count;
    }
    return best == u"meal" ? mealAt(time) : best;
}

} // namespace fennick::engine
