#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace fennick::engine {

// The cells of every line of a table that is part of the program (":/engine/..."), separated by tabs; lines
// that begin with # are comments. Ends the program if there is no such table.
[[nodiscard]] QList<QStringList> tableRows(const QString &path);

} // namespace fennick::engine
