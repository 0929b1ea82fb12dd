#pragma once

#include "engine/knowledge/word_table.h"
#include "engine/recognition/text_line.h"

#include <QList>
#include <QString>
#include <QTime>

#include <optional>

namespace fennick::engine {

// The kind of purchase: one of lunch, dinner, breakfast, coffee, hotel, transport, fuel, groceries, shopping,
// entertainment, misc. The words of category_words.txt vote, each word once, those of `merchant` threefold; a
// meal is classified by `time` unless the receipt names it. `brandCategories`, what the seller's brand stands
// for, count more than the words of most receipts. misc when nothing is known.
[[nodiscard]] QString readCategory(const QList<TextLine> &lines, const std::optional<QString> &merchant,
                                   std::optional<QTime> time, const Languages &languages,
                                   const QStringList &brandCategories = {});

} // namespace fennick::engine
