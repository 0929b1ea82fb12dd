#include "engine/recognition/pdf_checker.h"

#include "documents/pdf_page_tree.h"
#include "documents/picture_limits.h"
#include "engine/recognition/pdf_page_size.h"
#include "engine/recognition/pdf_table_check.h"

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
#include <vector>

namespace fennick::engine {

namespace {

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
QByteArray written(QPDF &pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setPreserveEncryption(false);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(buffer->getBuffer()),
                      static_cast<qsizetype>(buffer->getSize()));
}

std::expected<CheckedPdf, ReadError> checked(QPDF &pdf, int pageLimit) {
    if (!hasReasonablePageTree(pdf)) {
        return std::unexpected(ReadError::UnreadablePdf);
    }
    std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(pdf).getAllPages();
    if (pages.empty()) {
        return std::unexpected(ReadError::EmptyPdf);
    }
    if (pages.size() > static_cast<size_t>(pageLimit)) {
        pages.resize(static_cast<size_t>(pageLimit), pages.front());
    }
    if (std::ranges::any_of(pages, hasOversizedImage)) {
        return std::unexpected(ReadError::ImageTooLarge);
    }
    if (!haveBoundedStreams(pages)) {
        return std::unexpected(ReadError::PdfTooLarge);
    }
    CheckedPdf result{.bytes = written(pdf), .hasFonts = {}};
    for (QPDFPageObjectHelper &page : pages) {
        result.hasFonts.append(hasFonts(page));
    }
    return result;
}

} // namespace

std::expected<CheckedPdf, ReadError> checkedPdf(const QByteArray &bytes, int pageLimit) {
    if (!hasBoundedTables(bytes)) {
        return std::unexpected(ReadError::PdfTooLarge);
    }
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processMemoryFile("document", bytes.constData(), static_cast<size_t>(bytes.size()));
        return checked(pdf, pageLimit);
    } catch (const QPDFExc &failure) {
        const bool locked = failure.getErrorCode() == qpdf_e_password;
        return std::unexpected(locked ? ReadError::LockedPdf : ReadError::UnreadablePdf);
    } catch (const std::exception &) {
        return std::unexpected(ReadError::UnreadablePdf);
    }
}

} // namespace fennick::engine
