#include "ui/dialogs/export_panel.h"

#include "platform/regular_file.h"
#include "text/display_text.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QString withExtension(const QString &path, const QString &extension) {
    const bool hasIt = pathExtension(path).compare(extension, Qt::CaseInsensitive) == 0;
    return hasIt ? path : path + u'.' + extension;
}

// The panel asks by itself, but only about the name that was typed.
bool mayReplace(QWidget *parent, const QString &path) {
    const QString question =
        QCoreApplication::translate("ExportPanel", "“%1” already exists. Do you want to replace it?")
            .arg(displayText(lastPathComponent(path)));
    QMessageBox box(QMessageBox::Warning, u"Fennick"_s, question, QMessageBox::Yes | QMessageBox::No, parent);
    box.setObjectName(u"replaceQuestion"_s);
    box.setTextFormat(Qt::PlainText); // names may look like markup
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

} // namespace

std::optional<QString> chooseExportFile(QWidget *parent, const ExportFile &file) {
    QFileDialog panel(parent, QCoreApplication::translate("ExportPanel", "Export Receipts"));
    panel.setObjectName(u"exportPanel"_s);
    panel.setAcceptMode(QFileDialog::AcceptSave);
    panel.setFileMode(QFileDialog::AnyFile);
    panel.setMimeTypeFilters({file.mimeType});
    panel.setDefaultSuffix(file.extension);
    panel.selectFile(file.proposedName);
    while (panel.exec() == QDialog::Accepted && !panel.selectedFiles().isEmpty()) {
        const QString chosen = panel.selectedFiles().first();
        const QString path = withExtension(chosen, file.extension);
        if (path == chosen || !isTaken(path) || mayReplace(parent, path)) {
            return path;
        }
    }
    return std::nullopt;
}

std::optional<ExportedLedger> exportLedger(QWidget *parent, const QList<Receipt> &receipts,
                                           ExportService::Format format) {
    const QList<Receipt> listed = receipts; // as they are now, whatever arrives while the panel is open
    const auto path = chooseExportFile(
        parent, {.proposedName = ExportService::proposedFileName(format),
                 .extension = ExportService::fileExtension(format),
                 .mimeType = format == ExportService::Format::csv ? u"text/csv"_s : u"text/html"_s});
    if (!path) {
        return std::nullopt;
    }
    return ExportedLedger{*path, ExportService::writeLedger(listed, format, *path)};
}

} // namespace fennick
