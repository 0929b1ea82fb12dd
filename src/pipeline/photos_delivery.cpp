#include "files/conversion_process.h"
#include "files/file_renamer.h"
#include "pipeline/app_state.h"
#include "pipeline/photos_importer.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

namespace fennick {

QString AppState::albumName(const QDateTime &processingDate) {
    return QStringLiteral("Expenses: ") +
           QLocale::c().toString(processingDate.toLocalTime(), QStringLiteral("yyyy-MM-dd"));
}

// Returns the receipt, marked when it has been added; a failure goes to `lastError`.
QCoro::Task<Receipt> AppState::addToPhotos(Receipt receipt) {
    const QPointer<AppState> self(this);
    FileToRead wanted(receipt.filePath);
    wanted.folder = watchedFolder_;
    OpenedFile opened = openRegularFile(wanted); // before anything is waited for: the file may be moved
    if (!opened) {
        setLastError(tr("Photos export failed: %1").arg(opened.error().description()));
        co_return receipt;
    }
    const std::shared_ptr<QFile> file = std::move(*opened);
    const auto images = co_await ConversionProcess::convertToJPEGs(
        QCoreApplication::applicationDirPath() + QStringLiteral("/convert_receipt"), file, receipt.filePath,
        FileRenamer::baseName(receipt));
    if (!self) {
        co_return receipt;
    }
    if (!images) {
        setLastError(tr("Photos export failed: %1").arg(images.error().errorDescription()));
        co_return receipt;
    }
    std::optional<QString> album;
    if (settings_->groupIntoAlbum()) {
        album = albumName(QDateTime::currentDateTime());
    }
    const auto added = co_await PhotosImporter::add(*images, album);
    if (!self) {
        co_return receipt;
    }
    if (!added) {
        // The images stay where they are: they are what the user may still want to add by hand.
        setLastError(tr("Photos export failed: %1").arg(added.error().errorDescription()));
        co_return receipt;
    }
    receipt.addedToPhotos = true;
    if (!images->isEmpty()) {
        QDir(parentFolder(images->first())).removeRecursively();
    }
    co_return receipt;
}

QCoro::Task<> AppState::deliverAndUpdate(Receipt receipt) {
    const QPointer<AppState> self(this);
    const Receipt delivered = co_await addToPhotos(receipt);
    if (self) {
        store_->update(delivered);
    }
}

void AppState::pushToPhotos(const Receipt &receipt) {
    if (settings_->addToPhotos()) {
        startTask(deliverAndUpdate(receipt));
    }
}

} // namespace fennick
