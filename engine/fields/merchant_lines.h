#pragma once

#include "engine/knowledge/word_table.h"

#include <QString>
#include <QStringList>

namespace fennick::engine {

// At least half of the signs are letters, at least three of them.
[[nodiscard]] bool isMostlyLetters(const QString &line);

// What the lines at the top of a receipt are, in English and some other languages. Made once for a receipt.
class MerchantLines {
public:
    explicit MerchantLines(const Languages &languages);

    // "Tax invoice", "Welcome to": nothing but words of headings, greetings and numbers.
    [[nodiscard]] bool isHeading(const QString &line) const;

    // Contact data, an address or a labelled value: "Tel 030 1234", "12 High Street", "Lot 5, Jalan Duta",
    // "Table: 4".
    [[nodiscard]] bool isDetail(const QString &line) const;

    // A company's registration or tax number, which stands below or behind the name it belongs to.
    [[nodiscard]] bool isRegistration(const QString &line) const;

    // "Bill to", "Owned by": the name that follows is not the seller's.
    [[nodiscard]] bool introducesAnother(const QString &line) const;

    // Whether `name` has a legal form: Sdn Bhd, Ltd, GmbH, Inc, AB ...
    [[nodiscard]] bool hasLegalForm(const QString &name) const;

    // Whether `name` bears a word that shops and firms call themselves by: Restaurant, Trading, Hardware ...
    // "Bistro & Cafe" has nothing else: it describes the shop and does not name it.
    [[nodiscard]] bool hasBusinessWord(const QString &name) const;

    // Whether the receipt may be Malaysian, where most names end in "Sdn Bhd".
    [[nodiscard]] bool mayEndInSdnBhd() const { return mayEndInSdnBhd_; }

private:
    bool isNumberedDetail(const QString &line, const QString &words) const;

    QStringList heading_;
    QStringList detail_;
    QStringList numbered_;
    QStringList numberedEnds_;
    QStringList another_;
    QStringList business_;
    QStringList legalForms_;
    QStringList legalFormsBefore_;
    QStringList registration_;
    bool mayEndInSdnBhd_ = false;
};

} // namespace fennick::engine
