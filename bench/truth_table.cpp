#include "truth_table.h"

#include <QFile>
#include <QStringList>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QString unquoted(const QString &cell) {
    if (cell.size() < 2 || !cell.startsWith(u'"') || !cell.endsWith(u'"')) {
        return cell;
    }
    return cell.sliced(1, cell.size() - 2).replace(u"\"\""_s, u"\""_s);
}

} // namespace

std::expected<QList<Truth>, QString> truthTable(const QString &folder) {
    QFile file(folder + u"/truth.csv"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::unexpected(u"cannot open %1"_s.arg(file.fileName()));
    }
    QList<Truth> rows;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines.mid(1)) {
        Truth row{.file = line.section(u',', 0, 0),
                  .date = QDate::fromString(line.section(u',', 1, 1), Qt::ISODate),
                  .merchant = unquoted(line.section(u',', 3).trimmed())};
        bool isNumber = false;
        row.total = line.section(u',', 2, 2).toDouble(&isNumber);
        if (!row.date.isValid() || !isNumber) {
            return std::unexpected(u"not a row of file,date,total,merchant: %1"_s.arg(line));
        }
        rows.append(row);
    }
    return rows;
}

} // namespace fennick
