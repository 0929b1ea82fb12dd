#include "engine/fields/summary_writer.h"

#include "engine/fields/currency_reader.h"

#include <QHash>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

struct Wording {
    QString purchase;
    QString preposition; // before the seller's name
};

Wording wordingOf(const QString &category) {
    static const QHash<QString, Wording> wordings = {
        {u"breakfast"_s, {u"Breakfast"_s, u"at"_s}}, {u"lunch"_s, {u"Lunch"_s, u"at"_s}},
        {u"dinner"_s, {u"Dinner"_s, u"at"_s}},       {u"coffee"_s, {u"Coffee"_s, u"at"_s}},
        {u"hotel"_s, {u"Hotel stay"_s, u"at"_s}},    {u"transport"_s, {u"Transport"_s, u"with"_s}},
        {u"fuel"_s, {u"Fuel"_s, u"from"_s}},         {u"groceries"_s, {u"Groceries"_s, u"from"_s}},
        {u"shopping"_s, {u"Purchase"_s, u"at"_s}},   {u"entertainment"_s, {u"Entertainment"_s, u"at"_s}},
    };
    return wordings.value(category, {u"Receipt"_s, u"from"_s});
}

} // namespace

QString summaryOf(const ReceiptFields &fields) {
    const Wording wording = wordingOf(fields.category);
    QString sentence = wording.purchase;
    if (fields.location) {
        sentence += u' ' + wording.preposition + u' ' + *fields.location;
    }
    if (fields.amount) {
        sentence += u" for "_s + moneyText(*fields.amount, fields.currency);
    }
    return sentence;
}

} // namespace fennick::engine
