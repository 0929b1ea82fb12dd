#include "engine/fields/amount_roles.h"

#include "engine/fields/word_repair.h"
#include "engine/knowledge/words.h"

#include <QList>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

struct RolePhrases {
    AmountRole role;
    QStringList phrases;
};

const QStringList &taxWords() {
    static const QStringList words = {
        u"tax"_s,
        u"vat"_s,
        u"gst"_s,
        u"hst"_s,
        u"pst"_s,
        u"sst"_s,
        u"qst"_s,
        u"mwst"_s,
        u"ust"_s,
        u"tva"_s,
        u"iva"_s,
        u"moms"_s,
        u"btw"_s,
        u"cgst"_s,
        u"sgst"_s,
        u"igst"_s,
        u"taxes"_s,
        u"steuer"_s,
        u"mehrwertsteuer"_s,
        u"umsatzsteuer"_s,
    };
    return words;
}

const QStringList &inclusiveWords() {
    static const QStringList words = {
        u"incl"_s, u"inc"_s,      u"including"_s, u"inclusive"_s, u"included"_s,
        u"inkl"_s, u"includes"_s, u"with"_s,      u"ttc"_s,       u"incluido"_s,
    };
    return words;
}

// After these a tax is part of an amount that stands elsewhere.
const QStringList &withinWords() {
    static const QStringList words = {
        u"included"_s, u"includes"_s, u"incl"_s,    u"inclusive"_s, u"inkl"_s,     u"enthalten"_s,
        u"enthält"_s,  u"darin"_s,    u"davon"_s,   u"varav"_s,     u"dont"_s,     u"incluido"_s,
        u"incluida"_s, u"inclus"_s,   u"incluse"_s, u"compris"_s,   u"comprise"_s,
    };
    return words;
}

const QStringList &exclusiveWords() {
    static const QStringList words = {
        u"excl"_s,     u"excluding"_s,  u"exclusive"_s, u"excluded"_s,   u"exc"_s,     u"ex gst"_s,
        u"ex vat"_s,   u"exkl"_s,       u"without"_s,   u"before tax"_s, u"pre tax"_s, u"zzgl"_s,
        u"total ht"_s, u"montant ht"_s, u"netto"_s,     u"hors taxe"_s,  u"sin iva"_s,
    };
    return words;
}

const QStringList &totalWords() {
    static const QStringList words = {
        u"total"_s,  u"totals"_s, u"gesamt"_s, u"summe"_s,  u"totale"_s,
        u"totaal"_s, u"totalt"_s, u"合計"_s,   u"jumlah"_s,
    };
    return words;
}

