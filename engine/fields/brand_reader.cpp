#include "engine/fields/brand_reader.h"

#include "engine/fields/number_reader.h"
#include "engine/knowledge/brand_table.h"
#include "engine/knowledge/country_table.h"
#include "engine/knowledge/word_table.h"
#include "engine/knowledge/words.h"
#include "text/edit_distance.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Where a shop names itself, in lines from the top.
constexpr qsizetype headingLines = 6;
// What each way of naming it counts, and what a reading must come to on average.
constexpr double byTaxNumber = 4;
constexpr double byLegalForm = 4;
constexpr double byHeading = 3;
constexpr double byAddress = 3.5;
constexpr double byBeginning = 1.5;
constexpr double byMisreadHeading = 1.5;
constexpr double leastBrandScore = 1;
constexpr double leastProof = 3.2;
// Letters of a name that may stand before other words, and of one that may be misread in one of so many
// letters.
constexpr qsizetype shortestBeginning = 5;
constexpr qsizetype shortestMisread = 6;
constexpr qsizetype lettersForAnError = 6;
constexpr qsizetype mostWordsBeforeForm = 2;
constexpr qsizetype fewCountries = 3;

// The brand is read before the language is known.
QSet<QString> wordsOfAllLanguages(const QString &meaning) {
    const QStringList words = nameWords().phrases(meaning, knownLanguages());
    return {words.begin(), words.end()};
}

const QSet<QString> &legalWords() {
    static const QSet<QString> words = wordsOfAllLanguages(u"legal word"_s);
    return words;
}

// Names of brands that are words of receipts, menus and addresses as well: alone in a line they name nobody.
bool isCommonWord(const QString &words) {
    static const QSet<QString> common = wordsOfAllLanguages(u"common"_s);
    return common.contains(words);
}

bool isLegalWord(const QString &word) {
    return legalWords().contains(word) || word.size() == 1;
}

// The parts of a line that stand apart, as words.
QList<QStringList> piecesOf(const QString &line) {
    QList<QStringList> pieces;
    const QStringList columns = line.split(u"  "_s, Qt::SkipEmptyParts);
    for (const QString &column : columns) {
        pieces.append(withoutAccents(wordsOf(column)).split(u' ', Qt::SkipEmptyParts));
    }
    return pieces;
}

bool isPlace(const QString &words) {
    return std::ranges::any_of(countries(),
                               [&](const Country &country) { return country.places.contains(words); });
}

qsizetype letterCountOf(const QString &words) {
    return std::ranges::count_if(words, [](QChar character) { return character.isLetter(); });
}

// The known name that `words` is a misreading of; empty if there is none or more than one.
QString misreadName(const QString &words) {
    if (words.size() < shortestMisread) {
        return {};
    }
    const auto most = static_cast<int>(words.size() / lettersForAnError);
    QString found;
    for (const qsizetype length : {words.size() - 1, words.size(), words.size() + 1}) {
        for (const QString &name : brandNames(words.front(), length)) {
            if (editDistance(words, name) > most) {
                continue;
            }
            if (!found.isEmpty()) {
                return {};
            }
            found = name;
        }
    }
    return found;
}

// The brands that one reading names, by the words of their names, and how surely.
class ReadingBrands {
public:
    explicit ReadingBrands(const Reading &reading) {
        for (qsizetype index = 0; index < reading.size(); ++index) {
            const QString &line = reading[index].text;
            addTaxNumbers(line);
            addAddresses(line);
            const bool hasPrice = std::ranges::any_of(printedNumbers(line), &PrintedNumber::hasDecimals);
            if (hasPrice) {
                continue;
            }
            const QList<QStringList> pieces = piecesOf(line);
            for (const QStringList &piece : pieces) {
                addPiece(piece, index);
            }
        }
    }

    const BrandScores &scores() const { return scores_; }

private:
    void add(const QString &words, double score) {
        double &best = scores_[words];
        best = std::max(best, score);
    }

