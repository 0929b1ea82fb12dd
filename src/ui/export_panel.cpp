#include "ui/export_panel.h"

#include <QCoreApplication>
#include <QFileDialog>

namespace fennick {

std::optional<QString> exportLedger(QWidget *parent, const QList<Receipt> &receipts,
                                    ExportService::Format format) {
    QFileDialog panel(parent, QCoreApplication::translate("ExportPanel", "Export Receipts"));
    panel.setObjectName(QStringLiteral("exportPanel"));
    panel.setAcceptMode(QFileDialog::AcceptSave);
    panel.setFileMode(QFileDialog::AnyFile);
    panel.setMimeTypeFilters(
        {format == ExportService::Format::csv ? QStringLiteral("text/csv") : QStringLiteral("text/html")});
    panel.setDefaultSuffix(ExportService::fileExtension(format));
    panel.selectFile(ExportService::proposedFileName(format));
    if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    const QString path = panel.selectedFiles().first();
    // The result is intentionally not looked at: the caller is told the place in any case.
    ExportService::writeLedger(receipts, format, path);
    return path;
}

} // namespace fennick
