#include "report/pdf_receipt.h"

#include "documents/pdf_checker.h"
#include "documents/pdf_media_box.h"
#include "report/foreign_objects.h"
#include "report/receipt_page.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace fennick {

namespace {

// More than any receipt has: a small file may name one page any number of times.
constexpr std::size_t mostPages = 2000;

ReceiptPage receiptPage(QPDFPageObjectHelper &page, ForeignObjects &objects) {
    ReceiptPage result{.visible = visibleBox(page),
                       .quarterTurns = quarterTurns(page),
                       .contents = {},
                       .states = savedStates(page),
                       .resources = {},
                       .xObjects = {},
                       .entries = {}};
    for (const QPDFObjectHandle &piece : page.getPageContents()) {
        result.contents += objects.copied(piece) + ' ';
    }
    QPDFObjectHandle resources = page.getAttribute("/Resources", false);
    result.resources = objects.copiedEntries(resources);
    if (resources.isDictionary()) {
        result.xObjects = objects.copiedEntries(resources.getKey("/XObject"));
    }
    for (const char *key : {"/Group", "/UserUnit"}) {
        QPDFObjectHandle value = page.getObjectHandle().getKey(key);
        if (!value.isNull()) {
            result.entries += key + QByteArray(" ") + objects.copied(value);
        }
    }
    return result;
}

} // namespace

std::expected<QList<int>, DocumentError> writePdfReceipt(const QByteArray &file, int receipt,
                                                         PdfOutput &output, ReceiptPageWriter &writer) {
    auto checked = checkedPdf(file, {});
    if (!checked) {
        return std::unexpected(checked.error());
    }
    if (checked->pages.size() > mostPages) {
        return std::unexpected(DocumentError::pdfTooLarge);
    }
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("document", checked->bytes.constData(),
                               static_cast<std::size_t>(checked->bytes.size()));
    QPDFPageDocumentHelper helper(document);
    helper.flattenAnnotations(0, an_invisible | an_hidden);
    ForeignObjects objects(&output);
    QList<int> pages;
    for (QPDFPageObjectHelper &page : helper.getAllPages()) {
        pages.append(writer.write(receiptPage(page, objects), receipt));
    }
    objects.finish();
    return pages;
}

} // namespace fennick
