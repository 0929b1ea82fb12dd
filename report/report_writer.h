#pragma once

#include "report/pdf_output.h"
#include "report/receipt_page.h"
#include "report/table_pages.h"
#include "reporting/report_description.h"
#include "reporting/report_progress.h"

#include <QList>
#include <QString>

#include <expected>
#include <functional>

class QIODevice;

namespace fennick {

// Makes one report: the table, the receipts' own pages one file after the other, bookmarks, links and the
// attached ledger. A receipt that cannot be opened gets a page that says so. Needs a QGuiApplication.
class ReportWriter {
public:
    // Borrows both.
    ReportWriter(const ReportDescription *description, QIODevice *device);

    // Returns whether the report could be written. `onProgress` is called before each receipt is opened, and
    // when the last one is in the report.
    [[nodiscard]] bool write(const std::function<void(const ReportProgress &)> &onProgress);

private:
    struct Failure {
        int receipt;
        int page; // reserved
        QString reason;
    };

    QList<ReceiptPageWriter::Row> rowPlaces() const;
    void writeReceipt(int receipt);
    [[nodiscard]] std::expected<QList<int>, QString> openedReceipt(int receipt);
    void writeFailures();
    void writeTable();
    QByteArray rowLinks(int tablePage) const;
    void writePageTree();
    int writeBookmarks();
    int writeLedger();
    int writeCatalog(int bookmarks, int ledger);
    int writeInformation();

    const ReportDescription *description_;
    PdfOutput output_;
    TablePages table_;
    PaintedSource tableSource_;
    int pageTree_;
    QList<int> tablePages_;
    ReceiptPageWriter receiptPages_;
    QList<int> firstPages_; // of the receipts
    QList<int> pages_;      // of all receipts
    QList<Failure> failures_;
};

} // namespace fennick
