#include "report/report_writer.h"

#include "documents/document_error.h"
#include "kinds/document_kind.h"
#include "platform/regular_file.h"
#include "report/notice_pages.h"
#include "report/pdf_receipt.h"
#include "report/picture_receipt.h"
#include "text/display_text.h"
#include "text/path_text.h"

#include <QDateTime>

#include <exception>
#include <new>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

QStringList linesOf(const ReportDescription &description) {
    QStringList lines;
    for (const ReportRow &row : description.rows) {
        lines.append(row.line);
    }
    return lines;
}

QList<int> reserved(PdfOutput &output, int count) {
    QList<int> numbers;
    for (int index = 0; index < count; ++index) {
        numbers.append(output.reserve());
    }
    return numbers;
}

QString keyOf(DocumentError error) {
    switch (error) {
    case DocumentError::lockedPdf:
        return u"locked"_s;
    case DocumentError::emptyPdf:
        return u"empty"_s;
    case DocumentError::imageTooLarge:
    case DocumentError::pdfTooLarge:
        return u"too large"_s;
    case DocumentError::unreadableImage:
    case DocumentError::unreadablePdf:
        break;
    }
    return u"unreadable"_s;
}

QString keyOf(FileProblem::Kind kind) {
    switch (kind) {
    case FileProblem::Kind::link:
        return u"link"_s;
    case FileProblem::Kind::notRegular:
        return u"not regular"_s;
    case FileProblem::Kind::replaced:
        return u"replaced"_s;
    case FileProblem::Kind::tooLarge:
        return u"large file"_s;
    case FileProblem::Kind::noAnswer:
        return u"no answer"_s;
    case FileProblem::Kind::system:
        break;
    }
    return {};
}

std::expected<QByteArray, FileProblem> contentOf(const QString &path, const QString &folder) {
    FileToRead wanted(path);
    wanted.folder = folder;
    const OpenedFile file = openRegularFile(wanted);
    if (!file) {
        return std::unexpected(file.error());
    }
    return readWhole(**file);
}

QByteArray pdfDate(const QDateTime &moment) {
    return "(D:" + moment.toUTC().toString(u"yyyyMMddHHmmss"_s).toLatin1() + "Z)";
}

} // namespace

ReportWriter::ReportWriter(const ReportDescription *description, QIODevice *device)
    : description_(description)
    , output_(device)
    , table_(drawnTable(*description))
    , tableSource_(table_.pdf, &output_)
    , pageTree_(output_.reserve())
    , tablePages_(reserved(output_, tableSource_.pageCount()))
    , receiptPages_(&output_, pageTree_, linesOf(*description), rowPlaces()) {}

QList<ReceiptPageWriter::Row> ReportWriter::rowPlaces() const {
    QList<ReceiptPageWriter::Row> rows;
    for (const TablePages::Place &place : table_.rows) {
        rows.append({.tablePage = tablePages_.at(place.page), .top = place.row.bottom()});
    }
    return rows;
}

bool ReportWriter::write(const std::function<void(const ReportProgress &)> &onProgress) {
    for (int receipt = 0; receipt < description_->rows.size() && !output_.hasFailed(); ++receipt) {
        onProgress({.kind = ReportProgress::Kind::receipt, .receipt = receipt + 1});
        writeReceipt(receipt);
    }
    if (output_.hasFailed()) {
        return false;
    }
    onProgress({.kind = ReportProgress::Kind::finishing});
    writeFailures();
    receiptPages_.finish();
    writeTable();
    const int bookmarks = writeBookmarks();
    const int ledger = writeLedger();
    writePageTree();
    const int catalog = writeCatalog(bookmarks, ledger);
    return output_.finish(catalog, writeInformation());
}

void ReportWriter::writeReceipt(int receipt) {
    const auto pages = openedReceipt(receipt);
    if (pages) {
        firstPages_.append(pages->first());
        pages_.append(*pages);
        return;
    }
    const int page = output_.reserve();
    failures_.append({.receipt = receipt, .page = page, .reason = pages.error()});
    firstPages_.append(page);
    pages_.append(page);
}

// The libraries report damage by exceptions, and so does memory that is not there.
std::expected<QList<int>, QString> ReportWriter::openedReceipt(int receipt) {
    const auto content = contentOf(description_->rows.at(receipt).filePath, description_->folder);
    if (!content) {
        const FileProblem &problem = content.error();
        return std::unexpected(description_->problems.value(keyOf(problem.kind), problem.systemText));
    }
    DocumentError error = DocumentError::unreadablePdf;
    try {
        const bool isPdf = kindOfContent(*content) == DocumentKind::pdf;
        const auto pages = isPdf ? writePdfReceipt(*content, receipt, output_, receiptPages_)
                                 : writePictureReceipt(*content, receipt, output_, receiptPages_);
        if (pages && !pages->isEmpty()) {
            return *pages;
        }
        error = pages ? DocumentError::emptyPdf : pages.error();
    } catch (const std::bad_alloc &) {
        error = DocumentError::pdfTooLarge;
    } catch (const std::exception &) {
        error = DocumentError::unreadablePdf;
    }
    return std::unexpected(description_->problems.value(keyOf(error)));
}

