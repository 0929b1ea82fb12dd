#pragma once

#include <QSet>
#include <QString>

namespace fennick::engine {

// `words` (as wordsOf() gives them) with misread words put right: one that is no word of `vocabulary` becomes
// the only one there it can have been. Digits that look like letters (t0tal, c4sh) cost nothing; beyond that
// one letter may be wrong in words of at least five, two from nine on. Short words stay: too many others are
// like them.
QString repairedWords(const QString &words, const QSet<QString> &vocabulary);

} // namespace fennick::engine
