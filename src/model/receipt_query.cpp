#include "model/receipt_query.h"

#include "text/currency_codes.h"
#include "text/search_text.h"
#include "text/typed_number.h"
#include "text/white_space.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <optional>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

using Condition = std::function<bool(const SearchableReceipt &)>;

// A word as searchText() makes it, or what stood between quotes.
struct Token {
    QString text;
    bool isQuoted = false;
};

struct Keyword {
    const char *words;
    bool (*holds)(const SearchableReceipt &);
};

// A new one is a line here, and a translation.
constexpr Keyword keywords[] = {
    //: Typed to find receipts whose scan has failed.
    {QT_TRANSLATE_NOOP("ReceiptQuery", "failed"),
     [](const SearchableReceipt &receipt) {
         return receipt.status == ReceiptStatus::error;
     }},
    //: Typed to find receipts that were not added to the photo library.
    {QT_TRANSLATE_NOOP("ReceiptQuery", "no photo"),
     [](const SearchableReceipt &receipt) {
         return !receipt.addedToPhotos;
     }},
    //: Typed to find receipts that may be in the list twice.
    {QT_TRANSLATE_NOOP("ReceiptQuery", "duplicate"),
     [](const SearchableReceipt &receipt) {
         return receipt.mayBeDuplicate;
     }},
};

QList<Token> tokensOf(const QString &typed) {
    QList<Token> tokens;
    const QStringList parts = typed.split(u'"'); // every second one stands between quotes
    for (qsizetype index = 0; index < parts.size(); ++index) {
        const bool isQuoted = index % 2 == 1;
        const QString text = searchText(parts[index]);
        if (isQuoted && !text.isEmpty()) {
            tokens.append({text, true});
        } else if (!isQuoted) {
            const QStringList words = splitOnWhiteSpace(text);
            for (const QString &word : words) {
                tokens.append({word, false});
            }
        }
    }
    return tokens;
}

// The numbers of the months, by their names in full and in short.
QHash<QString, int> monthsIn(const QLocale &language) {
    QHash<QString, int> months;
    for (int month = 1; month <= 12; ++month) {
        for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat}) {
            for (QString name :
                 {language.standaloneMonthName(month, format), language.monthName(month, format)}) {
                name.remove(u'.');
                months.insert(searchText(name), month);
            }
        }
    }
    return months;
}

std::optional<int> yearIn(const Token &token) {
    constexpr qsizetype digitsOfAYear = 4;
    bool isNumber = false;
    const int year = token.text.toInt(&isNumber);
    return isNumber && !token.isQuoted && token.text.size() == digitsOfAYear ? std::optional(year)
                                                                             : std::nullopt;
}

Condition hasText(const QString &text) {
    return [text](const SearchableReceipt &receipt) {
        return receipt.words.contains(text);
    };
}

// The code narrows the list to its currency, but "cup" also finds a cup of tea.
Condition hasCurrency(const QString &code) {
    return [code](const SearchableReceipt &receipt) {
        return receipt.currency == code || containsWord(receipt.words, code);
    };
}

// A number that is still being typed finds the amounts that begin like it.
Condition hasNumber(const QString &typed, const QStringList &readings) {
    return [typed, readings](const SearchableReceipt &receipt) {
        const auto begins = [&receipt](const QString &reading) {
            return receipt.amountText.startsWith(reading);
        };
        return std::ranges::any_of(readings, begins) || receipt.words.contains(typed);
    };
}

Condition isInMonth(int month, std::optional<int> year) {
    return [month, year](const SearchableReceipt &receipt) {
        return receipt.month == month && receipt.year == year.value_or(receipt.year);
    };
}

// The name may also be a word: "may", "mars".
Condition isInMonthOrHasText(int month, const QString &name) {
    return [month, hasName = hasText(name)](const SearchableReceipt &receipt) {
        return receipt.month == month || hasName(receipt);
    };
}

template <typename Compare>
Condition amountIs(Compare compare, double limit) {
    return [compare, limit](const SearchableReceipt &receipt) {
        return receipt.amount && compare(*receipt.amount, limit);
    };
}

Condition comparison(const QString &sign, double limit) {
    if (sign == u">") {
        return amountIs(std::greater<>(), limit);
    }
    if (sign == u">=") {
        return amountIs(std::greater_equal<>(), limit);
    }
    if (sign == u"<") {
        return amountIs(std::less<>(), limit);
    }
    if (sign == u"<=") {
        return amountIs(std::less_equal<>(), limit);
    }
    return amountIs(std::equal_to<>(), limit);
}

