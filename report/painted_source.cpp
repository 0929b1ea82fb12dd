#include "report/painted_source.h"

#include "report/foreign_objects.h"
#include "report/pdf_output.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <memory>
#include <vector>

namespace fennick {

struct PaintedSource::Document {
    Document(const QByteArray &pdf, PdfOutput *output);

    QPDFPageObjectHelper &page(int index) { return pages.at(static_cast<std::size_t>(index)); }

    QByteArray bytes;
    QPDF file;
    std::vector<QPDFPageObjectHelper> pages;
    ForeignObjects objects;
};

PaintedSource::Document::Document(const QByteArray &pdf, PdfOutput *output)
    : bytes(pdf)
    , objects(output) {
    file.processMemoryFile("pages", bytes.constData(), static_cast<std::size_t>(bytes.size()));
    pages = QPDFPageDocumentHelper(file).getAllPages();
}

PaintedSource::PaintedSource(const QByteArray &pdf, PdfOutput *output)
    : document_(std::make_unique<Document>(pdf, output))
    , output_(output) {}

PaintedSource::~PaintedSource() = default;

int PaintedSource::pageCount() const {
    return static_cast<int>(document_->pages.size());
}

void PaintedSource::finish() {
    document_->objects.finish();
}

QByteArray PaintedSource::contents(int page) {
    return document_->objects.copied(document_->page(page).getObjectHandle().getKey("/Contents"));
}

std::map<std::string, QByteArray> PaintedSource::resources(int page) {
    return document_->objects.copiedEntries(document_->page(page).getAttribute("/Resources", false));
}

int PaintedSource::writeForm(int page, QSizeF size) {
    QByteArray entries = "/Type/XObject/Subtype/Form/BBox[0 0 " + pdfNumber(size.width()) + ' ' +
                         pdfNumber(size.height()) + "]/Resources<<";
    for (const auto &[key, value] : resources(page)) {
        entries += QByteArray::fromStdString(key) + ' ' + value;
    }
    entries += ">>";
    QPDFObjectHandle contents = document_->page(page).getObjectHandle().getKey("/Contents");
    if (contents.getDict().hasKey("/Filter")) {
        entries += "/Filter " + document_->objects.copied(contents.getDict().getKey("/Filter"));
    }
    const std::shared_ptr<Buffer> drawing = contents.getRawStreamData();
    return output_->addStream(
        entries, QByteArrayView(drawing->getBuffer(), static_cast<qsizetype>(drawing->getSize())));
}

} // namespace fennick