void ReportWriter::writeFailures() {
    if (failures_.isEmpty()) {
        return;
    }
    QList<QStringList> notices;
    for (const Failure &failure : failures_) {
        const QString name = lastPathComponent(description_->rows.at(failure.receipt).filePath);
        notices.append({description_->cannotOpen, displayText(name), failure.reason});
    }
    PaintedSource source(drawnNotices(notices), &output_);
    for (int index = 0; index < failures_.size(); ++index) {
        auto resources = source.resources(index);
        resources.erase("/XObject"); // text alone
        const ReceiptPage page{.visible = QRectF(QPointF(), reportPageSize),
                               .quarterTurns = 0,
                               .contents = source.contents(index),
                               .states = {},
                               .resources = std::move(resources),
                               .xObjects = {},
                               .entries = {}};
        receiptPages_.write(failures_.at(index).page, page, failures_.at(index).receipt);
    }
    source.finish();
}

void ReportWriter::writeTable() {
    for (int page = 0; page < tablePages_.size(); ++page) {
        QByteArray resources;
        for (const auto &[key, value] : tableSource_.resources(page)) {
            resources += QByteArray::fromStdString(key) + ' ' + value;
        }
        output_.write(tablePages_.at(page), "<</Type/Page/Parent " + pdfReference(pageTree_) +
                                                "/MediaBox[0 0 " + pdfNumber(reportPageSize.width()) + ' ' +
                                                pdfNumber(reportPageSize.height()) + "]/Resources<<" +
                                                resources + ">>/Contents " + tableSource_.contents(page) +
                                                "/Annots[" + rowLinks(page) + "]>>");
    }
    tableSource_.finish();
}

QByteArray ReportWriter::rowLinks(int tablePage) const {
    QByteArray links;
    for (int receipt = 0; receipt < table_.rows.size(); ++receipt) {
        const TablePages::Place &place = table_.rows.at(receipt);
        if (place.page == tablePage) {
            links += "<</Type/Annot/Subtype/Link/F 4/Border[0 0 0]/Rect[" + pdfNumber(place.row.left()) +
                     ' ' + pdfNumber(place.row.top()) + ' ' + pdfNumber(place.row.right()) + ' ' +
                     pdfNumber(place.row.bottom()) + "]/Contents" +
                     pdfText(description_->rows.at(receipt).line) + "/Dest[" +
                     pdfReference(firstPages_.at(receipt)) + "/Fit]>>";
        }
    }
    return links;
}

void ReportWriter::writePageTree() {
    QByteArray kids;
    const QList<int> all = tablePages_ + pages_;
    for (const int page : all) {
        kids += pdfReference(page) + ' ';
    }
    output_.write(pageTree_,
                  "<</Type/Pages/Count " + QByteArray::number(all.size()) + "/Kids[" + kids + "]>>");
}

int ReportWriter::writeBookmarks() {
    const int root = output_.reserve();
    const QList<int> numbers = reserved(output_, static_cast<int>(firstPages_.size()) + 1);
    for (qsizetype index = 0; index < numbers.size(); ++index) {
        const bool isTable = index == 0;
        const int page = isTable ? tablePages_.first() : firstPages_.at(index - 1);
        QByteArray entries = "/Title" +
                             pdfText(isTable ? description_->title : description_->rows.at(index - 1).line) +
                             "/Parent " + pdfReference(root) + "/Dest[" + pdfReference(page) + "/Fit]";
        if (!isTable) {
            entries += "/Prev " + pdfReference(numbers.at(index - 1));
        }
        if (index + 1 < numbers.size()) {
            entries += "/Next " + pdfReference(numbers.at(index + 1));
        }
        output_.write(numbers.at(index), "<<" + entries + ">>");
    }
    output_.write(root, "<</Type/Outlines/Count " + QByteArray::number(numbers.size()) + "/First " +
                            pdfReference(numbers.first()) + "/Last " + pdfReference(numbers.last()) + ">>");
    return root;
}

int ReportWriter::writeLedger() {
    const QByteArray csv = description_->csv.toUtf8();
    constexpr qsizetype lengthBefore = 4; // which Qt puts in front of what zlib packs
    const QByteArray packed = qCompress(csv).sliced(lengthBefore);
    const int content =
        output_.addStream("/Type/EmbeddedFile/Subtype/text#2Fcsv/Filter/FlateDecode/Params<</Size " +
                              QByteArray::number(csv.size()) + ">>",
                          packed);
    const QByteArray name = pdfText(description_->csvName);
    return output_.add("<</Type/Filespec/F" + name + "/UF" + name + "/AFRelationship/Data/EF<</F " +
                       pdfReference(content) + "/UF " + pdfReference(content) + ">>>>");
}

int ReportWriter::writeCatalog(int bookmarks, int ledger) {
    return output_.add("<</Type/Catalog/Pages " + pdfReference(pageTree_) + "/Lang" +
                       pdfText(description_->language) + "/Outlines " + pdfReference(bookmarks) +
                       "/PageMode/UseOutlines/ViewerPreferences<</DisplayDocTitle true>>/AF[" +
                       pdfReference(ledger) + "]/Names<</EmbeddedFiles<</Names[" +
                       pdfText(description_->csvName) + ' ' + pdfReference(ledger) + "]>>>>>>");
}

int ReportWriter::writeInformation() {
    const QByteArray now = pdfDate(QDateTime::currentDateTimeUtc());
    return output_.add("<</Title" + pdfText(description_->title) + "/Creator(Fennick)/CreationDate" + now +
                       "/ModDate" + now + ">>");
}

} // namespace fennick
