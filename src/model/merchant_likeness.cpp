#include "model/merchant_likeness.h"

#include "text/search_text.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace fennick {

namespace {

constexpr qsizetype fewestLettersToBeAlike = 5;
constexpr qsizetype lettersForEachFault = 6;
constexpr qsizetype longestKey = 200; // comparing two takes a time that grows with its square

// How many letters must be replaced, added or left out to turn `left` into `right`.
qsizetype faultsBetween(const QString &left, const QString &right) {
    std::vector<qsizetype> row(static_cast<size_t>(right.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < left.size(); ++i) {
        qsizetype diagonal = std::exchange(row[0], i + 1);
        for (qsizetype j = 0; j < right.size(); ++j) {
            const auto next = static_cast<size_t>(j) + 1;
            const qsizetype replaced = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[next];
            row[next] = std::min({replaced, row[next] + 1, row[next - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

QString merchantKey(const QString &name) {
    QString key = searchText(name);
    key.removeIf([](QChar character) { return !character.isLetterOrNumber(); });
    return key.left(longestKey);
}

bool isSameMerchant(const QString &left, const QString &right) {
    if (left == right) {
        return !left.isEmpty();
    }
    const qsizetype shorter = std::min(left.size(), right.size());
    if (shorter < fewestLettersToBeAlike) {
        return false;
    }
    if (left.startsWith(right) || right.startsWith(left)) {
        return true;
    }
    const qsizetype mostFaults = std::max<qsizetype>(1, shorter / lettersForEachFault);
    return std::max(left.size(), right.size()) - shorter <= mostFaults &&
           faultsBetween(left, right) <= mostFaults;
}

} // namespace fennick
