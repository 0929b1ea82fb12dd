#include "conversion/conversion_process.h"
#include "extraction/gemini_error.h"
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

// As many at once as there are processors: more would only take each other's time.
QCoro::Task<std::expected<QStringList, ConverterError>> AppState::convert(std::shared_ptr<QFile> content,
                                                                          Receipt receipt) {
    const Turns::Turn turn = co_await conversions_->next();
    co_return co_await ConversionProcess::convertToJPEGs(
        QCoreApplication::applicationDirPath() + QStringLiteral("/convert_receipt"), content,
        receipt.filePath, FileRenamer::baseName(receipt));
}

// Whether the receipt has been added; a failure goes to `lastError`.
QCoro::Task<bool> AppState::addToPhotos(Receipt receipt, std::optional<FileIdentity> file) {
    const QPointer<AppState> self(this);
    FileToRead wanted(receipt.filePath);
    wanted.folder = watchedFolder_;
    wanted.identity = file;
    OpenedFile opened = openRegularFile(wanted); // before anything is waited for: the file may be moved
    if (!opened) {
        setLastError(tr("Photos export failed: %1").arg(inUsersLanguage(opened.error().description())));
        co_return false;
    }
    const auto images = co_await convert(std::move(*opened), receipt);
    if (!self) {
        co_return false;
    }
    if (!images) {
        setLastError(tr("Photos export failed: %1").arg(images.error().errorDescription()));
        co_return false;
    }
    std::optional<QString> album;
    if (settings_->groupIntoAlbum()) {
        album = albumName(QDateTime::currentDateTime());
    }
    const auto added = co_await PhotosImporter::add(*images, album);
    if (!self) {
        co_return false;
    }
    if (!added) {
        // The images stay where they are: they are what the user may still want to add by hand.
        setLastError(tr("Photos export failed: %1").arg(added.error().errorDescription()));
        co_return false;
    }
    if (!images->isEmpty()) {
        QDir(parentFolder(images->first())).removeRecursively();
    }
    co_return true;
}

QCoro::Task<> AppState::deliver(Receipt receipt, std::optional<FileIdentity> file) {
    const QPointer<AppState> self(this);
    const bool isAdded = co_await addToPhotos(receipt, file);
    if (!self || !isAdded) {
        co_return;
    }
    if (auto delivered = store_->receipt(receipt.id)) {
        delivered->addedToPhotos = true;
        store_->update(*delivered);
    }
}

void AppState::pushToPhotos(const Receipt &receipt) {
    const auto current = store_->receipt(receipt.id);
    if (current && settings_->addToPhotos()) {
        startTask(deliver(*current));
    }
}

} // namespace fennick
