#include "engine/fields/category_reader.h"

#include "engine/knowledge/words.h"

#include <QSet>
#include <QStringList>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

struct CategoryWords {
    QString category;
    QStringList phrases;
};

// On a tie the category that comes first wins.
QList<CategoryWords> categoriesIn(const Languages &languages) {
    static const QStringList order = {u"hotel"_s,     u"fuel"_s,          u"breakfast"_s, u"lunch"_s,
                                      u"dinner"_s,    u"coffee"_s,        u"meal"_s,      u"transport"_s,
                                      u"groceries"_s, u"entertainment"_s, u"shopping"_s};
    QList<CategoryWords> categories;
    for (const QString &category : order) {
        categories.append({category, categoryWords().phrases(category, languages)});
    }
    return categories;
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

// Words of a text, single and in a row.
class PhraseIndex {
public:
    explicit PhraseIndex(const QString &text)
        : words_(withoutAccents(wordsOf(text))) {
        const QStringList parts = words_.split(u' ', Qt::SkipEmptyParts);
        single_ = QSet<QString>(parts.cbegin(), parts.cend());
    }

    bool contains(const QString &phrase) const {
        return phrase.contains(u' ') ? containsPhrase(words_, phrase) : single_.contains(phrase);
    }

private:
    QString words_;
    QSet<QString> single_;
};

int votes(const QStringList &phrases, const PhraseIndex &merchant, const PhraseIndex &all) {
    const QSet<QString> different(phrases.cbegin(), phrases.cend());
    int count = 0;
    for (const QString &phrase : different) {
        if (merchant.contains(phrase)) {
            count += 3;
        } else if (all.contains(phrase)) {
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
                     std::optional<QTime> time, const Languages &languages,
                     const QStringList &brandCategories) {
    QString allText;
    for (const TextLine &line : lines) {
        allText += line.text + u'\n';
    }
    const PhraseIndex all(allText);
    const PhraseIndex merchantName(merchant.value_or(QString()));

    QString best = u"misc"_s;
    int bestVotes = 0;
    for (const CategoryWords &entry : categoriesIn(languages)) {
        const int count =
            votes(entry.phrases, merchantName, all) + votesOfBrand(entry.category, brandCategories);
        if (count <= bestVotes) {
            continue;
        }
        best = entry.category;
        bestVotes = count;
    }
    return best == u"meal" ? mealAt(time) : best;
}

} // namespace fennick::engine
