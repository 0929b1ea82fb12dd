#include "engine/fields/language_evidence.h"

#include "engine/knowledge/country_table.h"
#include "engine/knowledge/words.h"

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Shorter ones come about by chance, above all syllables of Vietnamese without their accents.
constexpr qsizetype shortestPhrase = 5;
// A phrase that several languages have counts for each in part. Two of its own, or a few shared ones, make a
// language; less than one is chance.
constexpr double enoughOfItsOwn = 2;
constexpr double leastForTheLikeliest = 1;

QHash<QString, int> languagesSharing() {
    QHash<QString, int> count;
    for (const WordTable *table : {&amountWords(), &dateWords(), &nameWords()}) {
        for (const QSet<QString> &phrases : table->byLanguage()) {
            for (const QString &phrase : phrases) {
                ++count[phrase];
            }
        }
    }
    return count;
}

// How much a phrase counts for a language.
double weightOf(const QString &phrase) {
    static const QHash<QString, int> sharing = languagesSharing();
    return 1.0 / std::max(1, sharing.value(phrase));
}

QHash<QString, double> languageScores(const QString &words) {
    const QStringList parts = words.split(u' ', Qt::SkipEmptyParts);
    const QSet<QString> single(parts.cbegin(), parts.cend());
    QHash<QString, double> scores;
    for (const WordTable *table : {&amountWords(), &dateWords(), &nameWords()}) {
        for (auto language = table->byLanguage().cbegin(); language != table->byLanguage().cend();
             ++language) {
            double &score = scores[language.key()];
            for (const QString &phrase : language.value()) {
                if (phrase.size() < shortestPhrase) {
                    continue;
                }
                const bool isThere =
                    phrase.contains(u' ') ? containsPhrase(words, phrase) : single.contains(phrase);
                score += isThere ? weightOf(phrase) : 0;
            }
        }
    }
    scores.remove(u"en"_s);
    scores.remove(u"en-IN"_s);
    return scores;
}

} // namespace

Languages readLanguages(const Reading &reading, const CountryScores &countryScores) {
    QString text;
    for (const TextLine &line : reading) {
        text += line.text + u'\n';
    }
    const QHash<QString, double> scores = languageScores(withoutAccents(wordsOf(text)));
    Languages languages;
    for (auto own = scores.cbegin(); own != scores.cend(); ++own) {
        if (own.value() >= enoughOfItsOwn) {
            languages.insert(own.key());
        }
    }
    const auto likeliest = std::max_element(scores.cbegin(), scores.cend());
    if (likeliest != scores.cend() && likeliest.value() >= leastForTheLikeliest) {
        languages.insert(likeliest.key());
    }
    if (const std::optional<QString> code = likeliestCountry(countryScores)) {
        const auto country = std::ranges::find(countries(), *code, &Country::code);
        languages.unite(country->languages);
    }
    return languages;
}

} // namespace fennick::engine
