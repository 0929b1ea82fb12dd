#pragma once

#include "report/margin_strip.h"
#include "report/painted_source.h"
#include "report/saved_states.h"

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QStringList>

#include <map>
#include <string>
#include <vector>

namespace fennick {

// A page of a receipt, before it has its margin.
struct ReceiptPage {
    QRectF visible; // in its own coordinates; `top` is the smaller y
    int quarterTurns = 0;
    QByteArray contents; // references to the drawing instructions
    SavedStates states;
    std::map<std::string, QByteArray> resources;
    std::map<std::string, QByteArray> xObjects; // those of the resources
    QByteArray entries;                         // further ones of the page
};

// Puts the receipts' pages into the report, each with its line at the margin and a link back to the table.
class ReceiptPageWriter {
public:
    // `rows` are the places in the table that the links lead to.
    struct Row {
        int tablePage = 0; // its object
        double top = 0;    // the row's upper edge there
    };

    ReceiptPageWriter(PdfOutput *output, int pageTree, const QStringList &lines, QList<Row> rows);

    // Writes the page and returns its object.
    int write(const ReceiptPage &page, int receipt);
    void write(int number, const ReceiptPage &page, int receipt);

    void finish() { strips_.finish(); }

private:
    ReceiptPageWriter(PdfOutput *output, int pageTree, QStringList lines, QList<Row> rows,
                      MarginStrips strips);

    int formOf(int receipt);
    QByteArray backLink(const QRectF &place, int receipt) const;

    PdfOutput *output_;
    int pageTree_;
    QStringList lines_;
    QList<Row> rows_;
    QList<double> lineWidths_;
    PaintedSource strips_;
    std::vector<int> forms_; // 0 for one that is not written
};

} // namespace fennick
