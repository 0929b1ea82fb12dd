#include "report_under_test.h"

#include "report/report_writer.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <qpdf/QPDFPageDocumentHelper.hh>

namespace fennick::test {

namespace {

QByteArray written(const ReportDescription &description, bool *isWritten) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ReportWriter writer(&description, &buffer);
    *isWritten = writer.write([](const ReportProgress &) {});
    return buffer.data();
}

} // namespace

ReportDescription descriptionOf(const QStringList &paths) {
    ReportDescription description{
        .language = u"en"_s,
        .title = u"Receipts"_s,
        .subtitles = {u"Jane Doe"_s},
        .columns = {u"No."_s, u"Date"_s, u"Place"_s, u"Category"_s, u"Summary"_s, u"Amount"_s},
        .rows = {},
        .totalsHeading = u"Totals"_s,
        .totals = {{.total = {u"USD"_s, u"$5.00"_s}, .parts = {{u"lunch"_s, u"$5.00"_s}}}},
        .folder = {},
        .csvName = u"receipts.csv"_s,
        .csv = u"Date,Place\n,東京\n"_s,
        .cannotOpen = u"This receipt could not be opened."_s,
        .problems = {{u"locked"_s, u"It is locked."_s},
                     {u"unreadable"_s, u"It is damaged."_s},
                     {u"too large"_s, u"It is too large."_s},
                     {u"empty"_s, u"It is empty."_s},
                     {u"link"_s, u"It is a link."_s},
                     {u"not regular"_s, u"It is not regular."_s}}};
    for (const QString &path : paths) {
        const QString number = QString::number(description.rows.size() + 1);
        const QString place = u"Shop "_s + number;
        description.rows.append(
            {.filePath = path,
             .cells = {number, u"2024-05-01"_s, place, u"lunch"_s, u"Lunch"_s, u"$5.00"_s},
             .line = u"No. "_s + number + u" · "_s + place});
    }
    return description;
}

MadeReport::MadeReport(const ReportDescription &description)
    : bytes_(written(description, &isWritten_))
    , document_(std::make_unique<QPDF>()) {
    document_->processMemoryFile("report", bytes_.constData(), static_cast<std::size_t>(bytes_.size()));
}

std::vector<QPDFPageObjectHelper> MadeReport::pages() {
    return QPDFPageDocumentHelper(*document_).getAllPages();
}

int MadeReport::firstPageOf(int receipt) {
    QPDFObjectHandle bookmark = document_->getRoot().getKey("/Outlines").getKey("/First");
    for (int passed = 0; passed <= receipt; ++passed) {
        bookmark = bookmark.getKey("/Next");
    }
    return pageIndexOf(*this, bookmark.getKey("/Dest"));
}

QImage MadeReport::shown(int page) const {
    QBuffer buffer;
    buffer.setData(bytes_);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&buffer);
    QImage image = document.render(page, document.pagePointSize(page).toSize());
    QImage onWhite(image.size(), QImage::Format_RGB32);
    onWhite.fill(Qt::white);
    QPainter(&onWhite).drawImage(0, 0, image);
    return onWhite;
}

QString MadeReport::textOf(int page) const {
    QBuffer buffer;
    buffer.setData(bytes_);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&buffer);
    return document.getAllText(page).text();
}

QByteArray MadeReport::complaints() const {
    const QString qpdf = QStandardPaths::findExecutable(u"qpdf"_s);
    if (qpdf.isEmpty()) {
        return "qpdf is not installed";
    }
    QTemporaryFile file;
    file.open();
    file.write(bytes_);
    file.close();
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(qpdf, {u"--check"_s, file.fileName()});
    process.waitForFinished(-1);
    return process.exitCode() == 0 ? QByteArray() : process.readAll();
}

int pageIndexOf(MadeReport &report, QPDFObjectHandle destination) {
    const QPDFObjGen wanted = destination.getArrayItem(0).getObjGen();
    int index = 0;
    for (QPDFPageObjectHelper &page : report.pages()) {
        if (page.getObjectHandle().getObjGen() == wanted) {
            return index;
        }
        ++index;
    }
    return -1;
}

} // namespace fennick::test
