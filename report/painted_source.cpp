#include "report/painted_source.h"

#include "report/pdf_output.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

#include <memory>
#include <utility>

namespace fennick {

PaintedSource::PaintedSource(QByteArray pdf, PdfOutput *output)
    : bytes_(std::move(pdf))
    , objects_(output)
    , output_(output) {
    document_.processMemoryFile("pages", bytes_.constData(), static_cast<std::size_t>(bytes_.size()));
    pages_ = QPDFPageDocumentHelper(document_).getAllPages();
}

QByteArray PaintedSource::contents(int page) {
    return objects_.copied(pages_.at(static_cast<std::size_t>(page)).getObjectHandle().getKey("/Contents"));
}

std::map<std::string, QByteArray> PaintedSource::resources(int page) {
    return objects_.copiedEntries(
        pages_.at(static_cast<std::size_t>(page)).getAttribute("/Resources", false));
}

int PaintedSource::writeForm(int page, QSizeF size) {
    QByteArray entries = "/Type/XObject/Subtype/Form/BBox[0 0 " + pdfNumber(size.width()) + ' ' +
                         pdfNumber(size.height()) + "]/Resources<<";
    for (const auto &[key, value] : resources(page)) {
        entries += QByteArray::fromStdString(key) + ' ' + value;
    }
    entries += ">>";
    QPDFObjectHandle contents =
        pages_.at(static_cast<std::size_t>(page)).getObjectHandle().getKey("/Contents");
    if (contents.getDict().hasKey("/Filter")) {
        entries += "/Filter " + objects_.copied(contents.getDict().getKey("/Filter"));
    }
    const std::shared_ptr<Buffer> drawing = contents.getRawStreamData();
    return output_->addStream(
        entries, QByteArrayView(drawing->getBuffer(), static_cast<qsizetype>(drawing->getSize())));
}

} // namespace fennick
