#pragma once

#include <QList>
#include <QString>

namespace fennick::engine {

// A text as one reading has it, and how much that reading is to be trusted.
struct TextVote {
    QString text;
    double weight = 1;
};

// `base` with each of its characters put to the vote of all `votes`, which are readings of the same print: a
// letter that one look at it misread is right in most others. Characters that most have and `base` lacks
// are added, those that most lack are taken out; what is alike but for case counts as agreeing. Ties go to
// `base`, which should be among the votes.
QString votedText(const QString &base, const QList<TextVote> &votes);

} // namespace fennick::engine
