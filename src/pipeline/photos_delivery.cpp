#include "pipeline/photos_delivery.h"

#include "conversion/conversion_process.h"
#include "extraction/gemini_error.h"
#include "files/file_renamer.h"
#include "model/receipt_store.h"
#include "pipeline/last_error.h"
#include "pipeline/photos_importer.h"
#include "pipeline/tasks.h"
#include "pipeline/turns.h"
#include "pipeline/watched_folder.h"
#include "platform/file_system_answer.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QLocale>
#include <QPointer>
#include <QThread>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

PhotosDelivery::PhotosDelivery(ReceiptStore *store, SettingsStore *settings,
                               const WatchedFolder *watchedFolder, LastError *lastError, Tasks *tasks)
    : store_(store)
    , settings_(settings)
    , watchedFolder_(watchedFolder)
    , lastError_(lastError)
    , tasks_(tasks)
    , conversions_(std::make_shared<Turns>(std::max(1, QThread::idealThreadCount()))) {}

QString PhotosDelivery::albumName(const QDateTime &processingDate) {
    return u"Expenses: "_s + QLocale::c().toString(processingDate.toLocalTime(), u"yyyy-MM-dd"_s);
}

void PhotosDelivery::push(const Receipt &receipt) {
    const auto current = store_->receipt(receipt.id);
    if (current && settings_->addToPhotos()) {
        tasks_->start(deliver(*current));
    }
}

QCoro::Task<> PhotosDelivery::deliver(Receipt receipt, std::optional<FileIdentity> file) {
    const QPointer<PhotosDelivery> self(this);
    const bool isAdded = co_await addToPhotos(receipt, file);
    if (!self || !isAdded) {
        co_return;
    }
    if (auto delivered = store_->receipt(receipt.id)) {
        delivered->addedToPhotos = true;
        store_->update(*delivered);
    }
}

// Whether the receipt has been added; a failure goes to `lastError`.
QCoro::Task<bool> PhotosDelivery::addToPhotos(Receipt receipt, std::optional<FileIdentity> file) {
    const QPointer<PhotosDelivery> self(this);
    FileToRead wanted(receipt.filePath);
    wanted.folder = watchedFolder_->path;
    wanted.identity = file;
    // Before anything is waited for: the file may be moved.
    OpenedFile opened = fileSystemAnswers(wanted.path)
                            ? openRegularFile(wanted)
                            : std::unexpected(FileProblem{FileProblem::Kind::noAnswer, {}});
    if (!opened) {
        lastError_->set(tr("Photos export failed: %1").arg(inUsersLanguage(opened.error().description())));
        co_return false;
    }
    const auto images = co_await convert(std::move(*opened), receipt);
    if (!self) {
        co_return false;
    }
    if (!images) {
        lastError_->set(tr("Photos export failed: %1").arg(images.error().errorDescription()));
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
        lastError_->set(tr("Photos export failed: %1").arg(added.error().errorDescription()));
        co_return false;
    }
    if (!images->isEmpty()) {
        QDir(parentFolder(images->first())).removeRecursively();
    }
    co_return true;
}

// As many at once as there are processors: more would only take each other's time.
QCoro::Task<std::expected<QStringList, ConverterError>>
PhotosDelivery::convert(std::shared_ptr<QFile> content, Receipt receipt) {
    const Turns::Turn turn = co_await conversions_->next();
    co_return co_await ConversionProcess::convertToJPEGs(
        joinedPath(QCoreApplication::applicationDirPath(), u"convert_receipt"_s), content, receipt.filePath,
        FileRenamer::baseName(receipt));
}

} // namespace fennick
