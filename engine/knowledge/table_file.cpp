#include "engine/knowledge/table_file.h"

#include <QFile>

namespace fennick::engine {

QList<QStringList> tableRows(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s is missing", qPrintable(path));
    }
    QList<QStringList> rows;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (!line.startsWith(u'#')) {
            rows.append(line.split(u'\t'));
        }
    }
    return rows;
}

} // namespace fennick::engine