    void addPiece(QStringList piece, qsizetype index) {
        while (!piece.isEmpty() && (isLegalWord(piece.first()) || piece.first() == u"sc")) {
            piece.removeFirst();
        }
        const auto form = std::ranges::find_if(piece, isLegalWord);
        const QStringList name = piece.first(form - piece.begin());
        const QString words = name.join(u' ');
        if (letterCountOf(words) < 2) {
            return;
        }
        const bool hasForm = form != piece.end() && letterCountOf(*form) > 1;
        if (!brandsNamed(words).isEmpty()) {
            // "TOTAL BHD 5.650" is an amount in dinars, not a company of that name.
            const bool isAmount = hasForm && form + 1 != piece.end() && (form + 1)->at(0).isDigit();
            if ((hasForm && !isAmount) || (index < headingLines && !isCommonWord(words))) {
                add(words, hasForm ? byLegalForm : byHeading);
            }
            return;
        }
        if (index < headingLines) {
            addMisread(words);
        }
        if (index < headingLines || hasForm) {
            addBeginning(name, hasForm);
        }
    }

    void addMisread(const QString &words) {
        if (const QString name = misreadName(words); !name.isEmpty()) {
            add(name, byMisreadHeading);
        }
    }

    // "Auchan Romania", "REWE Markt GmbH": the longest beginning that is a name, if no name of its own goes
    // on after it.
    void addBeginning(const QStringList &name, bool hasForm) {
        for (qsizetype count = name.size() - 1; count >= 1; --count) {
            const QString words = name.first(count).join(u' ');
            const QStringList rest = name.sliced(count);
            const bool isAddition =
                (hasForm && rest.size() <= mostWordsBeforeForm) || isPlace(rest.join(u' '));
            if (isAddition && letterCountOf(words) >= shortestBeginning && !isCommonWord(words) &&
                !brandsNamed(words).isEmpty()) {
                add(words, byBeginning);
                return;
            }
        }
    }

    void addTaxNumbers(const QString &line) {
        static const QRegularExpression number(uR"((?<![A-Za-z])([A-Z]{2})\s?((?:\d\s?){8,12})(?!\d))"_s);
        QRegularExpressionMatchIterator matches = number.globalMatch(line);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const QString brand = brandOfTaxNumber(match.captured(1) + match.captured(2).remove(u' '));
            if (!brand.isEmpty()) {
                add(withoutAccents(wordsOf(brand)).trimmed(), byTaxNumber);
            }
        }
    }

    void addAddresses(const QString &line) {
        static const QRegularExpression address(
            uR"((?<![@\p{L}\d])(?:https?://)?(?:www\.)?([\p{L}\d\-]{3,30})\.(?:com|co|net|[a-z]{2})(?:\.[a-z]{2})?(?![\p{L}\d]))"_s,
            QRegularExpression::CaseInsensitiveOption);
        QRegularExpressionMatchIterator matches = address.globalMatch(line);
        while (matches.hasNext()) {
            const QString host = matches.next().captured(1);
            const QString words = withoutAccents(wordsOf(host)).trimmed();
            if (letterCountOf(words) >= 3 && !brandsNamed(words).isEmpty()) {
                add(words, byAddress);
            }
        }
    }

    BrandScores scores_;
};

FoundBrand foundBrand(const QString &words) {
    const QList<Brand> brands = brandsNamed(words);
    FoundBrand found{.name = brands.value(0).name, .categories = {}, .countries = {}};
    bool isAnywhere = false;
    for (const Brand &brand : brands) {
        isAnywhere = isAnywhere || brand.countries.isEmpty();
        found.categories.append(brand.category);
        found.countries.append(brand.countries);
    }
    found.categories.removeDuplicates();
    found.countries.removeDuplicates();
    if (isAnywhere || found.countries.size() > fewCountries) {
        found.countries.clear();
    }
    return found;
}

} // namespace

BrandScores brandScores(const Reading &reading) {
    return ReadingBrands(reading).scores();
}

std::optional<FoundBrand> readBrand(const QList<BrandScores> &readings) {
    BrandScores scores;
    for (const BrandScores &brands : readings) {
        for (auto brand = brands.cbegin(); brand != brands.cend(); ++brand) {
            scores[brand.key()] += *brand / static_cast<double>(readings.size());
        }
    }
    const auto best = std::ranges::max_element(scores);
    if (best == scores.end() || *best < leastBrandScore) {
        return std::nullopt;
    }
    FoundBrand brand = foundBrand(best.key());
    brand.isProven = *best >= leastProof;
    return brand;
}

} // namespace fennick::engine
