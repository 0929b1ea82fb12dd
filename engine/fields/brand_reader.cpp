#include "engine/fields/brand_reader.h"

#include "engine/fields/edit_distance.h"
#include "engine/fields/number_reader.h"
#include "engine/knowledge/brand_table.h"
#include "engine/knowledge/words.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Where a shop names itself, in lines from the top.
constexpr qsizetype headingLines = 6;
constexpr qsizetype titleLines = 3;
// What each way of naming it counts, and what a reading must come to on average.
constexpr double byTaxNumber = 4;
constexpr double byLegalForm = 4;
constexpr double byHeading = 3;
constexpr double byAddress = 3;
constexpr double byTitleBeginning = 1.5;
constexpr double byMisreadHeading = 1.5;
constexpr double leastBrandScore = 1;
// Letters of a name that may stand before other words, and of one that may be misread in one of so many
// letters.
constexpr qsizetype shortestBeginning = 5;
constexpr qsizetype shortestMisread = 6;
constexpr qsizetype lettersForAnError = 6;
constexpr qsizetype mostWordsAfterwards = 4;
constexpr qsizetype fewCountries = 3;

// Words that stand beside a brand in a company's name without being part of it.
const QSet<QString> &legalWords() {
    static const QSet<QString> words = {
        u"gmbh"_s,    u"mbh"_s, u"co"_s,      u"kg"_s,       u"kgaa"_s, u"ag"_s,   u"ohg"_s, u"se"_s,
        u"ltd"_s,     u"plc"_s, u"inc"_s,     u"llc"_s,      u"llp"_s,  u"corp"_s, u"sa"_s,  u"sas"_s,
        u"sarl"_s,    u"srl"_s, u"spa"_s,     u"sl"_s,       u"bv"_s,   u"nv"_s,   u"ab"_s,  u"as"_s,
        u"asa"_s,     u"aps"_s, u"oy"_s,      u"oyj"_s,      u"sdn"_s,  u"bhd"_s,  u"pte"_s, u"pty"_s,
        u"pvt"_s,     u"kft"_s, u"zrt"_s,     u"doo"_s,      u"sro"_s,  u"spol"_s, u"sp"_s,  u"zoo"_s,
        u"limited"_s, u"sc"_s,  u"company"_s, u"limitada"_s, u"lda"_s,
    };
    return words;
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

    const QMap<QString, double> &scores() const { return scores_; }

private:
    void add(const QString &words, double score) {
        double &best = scores_[words];
        best = std::max(best, score);
    }

    void addPiece(QStringList piece, qsizetype index) {
        while (!piece.isEmpty() && isLegalWord(piece.first())) {
            piece.removeFirst();
        }
        const auto form = std::ranges::find_if(piece, isLegalWord);
        const QStringList name = piece.first(form - piece.begin());
        const QString words = name.join(u' ');
        if (letterCountOf(words) < 2) {
            return;
        }
        if (!brandsNamed(words).isEmpty()) {
            const bool hasForm = form != piece.end() && letterCountOf(*form) > 1;
            if (hasForm || index < headingLines) {
                add(words, hasForm ? byLegalForm : byHeading);
            }
            return;
        }
        if (index < headingLines) {
            addMisread(words);
        }
        if (index < titleLines || form != piece.end()) {
            addBeginning(name);
        }
    }

    void addMisread(const QString &words) {
        if (const QString name = misreadName(words); !name.isEmpty()) {
            add(name, byMisreadHeading);
        }
    }

    // "Auchan Romania", "Westfield Coffee 12": the longest beginning that is a name.
    void addBeginning(const QStringList &piece) {
        for (qsizetype count = piece.size() - 1; count >= 1; --count) {
            const QString words = piece.first(count).join(u' ');
            if (piece.size() - count <= mostWordsAfterwards && letterCountOf(words) >= shortestBeginning &&
                !brandsNamed(words).isEmpty()) {
                add(words, byTitleBeginning);
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

    QMap<QString, double> scores_;
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

std::optional<FoundBrand> readBrand(const QList<Reading> &readings) {
    QMap<QString, double> scores;
    for (const Reading &reading : readings) {
        const ReadingBrands brands(reading);
        for (auto brand = brands.scores().cbegin(); brand != brands.scores().cend(); ++brand) {
            scores[brand.key()] += *brand / static_cast<double>(readings.size());
        }
    }
    const auto best = std::ranges::max_element(scores);
    if (best == scores.end() || *best < leastBrandScore) {
        return std::nullopt;
    }
    return foundBrand(best.key());
}

} // namespace fennick::engine
