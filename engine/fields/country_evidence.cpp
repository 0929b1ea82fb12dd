#include "engine/fields/country_evidence.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

struct Evidence {
    QLatin1StringView code;
    const char16_t *pattern; // a regular expression, matched without case
};

constexpr std::array evidence = {
    Evidence{"MYR"_L1, u"(?<!\\p{L})s[do][nh]\\.?\\s?b[hie][d]\\b"},
    Evidence{"MYR"_L1, u"\\b(?:jalan|jln|taman|lorong|persiaran)\\b"},
    Evidence{"MYR"_L1, u"\\b(?:selangor|johor|penang|perak|sabah|sarawak|melaka|kedah|pahang|kelantan)\\b"},
    Evidence{"MYR"_L1, u"\\b(?:kuala lumpur|petaling jaya|shah alam|malaysia)\\b"},
    Evidence{"MYR"_L1, u"\\bgst\\s?(?:id|reg)?\\W{0,3}(?:no)?\\W{0,3}00\\d{10}\\b"},
    Evidence{"MYR"_L1, u"\\b(?:restoran|kedai|syarikat|perniagaan|pasar raya)\\b"},
    Evidence{"GBP"_L1, u"\\bvat\\s?(?:reg\\s?)?(?:no)?\\W{0,3}gb\\s?\\d"},
    Evidence{"GBP"_L1, u"(?-i:\\b[A-Z]{1,2}\\d[A-Z\\d]?\\s\\d[ABD-HJLNP-UW-Z]{2}\\b)"},
    Evidence{"GBP"_L1, u"\\b(?:london|manchester|birmingham|edinburgh|england|united kingdom)\\b"},
    Evidence{"AUD"_L1, u"\\babn\\W{0,3}\\d{2}\\s?\\d{3}"},
    Evidence{"AUD"_L1, u"\\bpty\\.?\\s?ltd\\b"},
    Evidence{"AUD"_L1, u"\\b(?:nsw|vic|qld)\\s\\d{4}\\b|\\baustralia\\b"},
    Evidence{"CAD"_L1, u"\\b(?:hst|qst|tvq)\\b"},
    Evidence{"CAD"_L1, u"(?-i:\\b[ABCEGHJ-NPRSTVXY]\\d[A-Z]\\s\\d[A-Z]\\d\\b)"},
    Evidence{"CAD"_L1, u"\\b(?:canada|ontario|québec|quebec|toronto|vancouver|montréal)\\b"},
    Evidence{"CHF"_L1, u"\\bche-?\\d{3}\\.\\d{3}\\.\\d{3}"},
    Evidence{"CHF"_L1, u"\\b(?:zürich|bern|basel|genève|lausanne|luzern|schweiz|suisse|switzerland)\\b"},
    Evidence{"INR"_L1, u"\\bgstin\\b|\\b(?:cgst|sgst|igst)\\b"},
    Evidence{"INR"_L1, u"\\bpvt\\.?\\s?ltd\\b|\\b(?:mumbai|delhi|bengaluru|bangalore|chennai|india)\\b"},
    Evidence{"SEK"_L1, u"\\borg\\.?\\s?nr\\b|\\borganisationsnummer\\b"},
    Evidence{"SEK"_L1,
             u"\\b(?:kvitto|att betala|varav moms)\\b|\\b(?:stockholm|göteborg|malmö|sverige|sweden)\\b"},
    Evidence{"EUR"_L1,
             u"\\bust-?\\s?id(?:nr)?\\b|\\bde\\d{9}\\b|\\bsiret\\b|\\bp\\.?\\s?iva\\b|\\bn\\.?i\\.?f\\b"},
    Evidence{"EUR"_L1, u"\\b(?:deutschland|berlin|münchen|hamburg|köln|paris|lyon|madrid|barcelona|wien)\\b"},
    Evidence{"JPY"_L1, u"円|合計|領収|税込"},
    Evidence{"JPY"_L1, u"\\b(?:tokyo|osaka|kyoto|japan)\\b"},
    Evidence{"USD"_L1, u"(?-i:\\b(?:A[LKZR]|C[AO]|FL|GA|I[DLNA]|K[SY]|LA|M[ADEINOST]|N[CDHJMVY]|O[HKR]|PA|T["
                       u"NX]|UT|V[AT]|W[AIVY])\\s\\d{5}(?:-\\d{4})?\\b)"},
};

} // namespace

QHash<QString, int> countryEvidence(const Reading &reading) {
    static const QList<QRegularExpression> patterns = [] {
        QList<QRegularExpression> compiled;
        for (const Evidence &item : evidence) {
            compiled.append(QRegularExpression(QString::fromUtf16(item.pattern),
                                               QRegularExpression::CaseInsensitiveOption |
                                                   QRegularExpression::UseUnicodePropertiesOption));
        }
        return compiled;
    }();
    QHash<QString, int> counts;
    for (qsizetype index = 0; index < patterns.size(); ++index) {
        const bool isThere = std::ranges::any_of(
            reading, [&](const TextLine &line) { return patterns[index].match(line.text).hasMatch(); });
        if (isThere) {
            ++counts[QString(evidence[static_cast<size_t>(index)].code)];
        }
    }
    return counts;
}

} // namespace fennick::engine
