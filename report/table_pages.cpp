#include "report/table_pages.h"

#include "report/painted_pdf.h"
#include "report/wrapped_text.h"
#include "reporting/report_description.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace fennick {

namespace {

constexpr double unit = PaintedPdf::unitsPerPoint;
constexpr double sideMargin = 36 * unit;
constexpr double endMargin = 40 * unit;
constexpr double pageHeight = 842 * unit;
constexpr double tableWidth = 523 * unit;
constexpr double gap = 6 * unit;
constexpr double rowPadding = 3 * unit;
constexpr double totalsIndent = 12 * unit;
constexpr double totalsWidth = 300 * unit;
constexpr int mostLinesOfACell = 4;
constexpr int mostLinesOfATitle = 3;

// In points, for number, date, place, category, summary and amount; together the table's width.
constexpr std::array<double, 6> columnWidths{34, 62, 118, 68, 153, 88};

QColor faint() {
    return QColor(0x60, 0x60, 0x60);
}

// Draws from top to bottom and begins new pages.
class TablePainter {
public:
    explicit TablePainter(const ReportDescription &description)
        : description_(description)
        , pdf_(reportPageSize) {}

    TablePages painted();

private:
    using Cells = std::vector<std::unique_ptr<WrappedText>>;

    void drawHeading();
    void drawColumnNames();
    void drawRow(const ReportRow &row);
    void drawTotals();
    void drawTotalLine(const ReportTotal::Line &line, double indent, QFont::Weight weight);
    void drawText(const WrappedText &text, double x);
    void drawRule(const QColor &colour);
    bool fits(double height) const { return y_ + height <= pageHeight - endMargin; }
    void newPage();

    static Cells cellsOf(const QStringList &texts, const QFont &font);
    static double heightOf(const Cells &cells);
    void drawCells(const Cells &cells);

    const ReportDescription &description_;
    PaintedPdf pdf_;
    TablePages result_;
    int page_ = 0;
    double y_ = endMargin;
};

TablePages TablePainter::painted() {
    drawHeading();
    drawColumnNames();
    for (const ReportRow &row : description_.rows) {
        drawRow(row);
    }
    drawTotals();
    result_.pdf = pdf_.finished();
    return std::move(result_);
}

void TablePainter::newPage() {
    pdf_.newPage();
    ++page_;
    y_ = endMargin;
}

void TablePainter::drawText(const WrappedText &text, double x) {
    text.draw(pdf_.painter(), {x, y_});
    y_ += text.height();
}

void TablePainter::drawRule(const QColor &colour) {
    pdf_.painter().setPen(QPen(colour, unit / 2));
    pdf_.painter().drawLine(QPointF(sideMargin, y_), QPointF(sideMargin + tableWidth, y_));
    pdf_.painter().setPen(Qt::black);
}

void TablePainter::drawHeading() {
    constexpr double titleSize = 20;
    constexpr double subtitleSize = 11;
    drawText(
        WrappedText(description_.title, reportFont(titleSize, QFont::Bold), tableWidth, mostLinesOfATitle),
        sideMargin);
    for (const QString &subtitle : description_.subtitles) {
        drawText(
            WrappedText(subtitle, reportFont(subtitleSize, QFont::Normal), tableWidth, mostLinesOfATitle),
            sideMargin);
    }
    y_ += 2 * gap;
}

TablePainter::Cells TablePainter::cellsOf(const QStringList &texts, const QFont &font) {
    Cells cells;
    for (std::size_t column = 0; column < columnWidths.size(); ++column) {
        const bool isAmount = column + 1 == columnWidths.size();
        cells.push_back(std::make_unique<WrappedText>(texts.value(static_cast<qsizetype>(column)), font,
                                                      columnWidths.at(column) * unit - gap, mostLinesOfACell,
                                                      isAmount ? Qt::AlignRight : Qt::AlignLeft));
    }
    return cells;
}

double TablePainter::heightOf(const Cells &cells) {
    double height = 0;
    for (const auto &cell : cells) {
        height = std::max(height, cell->height());
    }
    return height;
}

void TablePainter::drawCells(const Cells &cells) {
    double x = sideMargin + gap / 2;
    for (std::size_t column = 0; column < cells.size(); ++column) {
        cells[column]->draw(pdf_.painter(), {x, y_ + rowPadding});
        x += columnWidths.at(column) * unit;
    }
    y_ += heightOf(cells) + 2 * rowPadding;
}

void TablePainter::drawColumnNames() {
    constexpr double size = 8;
    drawCells(cellsOf(description_.columns, reportFont(size, QFont::Bold)));
    drawRule(faint());
}

void TablePainter::drawRow(const ReportRow &row) {
    constexpr double size = 8.5;
    const Cells cells = cellsOf(row.cells, reportFont(size, QFont::Normal));
    if (!fits(heightOf(cells) + 2 * rowPadding)) {
        newPage();
        drawColumnNames();
    }
    const double start = y_;
    drawCells(cells);
    result_.rows.append(
        {.page = page_,
         .row = QRectF(sideMargin / unit, (pageHeight - y_) / unit, tableWidth / unit, (y_ - start) / unit)});
    drawRule(QColor(Qt::lightGray));
}

void TablePainter::drawTotals() {
    constexpr double headingSize = 12;
    constexpr double roomForTheFirstLines = 60 * unit;
    if (description_.totals.isEmpty()) {
        return;
    }
    y_ += 3 * gap;
    if (!fits(roomForTheFirstLines)) {
        newPage();
    }
    drawText(WrappedText(description_.totalsHeading, reportFont(headingSize, QFont::Bold), tableWidth, 1),
             sideMargin);
    for (const ReportTotal &total : description_.totals) {
        y_ += gap;
        drawTotalLine(total.total, 0, QFont::Bold);
        for (const ReportTotal::Line &part : total.parts) {
            drawTotalLine(part, totalsIndent, QFont::Normal);
        }
    }
}

void TablePainter::drawTotalLine(const ReportTotal::Line &line, double indent, QFont::Weight weight) {
    constexpr double size = 9.5;
    const QFont font = reportFont(size, weight);
    const WrappedText name(line.name, font, totalsWidth / 2 - indent, 1);
    const WrappedText amount(line.amount, font, totalsWidth / 2, 1, Qt::AlignRight);
    if (!fits(name.height())) {
        newPage();
    }
    amount.draw(pdf_.painter(), {sideMargin + totalsWidth / 2, y_});
    drawText(name, sideMargin + indent);
}

} // namespace

TablePages drawnTable(const ReportDescription &description) {
    return TablePainter(description).painted();
}

} // namespace fennick
