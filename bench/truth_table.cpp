#include "truth_table.h"

#include <QFile>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QString unquoted(const QString &cell) {
    if (cell.size() < 2 || !cell.startsWith(u'"') || !cell.endsWith(u'"')) {
        return cell;
    }
    return cell.sliced(1, cell.size() - 2).replace(u"\"\""_s, u"\""_s);
}

// The last column takes the rest of the line.
QStringList cellsOf(const QString &line, qsizetype columns) {
    QStringList cells = line.split(u',');
    while (cells.size() > columns) {
        cells[columns - 1] += u',' + cells.takeAt(columns);
    }
    return cells;
}

} // namespace

std::expected<QList<Truth>, QString> truthTable(const QString &folder) {
    QFile file(folder + u"/truth.csv"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::unexpected(u"cannot open %1"_s.arg(file.fileName()));
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QStringList head = lines.value(0).trimmed().split(u',');
    QList<Truth> rows;
    for (const QString &line : lines.mid(1)) {
        const QStringList cells = cellsOf(line.trimmed(), head.size());
        const auto cell = [&](const QString &column) {
            return unquoted(cells.value(head.indexOf(column)));
        };
        const QString part = cell(u"merchant"_s);
        Truth row{.file = cell(u"file"_s),
                  .date = QDate::fromString(cell(u"date"_s), Qt::ISODate),
                  .total = {},
                  .currency = cell(u"currency"_s),
                  .merchant = part.isEmpty() ? cell(u"company"_s) : part,
                  .isPartOfMerchant = !part.isEmpty(),
                  .categories = cell(u"categories"_s).split(u' ', Qt::SkipEmptyParts)};
        bool isNumber = false;
        const double total = cell(u"total"_s).toDouble(&isNumber);
        if (row.file.isEmpty() || !isNumber) {
            return std::unexpected(u"no file or no total: %1"_s.arg(line));
        }
        row.total = total;
        rows.append(row);
    }
    return rows;
}

} // namespace fennick
