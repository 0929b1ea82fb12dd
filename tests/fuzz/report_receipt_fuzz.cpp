// Any bytes that a receipt may hold, as pages of a PDF report.
#include "fuzz/conversion.h"
#include "fuzz/invariant.h"
#include "fuzz/qpdf_without_json.h"
#include "kinds/document_kind.h"
#include "report/pdf_output.h"
#include "report/pdf_receipt.h"
#include "report/picture_receipt.h"
#include "report/receipt_page.h"

#include <QBuffer>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

#include <exception>

using namespace fennick;

namespace {

// A document of the receipt's pages and nothing else.
class Pages {
public:
    explicit Pages(QIODevice *device)
        : output_(device) {}

    void write(const QByteArray &receipt) {
        const bool isPdf = kindOfContent(receipt) == DocumentKind::pdf;
        try {
            const auto pages = isPdf ? writePdfReceipt(receipt, 0, output_, writer_)
                                     : writePictureReceipt(receipt, 0, output_, writer_);
            pages_ = pages.value_or(QList<int>());
        } catch (const std::exception &) {
            pages_.clear(); // how the libraries report damage
        }
    }

    void finish() {
        QByteArray kids;
        for (const int page : pages_) {
            kids += pdfReference(page) + ' ';
        }
        writer_.finish();
        output_.write(tree_,
                      "<</Type/Pages/Count " + QByteArray::number(pages_.size()) + "/Kids[" + kids + "]>>");
        const int catalog = output_.add("<</Type/Catalog/Pages " + pdfReference(tree_) + ">>");
        fuzz::require(output_.finish(catalog, output_.add("<<>>")), "the document is written");
    }

    std::size_t count() const { return static_cast<std::size_t>(pages_.size()); }

private:
    PdfOutput output_;
    int tree_ = output_.reserve();
    ReceiptPageWriter writer_{&output_, tree_, {QString()}, {{.tablePage = tree_, .top = 0}}};
    QList<int> pages_;
};

bool actsByItself(QPDFObjectHandle object) {
    QPDFObjectHandle dictionary = object.isStream() ? object.getDict() : object;
    return dictionary.isDictionary() &&
           (dictionary.hasKey("/JS") || dictionary.hasKey("/OpenAction") || dictionary.hasKey("/AA"));
}

// Whoever opens the report reads it without a repair.
void checkDocument(const QByteArray &pdf, std::size_t pages) {
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("report", pdf.constData(), static_cast<std::size_t>(pdf.size()));
    fuzz::require(QPDFPageDocumentHelper(document).getAllPages().size() == pages, "all pages are there");
    for (QPDFObjectHandle &object : document.getAllObjects()) {
        fuzz::require(!object.isStream() || object.getRawStreamData() != nullptr, "each stream can be read");
        fuzz::require(!actsByItself(object), "nothing in it acts by itself");
    }
    fuzz::require(!document.anyWarnings(), "the document needs no repair");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz::prepareConversion();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    Pages pages(&buffer);
    pages.write(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    pages.finish();
    checkDocument(buffer.data(), pages.count());
    return 0;
}
