#include "engine/amount_reader.h"

#include "engine/number_reader.h"
#include "engine/word_search.h"

#include <QStringList>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Names of the amount to pay in the languages receipts of this program's users are in, surest first.
const QList<QStringList> &labelsByClarity() {
    static const QList<QStringList> labels = {
        {u"grand total"_s,       u"total due"_s,       u"amount due"_s,    u"balance due"_s,
         u"total amount due"_s,  u"total to pay"_s,    u"total payable"_s, u"amount payable"_s,
         u"total paid"_s,        u"total ttc"_s,       u"net à payer"_s,   u"à payer"_s,
         u"gesamtbetrag"_s,      u"rechnungsbetrag"_s, u"endbetrag"_s,     u"endsumme"_s,
         u"gesamtsumme"_s,       u"zu zahlen"_s,       u"zahlbetrag"_s,    u"zahlungsbetrag"_s,
         u"att betala"_s,        u"te betalen"_s,      u"total general"_s, u"importe total"_s,
         u"totale complessivo"_s},
        {u"total"_s, u"totals"_s, u"total amount"_s, u"gesamt"_s, u"summe"_s, u"totale"_s, u"totaal"_s,
         u"totalt"_s, u"total incl"_s, u"合計"_s},
        {u"betrag"_s, u"montant"_s, u"amount"_s, u"importe"_s, u"importo"_s, u"fare"_s, u"amount paid"_s,
         u"paid"_s, u"payment"_s, u"sum"_s, u"to pay"_s},
        {u"visa"_s, u"mastercard"_s, u"amex"_s, u"maestro"_s, u"card"_s, u"credit card"_s, u"debit card"_s,
         u"girocard"_s, u"ec karte"_s, u"carte bancaire"_s},
    };
    return labels;
}

// Such a line bears another amount than the total, whatever else it says.
const QStringList &otherAmounts() {
    static const QStringList words = {
        u"subtotal"_s,       u"sub total"_s, u"zwischensumme"_s, u"sous total"_s, u"subtotaal"_s,
        u"page total"_s,     u"carried"_s,   u"übertrag"_s,      u"change"_s,     u"rückgeld"_s,
        u"wechselgeld"_s,    u"tendered"_s,  u"cash"_s,          u"bar"_s,        u"gegeben"_s,
        u"discount"_s,       u"rabatt"_s,    u"saving"_s,        u"savings"_s,    u"saved"_s,
        u"rounding"_s,       u"rundung"_s,   u"items"_s,         u"item"_s,       u"qty"_s,
        u"quantity"_s,       u"points"_s,    u"tip"_s,           u"gratuity"_s,   u"excl"_s,
        u"excluding"_s,      u"total ht"_s,  u"netto"_s,         u"deposit"_s,    u"previous balance"_s,
        u"total discount"_s, u"loyalty"_s,   u"before tax"_s,    u"pre tax"_s,
    };
    return words;
}

const QStringList &taxWords() {
    static const QStringList words = {
        u"tax"_s,          u"vat"_s,   u"gst"_s, u"hst"_s,  u"pst"_s, u"sst"_s,    u"mwst"_s,
        u"ust"_s,          u"tva"_s,   u"iva"_s, u"moms"_s, u"btw"_s, u"steuer"_s, u"mehrwertsteuer"_s,
        u"umsatzsteuer"_s, u"taxes"_s,
    };
    return words;
}

const QStringList &inclusiveWords() {
    static const QStringList words = {
        u"incl"_s, u"inc"_s,      u"including"_s, u"inclusive"_s, u"included"_s,
        u"inkl"_s, u"includes"_s, u"with"_s,      u"ttc"_s,
    };
    return words;
}

bool namesAnotherAmount(const QString &words) {
    if (containsAnyPhrase(words, otherAmounts())) {
        return true;
    }
    return containsAnyPhrase(words, taxWords()) && !containsAnyPhrase(words, inclusiveWords());
}

std::optional<double> lastPrice(const QString &line) {
    QList<PrintedNumber> numbers = printedNumbers(line);
    if (numbers.isEmpty()) {
        return std::nullopt;
    }
    const auto isPrice = [](const PrintedNumber &number) {
        return number.hasDecimals || number.hasCurrency;
    };
    const auto price = std::find_if(numbers.crbegin(), numbers.crend(), isPrice);
    return price != numbers.crend() ? price->value : numbers.last().value;
}

// A line without any letters but those of a currency: the amount below its label.
bool isOnlyPrice(const QString &line) {
    const auto letters = std::ranges::count_if(line, [](QChar character) { return character.isLetter(); });
    return letters <= 3 && printedNumbers(line).size() == 1;
}

std::optional<double> amountAt(const QList<TextLine> &lines, qsizetype index) {
    if (const std::optional<double> amount = lastPrice(lines[index].text)) {
        return amount;
    }
    if (index + 1 < lines.size() && isOnlyPrice(lines[index + 1].text)) {
        return lastPrice(lines[index + 1].text);
    }
    return std::nullopt;
}

std::optional<double> largestLabelled(const QList<TextLine> &lines, const QStringList &labels) {
    std::optional<double> largest;
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const QString words = wordsOf(lines[index].text);
        if (!containsAnyPhrase(words, labels) || namesAnotherAmount(words)) {
            continue;
        }
        const std::optional<double> amount = amountAt(lines, index);
        if (amount && *amount > 0 && (!largest || *amount > *largest)) {
            largest = amount;
        }
    }
    return largest;
}

std::optional<double> largestWithCurrency(const QList<TextLine> &lines) {
    std::optional<double> largest;
    for (const TextLine &line : lines) {
        if (namesAnotherAmount(wordsOf(line.text))) {
            continue;
        }
        for (const PrintedNumber &number : printedNumbers(line.text)) {
            if (number.hasCurrency && number.value > 0 && (!largest || number.value > *largest)) {
                largest = number.value;
            }
        }
    }
    return largest;
}

} // namespace

std::optional<double> readAmount(const QList<TextLine> &lines) {
    for (const QStringList &labels : labelsByClarity()) {
        if (const std::optional<double> amount = largestLabelled(lines, labels)) {
            return amount;
        }
    }
    return largestWithCurrency(lines);
}

} // namespace fennick
