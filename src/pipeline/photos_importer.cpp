#include "pipeline/photos_importer.h"

#include "model/data_folder.h"
#include "platform/photo_library.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QMutex>
#include <QtConcurrent>

namespace fennick::PhotosImporter {

namespace {

using Status = PhotoPermission::Status;
using Kind = PhotosError::Kind;

bool isGranted(Status status) {
    return status == Status::authorized || status == Status::limited;
}

// Looks the album up and then makes the change. Two receipts of a day that are delivered at the same time
// must not both find no album and make one each, hence one at a time.
std::expected<void, FileProblem> addToLibrary(const QStringList &jpegPaths,
                                              const std::optional<QString> &albumName) {
    static QMutex oneAtATime;
    const QMutexLocker lock(&oneAtATime);
    PhotoLibrary::Additions additions{jpegPaths, std::nullopt, std::nullopt};
    if (albumName) {
        additions.album = PhotoLibrary::fetchAlbum(*albumName);
        if (!additions.album) {
            additions.newAlbumTitle = albumName;
        }
    }
    return PhotoLibrary::performChanges(additions, dataFolder());
}

} // namespace

PhotosError PhotosError::addFailed(const QString &systemText) {
    //: The system has not said why an image could not be added.
    const QString unknown = QCoreApplication::translate("PhotosError", "unknown");
    return {Kind::addFailed, systemText.isEmpty() ? unknown : systemText};
}

QString PhotosError::errorDescription() const {
    switch (kind) {
    case Kind::notAuthorized:
        return QCoreApplication::translate(
            "PhotosError", "Photos access was not granted. Enable it in System Settings ▸ Privacy & Security "
                           "▸ Photos.");
    case Kind::addFailed:
        return QCoreApplication::translate("PhotosError", "Failed to add image to Photos: %1").arg(message);
    }
    Q_UNREACHABLE();
}

QCoro::Task<Status> requestAccess() {
    const Status status = PhotoPermission::status();
    if (status != Status::notDetermined) {
        co_return status;
    }
    co_return co_await PhotoPermission::request();
}

QCoro::Task<std::expected<void, PhotosError>> add(QStringList jpegPaths, std::optional<QString> albumName) {
    if (jpegPaths.isEmpty()) {
        co_return {};
    }
    if (!isGranted(co_await requestAccess())) {
        co_return std::unexpected(PhotosError{Kind::notAuthorized, {}});
    }
    const auto added = co_await QtConcurrent::run(addToLibrary, jpegPaths, albumName);
    if (!added) {
        co_return std::unexpected(PhotosError::addFailed(added.error().description()));
    }
    co_return {};
}

} // namespace fennick::PhotosImporter
