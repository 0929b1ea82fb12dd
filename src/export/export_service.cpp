#include "export/export_service.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace fennick::ExportService {

QString fileExtension(Format format) {
    return format == Format::csv ? u"csv"_s : u"html"_s;
}

QString proposedFileName(Format format) {
    return u"receipts-"_s + isoDateStamp() + u'.' + fileExtension(format);
}

std::expected<void, FileProblem> writeLedger(const QList<Receipt> &receipts, Format format,
                                             const QString &path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return std::unexpected(FileProblem::ofSystem(file.errorString()));
    }
    const QString ledger = format == Format::csv ? buildCSV(receipts) : buildHTML(receipts);
    const QByteArray content = ledger.toUtf8();
    if (file.write(content) != content.size() || !file.commit()) {
        return std::unexpected(FileProblem::ofSystem(file.errorString()));
    }
    return {};
}

} // namespace fennick::ExportService
