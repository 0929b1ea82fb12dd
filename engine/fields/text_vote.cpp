#include "engine/fields/text_vote.h"

#include <QMap>

#include <algorithm>

namespace fennick::engine {

namespace {

// What the votes say for one character of the base: a character, nothing, or several (what follows it).
using Ballot = QMap<QString, double>;

// The least costly way to turn the first characters of one text into those of another.
class Alignment {
public:
    Alignment(const QString &from, const QString &to)
        : from_(from)
        , to_(to)
        , costs_((from.size() + 1) * (to.size() + 1)) {
        for (qsizetype row = 0; row <= from.size(); ++row) {
            for (qsizetype column = 0; column <= to.size(); ++column) {
                cost(row, column) = leastCost(row, column);
            }
        }
    }

    // For each character of `from` what stands in its place in `to`; and after each, and before the first,
    // what `to` has in addition.
    void cast(QList<Ballot> &replacements, QList<Ballot> &additions, double weight) const {
        qsizetype row = from_.size();
        qsizetype column = to_.size();
        QString added;
        while (row > 0 || column > 0) {
            if (row > 0 && column > 0 &&
                cost(row, column) == cost(row - 1, column - 1) + difference(row, column)) {
                additions[row][added] += weight;
                added.clear();
                replacements[row - 1][to_.mid(column - 1, 1)] += weight;
                --row;
                --column;
            } else if (row > 0 && cost(row, column) == cost(row - 1, column) + 1) {
                additions[row][added] += weight;
                added.clear();
                replacements[row - 1][QString()] += weight;
                --row;
            } else {
                added.prepend(to_[column - 1]);
                --column;
            }
        }
        additions[0][added] += weight;
    }

private:
    int &cost(qsizetype row, qsizetype column) { return costs_[row * (to_.size() + 1) + column]; }
    int cost(qsizetype row, qsizetype column) const { return costs_[row * (to_.size() + 1) + column]; }
    int difference(qsizetype row, qsizetype column) const {
        return from_[row - 1].toLower() == to_[column - 1].toLower() ? 0 : 1;
    }
    int leastCost(qsizetype row, qsizetype column) const {
        if (row == 0 || column == 0) {
            return static_cast<int>(row + column);
        }
        return std::min({cost(row - 1, column) + 1, cost(row, column - 1) + 1,
                         cost(row - 1, column - 1) + difference(row, column)});
    }

    QString from_;
    QString to_;
    QList<int> costs_;
};

// The choice with the most votes; `own` when none has more.
QString winner(const Ballot &ballot, const QString &own) {
    QString best = own;
    for (auto choice = ballot.cbegin(); choice != ballot.cend(); ++choice) {
        if (*choice > ballot.value(best)) {
            best = choice.key();
        }
    }
    return best;
}

} // namespace

QString votedText(const QString &base, const QList<TextVote> &votes) {
    QList<Ballot> replacements(base.size());
    QList<Ballot> additions(base.size() + 1);
    for (const TextVote &vote : votes) {
        Alignment(base, vote.text).cast(replacements, additions, vote.weight);
    }
    QString text = winner(additions[0], QString());
    for (qsizetype index = 0; index < base.size(); ++index) {
        text += winner(replacements[index], base.mid(index, 1)) + winner(additions[index + 1], QString());
    }
    return text.simplified();
}

} // namespace fennick::engine
