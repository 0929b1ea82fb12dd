#include "engine/fields/brand_reader.h"

#include "engine/fields/edit_distance.h"
#include "engine/fields/number_reader.h"
#include "engine/knowledge/brand_table.h"
#include "engine/knowledge/country_table.h"
#include "engine/knowledge/words.h"

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

// Words that stand beside a brand in a company's name without being part of it.
const QSet<QString> &legalWords() {
    static const QSet<QString> words = {
        u"gmbh"_s,    u"mbh"_s,     u"co"_s,       u"kg"_s,  u"kgaa"_s, u"ag"_s,   u"ohg"_s, u"se"_s,
        u"ltd"_s,     u"plc"_s,     u"inc"_s,      u"llc"_s, u"llp"_s,  u"corp"_s, u"sa"_s,  u"sas"_s,
        u"sarl"_s,    u"srl"_s,     u"spa"_s,      u"sl"_s,  u"bv"_s,   u"nv"_s,   u"ab"_s,  u"as"_s,
        u"asa"_s,     u"aps"_s,     u"oy"_s,       u"oyj"_s, u"sdn"_s,  u"bhd"_s,  u"pte"_s, u"pty"_s,
        u"pvt"_s,     u"kft"_s,     u"zrt"_s,      u"doo"_s, u"sro"_s,  u"spol"_s, u"sp"_s,  u"zoo"_s,
        u"limited"_s, u"company"_s, u"limitada"_s, u"lda"_s,
    };
    return words;
}

// Names of brands that are words of receipts, menus and addresses as well: alone in a line they name nobody.
bool isCommonWord(const QString &words) {
    static const QSet<QString> common = {
        u"total"_s,  u"real"_s,    u"next"_s,   u"gap"_s,    u"plus"_s,    u"extra"_s,      u"max"_s,
        u"base"_s,   u"home"_s,    u"best"_s,   u"one"_s,    u"go"_s,      u"cash"_s,       u"card"_s,
        u"date"_s,   u"time"_s,    u"tax"_s,    u"market"_s, u"express"_s, u"roti"_s,       u"bar"_s,
        u"cafe"_s,   u"pizza"_s,   u"hotel"_s,  u"taxi"_s,   u"parking"_s, u"restaurant"_s, u"coffee"_s,
        u"bakery"_s, u"fresh"_s,   u"local"_s,  u"city"_s,   u"star"_s,    u"super"_s,      u"change"_s,
        u"bill"_s,   u"order"_s,   u"table"_s,  u"sale"_s,   u"sales"_s,   u"item"_s,       u"service"_s,
        u"store"_s,  u"shop"_s,    u"visa"_s,   u"master"_s, u"debit"_s,   u"credit"_s,     u"welcome"_s,
        u"tesoro"_s, u"net"_s,     u"rest"_s,   u"summa"_s,  u"suma"_s,    u"bon"_s,        u"ticket"_s,
        u"copy"_s,   u"central"_s, u"center"_s, u"centre"_s, u"station"_s, u"food"_s,       u"foods"_s,
        u"water"_s,
    };
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
