#include "engine/fields/amount_roles.h"

#include "engine/fields/word_repair.h"
#include "engine/knowledge/words.h"

#include <QRegularExpression>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

void addWords(QSet<QString> &vocabulary, const QStringList &phrases) {
    for (const QString &phrase : phrases) {
        const QStringList words = phrase.split(u' ');
        vocabulary += QSet<QString>(words.cbegin(), words.cend());
    }
}

} // namespace

AmountRoles::AmountRoles(const Languages &languages) {
    const auto phrases = [&languages](const QString &meaning) {
        return amountWords().phrases(meaning, languages);
    };
    inOrder_ = {
        {AmountRole::finalTotal, phrases(u"regional total"_s)},
        {AmountRole::subtotal, phrases(u"subtotal"_s)},
        {AmountRole::paidBefore, phrases(u"paid before"_s)},
        {AmountRole::other, phrases(u"other"_s)},
        {AmountRole::finalTotal, phrases(u"final total"_s)},
        {AmountRole::rounding, phrases(u"rounding"_s)},
        {AmountRole::change, phrases(u"change"_s)},
        {AmountRole::discount, phrases(u"discount"_s)},
        {AmountRole::charge, phrases(u"charge"_s)},
        {AmountRole::total, phrases(u"due"_s)},
        {AmountRole::tendered, phrases(u"tendered"_s)},
        {AmountRole::card, phrases(u"card"_s)},
    };
    total_ = phrases(u"total"_s);
    totalAlone_ = phrases(u"total alone"_s);
    partOfTotal_ = phrases(u"part of total"_s);
    mention_ = phrases(u"mention"_s);
    tax_ = phrases(u"tax"_s);
    inclusive_ = phrases(u"inclusive"_s);
    within_ = phrases(u"within"_s);
    exclusive_ = phrases(u"exclusive"_s);
    taxTable_ = phrases(u"tax table"_s);
    taxColumn_ = phrases(u"tax column"_s);
    for (const QStringList &list : {total_, totalAlone_, partOfTotal_, mention_, tax_, inclusive_, exclusive_,
                                    phrases(u"no misreading"_s)}) {
        addWords(vocabulary_, list);
    }
    for (const Meaning &meaning : std::as_const(inOrder_)) {
        addWords(vocabulary_, meaning.phrases);
    }
}

QString AmountRoles::repairedLabel(const QString &label) const {
    // "CashReceived": faint blanks go missing.
    static const QRegularExpression newWord(uR"((?<=\p{Ll}{3})(?=\p{Lu}\p{Ll}{2}))"_s);
    return repairedWords(withoutAccents(wordsOf(QString(label).replace(newWord, u" "_s))), vocabulary_);
}

// "Total includes 6% GST 1.80", "GST included in total 1.80": the tax, not the total.
bool AmountRoles::namesTaxWithin(QString words) const {
    static const QRegularExpression number(uR"( \d+(?= ))"_s);
    words.remove(number);
    const bool isIncluded = words.contains(u" included "_s) || words.contains(u" includes "_s);
    const qsizetype totalAt = words.indexOf(u" total "_s);
    return isIncluded && std::ranges::any_of(tax_, [&](const QString &tax) {
               const qsizetype taxAt = words.indexOf(u' ' + tax + u' ');
               return taxAt >= 0 && (taxAt < totalAt ||
                                     containsAnyPhrase(words, {u"included "_s + tax, u"includes "_s + tax}));
           });
}

bool AmountRoles::isTotalAlone(QString words) const {
    static const QRegularExpression other(uR"([^\p{L} ]+|(?<= )\p{L}{1,3}(?= ))"_s); // amounts and currencies
    return totalAlone_.contains(words.remove(other).simplified());
}

AmountRole AmountRoles::totalRole(const QString &words) const {
    if (containsAnyPhrase(words, exclusive_)) {
        return AmountRole::subtotal;
    }
    const bool isTax = containsAnyPhrase(words, tax_) && !containsAnyPhrase(words, inclusive_);
    return isTax || namesTaxWithin(words) ? AmountRole::tax : AmountRole::total;
}

AmountRole AmountRoles::role(const QString &label) const {
    const QString words = repairedLabel(label);
    const bool isTotal = containsAnyPhrase(words, total_) || isTotalAlone(words);
    if (isTotal && containsAnyPhrase(words, partOfTotal_)) {
        return AmountRole::subtotal;
    }
    for (const Meaning &meaning : inOrder_) {
        if (!containsAnyPhrase(words, meaning.phrases)) {
            continue;
        }
        if (meaning.role == AmountRole::finalTotal) {
            return containsAnyPhrase(words, exclusive_) ? AmountRole::subtotal : meaning.role;
        }
        // "Total (after discount)", "Total incl. service charge".
        const bool describesTotal =
            isTotal && (meaning.role == AmountRole::discount || meaning.role == AmountRole::charge);
        return describesTotal ? AmountRole::total : meaning.role;
    }
    if (isTotal) {
        return totalRole(words);
    }
    if (containsAnyPhrase(words, exclusive_)) {
        return AmountRole::subtotal;
    }
    const bool isTax = containsAnyPhrase(words, tax_);
    if (containsAnyPhrase(words, mention_)) {
        return isTax && !containsAnyPhrase(words, inclusive_) ? AmountRole::tax : AmountRole::mention;
    }
    if (!isTax) {
        return AmountRole::unnamed;
    }
    // "GST included 0.38": nothing that is added to a subtotal.
    return containsAnyPhrase(words, within_) ? AmountRole::other : AmountRole::tax;
}

bool AmountRoles::startsTaxTable(const QString &line) const {
    return containsAnyPhrase(repairedLabel(line), taxTable_);
}

bool AmountRoles::namesTaxColumns(const QString &line) const {
    const QString words = withoutAccents(wordsOf(line));
    return startsTaxTable(line) || (containsAnyPhrase(words, tax_) && containsAnyPhrase(words, taxColumn_));
}

} // namespace fennick::engine
