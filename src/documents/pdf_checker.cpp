#include "documents/pdf_checker.h"

#include "documents/pdf_media_box.h"
#include "documents/pdf_page_tree.h"
#include "documents/pdf_stream_limits.h"
#include "documents/pdf_table_check.h"
#include "documents/picture_limits.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <algorithm>
#include <exception>
#include <memory>
#include <string>

namespace fennick {

namespace {

using Pages = std::vector<QPDFPageObjectHelper>;

int wholeNumber(QPDFObjectHandle dictionary, const std::string &key) {
    QPDFObjectHandle value = dictionary.getKey(key);
    return value.isInteger() ? value.getIntValueAsInt() : 1;
}

bool hasOversizedImage(QPDFPageObjectHelper &page) {
    bool oversized = false;
    page.forEachImage(true, [&](QPDFObjectHandle &image, QPDFObjectHandle &, const std::string &) {
        const QPDFObjectHandle dictionary = image.getDict();
        oversized = oversized || !pdfImageLimits.allow(wholeNumber(dictionary, "/Width"),
                                                       wholeNumber(dictionary, "/Height"));
    });
    return oversized;
}

bool namesFonts(QPDFObjectHandle resources) {
    if (!resources.isDictionary()) {
        return false;
    }
    QPDFObjectHandle fonts = resources.getKey("/Font");
    return fonts.isDictionary() && !fonts.getKeys().empty();
}

bool hasFonts(QPDFPageObjectHelper &page) {
    bool found = namesFonts(page.getAttribute("/Resources", false));
    page.forEachFormXObject(true, [&](QPDFObjectHandle &form, QPDFObjectHandle &, const std::string &) {
        found = found || namesFonts(form.getDict().getKey("/Resources"));
    });
    return found;
}

// Streams are passed on as they are: unpacking them here would only give a bomb a second chance.
QByteArray rewritten(QPDF &pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setPreserveEncryption(false);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(buffer->getBuffer()),
                      static_cast<qsizetype>(buffer->getSize()));
}

CheckedPdf prepared(QPDF &pdf, Pages &pages, const PdfUse &use) {
    CheckedPdf result;
    for (QPDFPageObjectHelper &page : pages) {
        if (use.wholeMediaBoxes) {
            cropToMediaBox(page);
        }
        result.pages.push_back({.mediaBox = uprightMediaBox(page), .hasFonts = hasFonts(page)});
    }
    result.bytes = rewritten(pdf);
    return result;
}

std::expected<CheckedPdf, DocumentError> checked(QPDF &pdf, const PdfUse &use) {
    if (!hasReasonablePageTree(pdf)) {
        return std::unexpected(DocumentError::unreadablePdf);
    }
    Pages pages = QPDFPageDocumentHelper(pdf).getAllPages();
    if (pages.empty()) {
        return std::unexpected(DocumentError::emptyPdf);
    }
    if (pages.size() > static_cast<size_t>(use.pageLimit)) {
        pages.resize(static_cast<size_t>(use.pageLimit), pages.front());
    }
    if (std::ranges::any_of(pages, hasOversizedImage)) {
        return std::unexpected(DocumentError::imageTooLarge);
    }
    if (!haveBoundedStreams(pages)) {
        return std::unexpected(DocumentError::pdfTooLarge);
    }
    return prepared(pdf, pages, use);
}

} // namespace

std::expected<CheckedPdf, DocumentError> checkedPdf(const QByteArray &bytes, const PdfUse &use) {
    if (!hasBoundedTables(bytes)) {
        return std::unexpected(DocumentError::pdfTooLarge);
    }
    // The library reports every failure by an exception.
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processMemoryFile("document", bytes.constData(), static_cast<size_t>(bytes.size()));
        return checked(pdf, use);
    } catch (const QPDFExc &failure) {
        const bool locked = failure.getErrorCode() == qpdf_e_password;
        return std::unexpected(locked ? DocumentError::lockedPdf : DocumentError::unreadablePdf);
    } catch (const std::exception &) {
        return std::unexpected(DocumentError::unreadablePdf);
    }
}

} // namespace fennick
