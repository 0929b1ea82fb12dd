#include "model/merchant_likeness.h"

#include "text/edit_distance.h"
#include "text/search_text.h"

#include <algorithm>

namespace fennick {

namespace {

constexpr qsizetype fewestLettersToBeAlike = 5;
constexpr qsizetype lettersForEachFault = 6;
constexpr qsizetype longestKey = 200; // comparing two takes a time that grows with its square

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
           editDistance(left, right) <= mostFaults;
}

} // namespace fennick
