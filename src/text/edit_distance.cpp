#include "text/edit_distance.h"

#include <QList>

#include <algorithm>

namespace fennick {

int editDistance(QStringView left, QStringView right) {
    QList<int> above(right.size() + 1);
    for (qsizetype column = 0; column <= right.size(); ++column) {
        above[column] = static_cast<int>(column);
    }
    for (qsizetype row = 1; row <= left.size(); ++row) {
        QList<int> current(right.size() + 1, static_cast<int>(row));
        for (qsizetype column = 1; column <= right.size(); ++column) {
            const int replaced = above[column - 1] + (left[row - 1] == right[column - 1] ? 0 : 1);
            current[column] = std::min({above[column] + 1, current[column - 1] + 1, replaced});
        }
        above = current;
    }
    return above.last();
}

double similarity(QStringView left, QStringView right) {
    const qsizetype longer = std::max(left.size(), right.size());
    if (longer == 0) {
        return 1;
    }
    return 1 - static_cast<double>(editDistance(left, right)) / static_cast<double>(longer);
}

} // namespace fennick
