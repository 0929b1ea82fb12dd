#include "engine/service/value_locator.h"

#include "engine/fields/evidence_finder.h"
#include "engine/fields/reading_facts.h"
#include "engine/service/documents_at_once.h"

#include <QDate>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr double sureLetters = 0.6; // of a line's confidence
constexpr qsizetype fewestLetters = 20;

QStringList missingValues(const ReceiptFields &values, const ReceiptEvidence &evidence) {
    QStringList missing;
    const auto look = [&missing](const QString &name, bool isWanted, const std::optional<Evidence> &found) {
        if (isWanted && !found) {
            missing.append(name);
        }
    };
    look(u"date"_s, values.date.has_value(), evidence.date);
    look(u"time"_s, values.time.has_value(), evidence.time);
    look(u"total"_s, values.amount.has_value(), evidence.total);
    look(u"currency"_s, values.currency.has_value(), evidence.currency);
    look(u"merchant"_s, values.location.has_value(), evidence.merchant);
    return missing;
}

bool isLegible(const Reading &reading) {
    qsizetype letters = 0;
    for (const TextLine &line : reading) {
        if (line.confidence >= sureLetters) {
            letters += std::ranges::count_if(line.text,
                                             [](QChar character) { return character.isLetterOrNumber(); });
        }
    }
    return letters >= fewestLetters;
}

// Recognition is made for Latin letters: of a page in others it gives some letters that mean nothing.
bool isInLatinLetters(const QString &text) {
    return std::ranges::all_of(text, [](QChar character) {
        return !character.isLetter() || character.script() == QChar::Script_Latin ||
               character.script() == QChar::Script_Common;
    });
}

// One search: grows with the readings, and remembers what they were made of.
class Search {
public:
    Search(const ReceiptFields &values, PdfReading pagesOf)
        : values_(values)
        , pagesOf_(std::move(pagesOf)) {}

    std::expected<QList<PdfPage>, ReadError> readPages(const QByteArray &bytes, PdfUse use,
                                                       const std::stop_token &stop) {
        use.wholeMediaBoxes = true;
        use.annotations = true;
        auto pages = pagesOf_(bytes, use, stop);
        if (pages) {
            pageCount_ = static_cast<int>(pages->size());
            hasPictures_ =
                std::ranges::any_of(*pages, [](const PdfPage &page) { return !page.picture.isNull(); });
        }
        return pages;
    }

    // Asked after each round over the pictures that was not cut short by the time.
    bool isEnough(const QList<Reading> &readings) {
        hasWholeRound_ = true;
        take(readings);
        return missingValues(values_, evidence_).isEmpty() || showNothing(facts_, QDate::currentDate());
    }

    LocatedValues result(const QList<Reading> &readings) {
        take(readings);
        const QStringList missing =
            isConclusive(readings) ? missingValues(values_, evidence_) : QStringList();
        return {evidence_, missing, pageCount_};
    }

private:
    void take(const QList<Reading> &readings) {
        for (qsizetype index = facts_.size(); index < readings.size(); ++index) {
            facts_.append(factsOf(readings[index]));
        }
        evidence_ = findEvidence(values_, facts_);
    }

    // Whether what was not found is not there.
    bool isConclusive(const QList<Reading> &readings) const {
        const bool isTextOnly = !hasPictures_;
        return std::ranges::any_of(readings, isLegible) &&
               (isTextOnly || (hasWholeRound_ && isInLatinLetters(values_.location.value_or(QString()))));
    }

    const ReceiptFields &values_;
    PdfReading pagesOf_;
    QList<ReadingFacts> facts_;
    ReceiptEvidence evidence_;
    int pageCount_ = 1;
    bool hasPictures_ = true;
    bool hasWholeRound_ = false;
};

} // namespace

std::expected<LocatedValues, ReadError> locateValues(const QByteArray &bytes, const ReceiptFields &values,
                                                     const std::stop_token &stop, const PdfReading &pagesOf) {
    documentsAtOnce.acquire();
    const QSemaphoreReleaser document(documentsAtOnce);
    Search search(values, pagesOf);
    const auto isEnough = [&search](const QList<Reading> &readings) {
        return search.isEnough(readings);
    };
    const auto readPages = [&search](const QByteArray &pdf, const PdfUse &use,
                                     const std::stop_token &stopped) {
        return search.readPages(pdf, use, stopped);
    };
    const std::expected<QList<Reading>, ReadError> readings = readDocument(bytes, isEnough, stop, readPages);
    if (!readings) {
        return std::unexpected(readings.error());
    }
    return search.result(*readings);
}

} // namespace fennick::engine
