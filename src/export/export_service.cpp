#include "export/export_service.h"

#include <QSaveFile>

namespace fennick::ExportService {

QString fileExtension(Format format) {
    return format == Format::csv ? QStringLiteral("csv") : QStringLiteral("html");
}

QString proposedFileName(Format format) {
    return QStringLiteral("receipts-") + isoDateStamp() + u'.' + fileExtension(format);
}

bool writeLedger(const QList<Receipt> &receipts, Format format, const QString &path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    const QString ledger = format == Format::csv ? buildCSV(receipts) : buildHTML(receipts);
    const QByteArray content = ledger.toUtf8();
    return file.write(content) == content.size() && file.commit();
}

} // namespace fennick::ExportService
