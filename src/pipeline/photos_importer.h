#pragma once

#include "platform/photo_permission.h"

#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

// Adds images to the user's photo library, after asking once for permission. Stateless; main thread.
namespace fennick::PhotosImporter {

struct PhotosError {
    enum class Kind { notAuthorized, addFailed };

    Kind kind;
    QString message; // for `addFailed`: the library's description

    // `systemText` may be empty if the system gives no reason.
    static PhotosError addFailed(const QString &systemText);

    [[nodiscard]] QString errorDescription() const;
};

// Returns the user's decision and asks for it if there is none yet.
[[nodiscard]] QCoro::Task<PhotoPermission::Status> requestAccess();

// Adds copies of the images under their file names, all or none, to the album with this title, which is
// created if it does not exist. Does nothing and asks for nothing if the list is empty.
[[nodiscard]] QCoro::Task<std::expected<void, PhotosError>> add(QStringList jpegPaths,
                                                                std::optional<QString> albumName);

} // namespace fennick::PhotosImporter
