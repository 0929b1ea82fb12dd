#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace fennick {

// One page for each list of paragraphs, the first paragraph in bold.
[[nodiscard]] QByteArray drawnNotices(const QList<QStringList> &notices);

} // namespace fennick
