#pragma once

#include "reporting/report_description.h"
#include "support/temporary_home.h"

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <memory>
#include <vector>

namespace fennick::test {

// A description of a report of these files, one receipt each: "No. 1 · Shop 1" and so on.
ReportDescription descriptionOf(const QStringList &paths);

// A report as it was written, and the same read back.
class MadeReport {
public:
    explicit MadeReport(const ReportDescription &description);

    const QByteArray &bytes() const { return bytes_; }
    bool isWritten() const { return isWritten_; }
    QPDF &document() { return *document_; }
    std::vector<QPDFPageObjectHelper> pages();

    // The first page of the receipt with this number, from 0, which its bookmark leads to.
    int firstPageOf(int receipt);

    // As a viewer shows it, at a pixel a point.
    QImage shown(int page) const;
    QString textOf(int page) const;

    // What `qpdf --check` prints; nothing if all is well.
    QByteArray complaints() const;

private:
    bool isWritten_ = false;
    QByteArray bytes_;
    std::unique_ptr<QPDF> document_;
};

// The objects that a destination's page is.
int pageIndexOf(MadeReport &report, QPDFObjectHandle destination);

} // namespace fennick::test
