#include "report/receipt_page.h"

#include "report/pdf_output.h"

#include <utility>

namespace fennick {

namespace {

QByteArray box(const QRectF &place) {
    return '[' + pdfNumber(place.left()) + ' ' + pdfNumber(place.top()) + ' ' + pdfNumber(place.right()) +
           ' ' + pdfNumber(place.bottom()) + ']';
}

QByteArray dictionary(const std::map<std::string, QByteArray> &entries) {
    QByteArray text = QByteArrayLiteral("<<");
    for (const auto &[key, value] : entries) {
        text += QByteArray::fromStdString(key) + ' ' + value;
    }
    return text + ">>";
}

// A name that the page does not use itself.
std::string freeName(const std::map<std::string, QByteArray> &used) {
    std::string name = "/Margin";
    while (used.contains(name)) {
        name += 'x';
    }
    return name;
}

} // namespace

ReceiptPageWriter::ReceiptPageWriter(PdfOutput *output, int pageTree, const QStringList &lines,
                                     QList<Row> rows)
    : ReceiptPageWriter(output, pageTree, lines, std::move(rows), drawnStrips(lines)) {}

ReceiptPageWriter::ReceiptPageWriter(PdfOutput *output, int pageTree, QStringList lines, QList<Row> rows,
                                     MarginStrips strips)
    : output_(output)
    , pageTree_(pageTree)
    , lines_(std::move(lines))
    , rows_(std::move(rows))
    , lineWidths_(std::move(strips.widths))
    , strips_(strips.pdf, output)
    , forms_(static_cast<std::size_t>(lines_.size())) {}

int ReceiptPageWriter::write(const ReceiptPage &page, int receipt) {
    const int number = output_->reserve();
    write(number, page, receipt);
    return number;
}

// The page's own instructions stand between two pieces: whatever they do to the graphics state is undone
// before the strip is drawn, and what they may show of the page beyond its old edge is covered.
void ReceiptPageWriter::write(int number, const ReceiptPage &page, int receipt) {
    const MarginPlace margin = placedMargin(page.visible, page.quarterTurns, lineWidths_.at(receipt));
    auto xObjects = page.xObjects;
    const std::string name = freeName(xObjects);
    xObjects.emplace(name, pdfReference(formOf(receipt)));
    auto resources = page.resources;
    resources["/XObject"] = dictionary(xObjects);

    const int before = output_->addStream({}, QByteArrayLiteral("q ").repeated(1 + page.states.missing));
    const int after = output_->addStream(
        {}, '\n' + QByteArrayLiteral("Q ").repeated(1 + page.states.left) + "q " + margin.transformation +
                "cm 1 1 1 rg 0 0 " + pdfNumber(margin.ownSize.width()) + ' ' +
                pdfNumber(margin.ownSize.height()) + " re f " + QByteArray::fromStdString(name) + " Do Q");
    output_->write(number, "<</Type/Page/Parent " + pdfReference(pageTree_) + "/MediaBox" +
                               box(margin.pageBox) + "/CropBox" + box(margin.pageBox) + "/Rotate " +
                               QByteArray::number(page.quarterTurns * 90) + page.entries + "/Resources" +
                               dictionary(resources) + "/Contents[" + pdfReference(before) + ' ' +
                               page.contents + ' ' + pdfReference(after) + "]/Annots[" +
                               backLink(margin.strip, receipt) + "]>>");
}

int ReceiptPageWriter::formOf(int receipt) {
    int &form = forms_.at(static_cast<std::size_t>(receipt));
    if (form == 0) {
        form = strips_.writeForm(receipt, stripSize);
    }
    return form;
}

QByteArray ReceiptPageWriter::backLink(const QRectF &place, int receipt) const {
    const Row &row = rows_.at(receipt);
    return "<</Type/Annot/Subtype/Link/F 4/Border[0 0 0]/Rect" + box(place) + "/Contents" +
           pdfText(lines_.at(receipt)) + "/Dest[" + pdfReference(row.tablePage) + "/XYZ null " +
           pdfNumber(row.top) + " null]>>";
}

} // namespace fennick
