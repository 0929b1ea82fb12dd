#include "sheet_fitting.h"

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr double smallestScale = 0.65;

QStringList wrapped(const QString &text, qsizetype columns) {
    QStringList lines;
    for (const QString &word : text.split(u' ')) {
        if (!lines.isEmpty() && lines.last().size() + 1 + word.size() <= columns) {
            lines.last() += u' ' + word;
        } else {
            lines.append(word);
        }
    }
    return lines;
}

qsizetype lettersIn(const SheetRow &row) {
    qsizetype letters = row.cells.size() - 1;
    for (const QString &cell : row.cells) {
        letters += cell.size();
    }
    return letters;
}

// A name in large letters is set smaller rather than broken.
void shrink(SheetRow &row, int columns) {
    const double fitting =
        static_cast<double>(columns) / static_cast<double>(std::max<qsizetype>(1, lettersIn(row)));
    if (row.scale > 1) {
        row.scale = std::clamp(fitting, 1.0, row.scale);
    }
}

void addLines(const SheetRow &row, int columns, QList<SheetRow> &rows) {
    for (const QString &line : wrapped(row.cells.first(), columns)) {
        SheetRow part = row;
        part.cells = {line};
        rows.append(part);
    }
}

// A label and an amount.
void addPair(SheetRow row, int columns, QList<SheetRow> &rows) {
    if (lettersIn(row) <= columns) {
        rows.append(row);
        return;
    }
    if (row.isCut) {
        row.cells.first().truncate(std::max<qsizetype>(4, columns - row.cells.last().size() - 1));
        rows.append(row);
        return;
    }
    SheetRow label = row;
    label.cells = {row.cells.first()};
    addLines(label, columns, rows);
    row.cells.first().clear();
    rows.append(row);
}

void addTableRow(SheetRow row, int columns, QList<SheetRow> &rows) {
    if (!row.ends.isEmpty()) {
        const auto room = static_cast<qsizetype>(row.ends.first() * columns) - row.cells[1].size() - 1;
        row.cells.first().truncate(std::max<qsizetype>(4, room));
    } else {
        const double fitting = static_cast<double>(columns) / static_cast<double>(lettersIn(row) + 4);
        row.scale = std::clamp(fitting, smallestScale, 1.0);
    }
    rows.append(row);
}

} // namespace

ReceiptSheet fitted(const ReceiptSheet &sheet) {
    ReceiptSheet result{.rows = {}, .columns = sheet.columns};
    for (SheetRow row : sheet.rows) {
        shrink(row, sheet.columns);
        const bool isText = row.kind == RowKind::text || row.kind == RowKind::centred;
        if (!isText) {
            result.rows.append(row);
        } else if (row.cells.size() == 1) {
            addLines(row, sheet.columns, result.rows);
        } else if (row.cells.size() == 2) {
            addPair(row, sheet.columns, result.rows);
        } else {
            addTableRow(row, sheet.columns, result.rows);
        }
    }
    return result;
}

} // namespace fennick