// The first row that fits decides.
const QList<RolePhrases> &rolesInOrder() {
    static const QList<RolePhrases> rows = {
        {AmountRole::SubTotal,
         {u"subtotal"_s, u"sub total"_s, u"zwischensumme"_s, u"sous total"_s, u"subtotaal"_s, u"delsumma"_s,
          u"net amount"_s, u"nettobetrag"_s, u"taxable"_s, u"base imponible"_s, u"supplies"_s}},
        {AmountRole::PaidBefore,
         {u"deposit paid"_s, u"deposit received"_s, u"less deposit"_s, u"advance paid"_s,
          u"advance payment"_s, u"paid in advance"_s, u"prepayment"_s, u"already paid"_s, u"anzahlung"_s,
          u"acompte"_s, u"anticipo"_s, u"anticipo pagado"_s}},
        {AmountRole::Other,
         {u"items"_s,
          u"item"_s,
          u"qty"_s,
          u"quantity"_s,
          u"points"_s,
          u"saving"_s,
          u"savings"_s,
          u"saved"_s,
          u"loyalty"_s,
          u"page total"_s,
          u"carried"_s,
          u"übertrag"_s,
          u"previous balance"_s,
          u"deposit"_s,
          u"opening balance"_s,
          u"closing balance"_s,
          u"gross weight"_s,
          u"litres"_s,
          u"total discount"_s,
          u"total item discount"_s,
          u"relief"_s,
          u"exchange rate"_s}},
        {AmountRole::FinalTotal,
         {u"grand total"_s,
          u"total due"_s,
          u"amount due"_s,
          u"balance due"_s,
          u"total amount due"_s,
          u"total to pay"_s,
          u"total payable"_s,
          u"amount payable"_s,
          u"amt payable"_s,
          u"total paid"_s,
          u"total ttc"_s,
          u"net à payer"_s,
          u"à payer"_s,
          u"gesamtbetrag"_s,
          u"rechnungsbetrag"_s,
          u"endbetrag"_s,
          u"endsumme"_s,
          u"gesamtsumme"_s,
          u"zu zahlen"_s,
          u"zahlbetrag"_s,
          u"zahlungsbetrag"_s,
          u"att betala"_s,
          u"te betalen"_s,
          u"total general"_s,
          u"importe total"_s,
          u"total a pagar"_s,
          u"totale complessivo"_s,
          u"nett total"_s,
          u"total nett"_s,
          u"final total"_s,
          u"finaltotal"_s,
          u"total rounded"_s,
          u"rounded total"_s,
          u"round total"_s,
          u"round d total"_s,
          u"total after rounding"_s,
          u"amount to pay"_s,
          u"total after rounding adj"_s,
          u"please pay"_s,
          u"gesamt brutto"_s,
          u"bruttobetrag"_s}},
        {AmountRole::Rounding,
         {u"rounding"_s, u"rundung"_s, u"round adj"_s, u"rounding adj"_s, u"rounding adjustment"_s,
          u"öresavrundning"_s, u"avrundning"_s, u"arrondi"_s, u"redondeo"_s, u"round off"_s}},
        {AmountRole::Change,
         {u"change"_s, u"change due"_s, u"rückgeld"_s, u"wechselgeld"_s, u"baki"_s, u"rendu"_s, u"cambio"_s,
          u"växel"_s, u"tillbaka"_s, u"monnaie"_s}},
        {AmountRole::Discount, {u"discount"_s, u"disc"_s, u"rabatt"_s, u"remise"_s, u"descuento"_s}},
        {AmountRole::Charge,
         {u"service charge"_s, u"svc chg"_s, u"svr chrg"_s, u"serv charge"_s, u"service chg"_s, u"tip"_s,
          u"gratuity"_s, u"trinkgeld"_s, u"service"_s}},
        {AmountRole::Total, {u"due"_s, u"pay"_s, u"to pay"_s}},
        {AmountRole::Tendered,
         {u"cash"_s, u"tendered"_s, u"tender"_s, u"bar"_s, u"gegeben"_s, u"received"_s, u"accepted"_s,
          u"paid amount"_s, u"tunai"_s, u"espèces"_s, u"efectivo"_s, u"kontant"_s}},
        {AmountRole::Card,
         {u"visa"_s, u"mastercard"_s, u"master"_s, u"amex"_s, u"maestro"_s, u"card"_s, u"credit card"_s,
          u"debit card"_s, u"girocard"_s, u"ec karte"_s, u"carte bancaire"_s, u"debit"_s, u"mydebit"_s,
          u"carte"_s, u"tarjeta"_s, u"kort"_s}},
    };
    return rows;
}

const QStringList &mentions() {
    static const QStringList words = {
        u"betrag"_s,      u"montant"_s, u"amount"_s,  u"importe"_s, u"importo"_s, u"fare"_s,
        u"amount paid"_s, u"paid"_s,    u"payment"_s, u"sum"_s,     u"amt"_s,     u"belopp"_s,
    };
    return words;
}

void addWords(QSet<QString> &vocabulary, const QStringList &phrases) {
    for (const QString &phrase : phrases) {
        const QStringList words = phrase.split(u' ');
        vocabulary += QSet<QString>(words.cbegin(), words.cend());
    }
}