QString comparisonSignOf(const QString &text) {
    for (const QString &sign : {u">="_s, u"<="_s, u">"_s, u"<"_s, u"="_s}) {
        if (text.startsWith(sign)) {
            return sign;
        }
    }
    return {};
}

// Turns one part after the other into a condition.
class Parser {
public:
    Parser(const QString &typed, const QLocale &language)
        : tokens_(tokensOf(typed))
        , months_(monthsIn(language)) {
        months_.insert(monthsIn(QLocale::c()));
    }

    std::vector<Condition> conditions() {
        std::vector<Condition> all;
        while (next_ < tokens_.size()) {
            all.push_back(nextCondition());
        }
        return all;
    }

private:
    Condition nextCondition() {
        if (tokens_[next_].isQuoted) {
            return hasText(take().text);
        }
        for (const auto &read : {&Parser::keyword, &Parser::comparedAmount, &Parser::month, &Parser::currency,
                                 &Parser::number}) {
            if (auto condition = (this->*read)()) {
                return *std::move(condition);
            }
        }
        return hasText(take().text);
    }

    std::optional<Condition> keyword() {
        for (const Keyword &keyword : keywords) {
            for (const QString &words : {QString::fromUtf8(keyword.words),
                                         QCoreApplication::translate("ReceiptQuery", keyword.words)}) {
                const QStringList expected = splitOnWhiteSpace(searchText(words));
                if (isNext(expected)) {
                    next_ += expected.size();
                    return keyword.holds;
                }
            }
        }
        return std::nullopt;
    }

    // ">100" or "> 100".
    std::optional<Condition> comparedAmount() {
        const QString text = tokens_[next_].text;
        const QString sign = comparisonSignOf(text);
        if (sign.isEmpty()) {
            return std::nullopt;
        }
        const bool isApart = text == sign && next_ + 1 < tokens_.size();
        const QStringList readings =
            readingsOfNumber(isApart ? tokens_[next_ + 1].text : text.sliced(sign.size()));
        if (readings.isEmpty()) {
            return std::nullopt;
        }
        next_ += isApart ? 2 : 1;
        return comparison(sign, readings.first().toDouble());
    }

    // "march", "march 2024" or "2024 march".
    std::optional<Condition> month() {
        const auto month = monthAt(next_);
        if (month && next_ + 1 < tokens_.size()) {
            if (const auto year = yearIn(tokens_[next_ + 1])) {
                next_ += 2;
                return isInMonth(*month, year);
            }
        }
        if (month) {
            return isInMonthOrHasText(*month, take().text);
        }
        const auto year = yearIn(tokens_[next_]);
        const auto monthBehind = monthAt(next_ + 1);
        if (!year || !monthBehind) {
            return std::nullopt;
        }
        next_ += 2;
        return isInMonth(*monthBehind, year);
    }

    std::optional<Condition> currency() {
        const QString code = tokens_[next_].text;
        constexpr qsizetype lettersOfACode = 3;
        if (code.size() != lettersOfACode || !isIsoCurrency(code.toUpper())) {
            return std::nullopt;
        }
        return hasCurrency(take().text);
    }

    std::optional<Condition> number() {
        const QStringList readings = readingsOfNumber(tokens_[next_].text);
        if (readings.isEmpty()) {
            return std::nullopt;
        }
        return hasNumber(take().text, readings);
    }

    std::optional<int> monthAt(qsizetype place) const {
        if (place >= tokens_.size() || tokens_[place].isQuoted) {
            return std::nullopt;
        }
        QString name = tokens_[place].text;
        name.remove(u'.');
        const int month = months_.value(name);
        return month == 0 ? std::nullopt : std::optional(month);
    }

    bool isNext(const QStringList &expected) const {
        if (expected.isEmpty() || next_ + expected.size() > tokens_.size()) {
            return false;
        }
        const auto isExpected = [](const Token &token, const QString &word) {
            return !token.isQuoted && token.text == word;
        };
        return std::equal(tokens_.cbegin() + next_, tokens_.cbegin() + next_ + expected.size(),
                          expected.cbegin(), expected.cend(), isExpected);
    }

    const Token &take() { return tokens_[next_++]; }

    const QList<Token> tokens_;
    QHash<QString, int> months_;
    qsizetype next_ = 0;
};

} // namespace

ReceiptQuery::ReceiptQuery(const QString &typed, const QLocale &language)
    : conditions_(Parser(typed, language).conditions()) {}

bool ReceiptQuery::matches(const SearchableReceipt &receipt) const {
    return std::ranges::all_of(conditions_, [&receipt](const Condition &holds) { return holds(receipt); });
}

} // namespace fennick