const QSet<QString> &vocabulary() {
    static const QSet<QString> words = [] {
        QSet<QString> all;
        for (const QStringList &phrases :
             {taxWords(), inclusiveWords(), exclusiveWords(), totalWords(), mentions()}) {
            addWords(all, phrases);
        }
        for (const RolePhrases &row : rolesInOrder()) {
            addWords(all, row.phrases);
        }
        // Words that are right as they stand, though one letter away from one above.
        addWords(all, {u"summary sales local charges totally roti later mister"_s});
        return all;
    }();
    return words;
}

// "Total includes 6% GST 1.80", "GST included in total 1.80": the tax, not the total.
bool namesTaxWithin(QString words) {
    static const QRegularExpression number(uR"( \d+(?= ))"_s);
    words.remove(number);
    const bool isIncluded = words.contains(u" included "_s) || words.contains(u" includes "_s);
    const qsizetype totalAt = words.indexOf(u" total "_s);
    return isIncluded && std::ranges::any_of(taxWords(), [&](const QString &tax) {
               const qsizetype taxAt = words.indexOf(u' ' + tax + u' ');
               return taxAt >= 0 && (taxAt < totalAt ||
                                     containsAnyPhrase(words, {u"included "_s + tax, u"includes "_s + tax}));
           });
}

AmountRole totalRole(const QString &words) {
    if (containsAnyPhrase(words, exclusiveWords())) {
        return AmountRole::SubTotal;
    }
    const bool isTax = containsAnyPhrase(words, taxWords()) && !containsAnyPhrase(words, inclusiveWords());
    return isTax || namesTaxWithin(words) ? AmountRole::Tax : AmountRole::Total;
}

} // namespace

AmountRole amountRole(const QString &label) {
    // "CashReceived": faint blanks go missing.
    static const QRegularExpression newWord(uR"((?<=\p{Ll}{3})(?=\p{Lu}\p{Ll}{2}))"_s);
    const QString words = repairedWords(wordsOf(QString(label).replace(newWord, u" "_s)), vocabulary());
    const bool isTotal = containsAnyPhrase(words, totalWords());
    for (const RolePhrases &row : rolesInOrder()) {
        if (!containsAnyPhrase(words, row.phrases)) {
            continue;
        }
        if (row.role == AmountRole::FinalTotal) {
            return containsAnyPhrase(words, exclusiveWords()) ? AmountRole::SubTotal : row.role;
        }
        // "Total (after discount)", "Total incl. service charge".
        const bool describesTotal =
            isTotal && (row.role == AmountRole::Discount || row.role == AmountRole::Charge);
        return describesTotal ? AmountRole::Total : row.role;
    }
    if (isTotal) {
        return totalRole(words);
    }
    if (containsAnyPhrase(words, exclusiveWords())) {
        return AmountRole::SubTotal;
    }
    if (containsAnyPhrase(words, mentions())) {
        return containsAnyPhrase(words, taxWords()) && !containsAnyPhrase(words, inclusiveWords())
                   ? AmountRole::Tax
                   : AmountRole::Mention;
    }
    if (!containsAnyPhrase(words, taxWords())) {
        return AmountRole::Unnamed;
    }
    // "GST included 0.38": nothing that is added to a subtotal.
    return containsAnyPhrase(words, withinWords()) ? AmountRole::Other : AmountRole::Tax;
}

bool startsTaxTable(const QString &line) {
    static const QStringList headings = {u"gst summary"_s,  u"tax summary"_s, u"gst analysis"_s,
                                         u"vat summary"_s,  u"tax code"_s,    u"sst summary"_s,
                                         u"tax analysis"_s, u"mwst satz"_s,   u"vat analysis"_s};
    return containsAnyPhrase(repairedWords(wordsOf(line), vocabulary()), headings);
}

} // namespace fennick::engine
