#pragma once

#include "platform/photo_permission.h"

#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

// Adds images to the user's photo library, after asking for leave once. Keeps no state; main thread.
namespace fennick::PhotosImporter {

struct PhotosError {
    enum class Kind { notAuthorized, addFailed };

    Kind kind;
    QString message; // for `addFailed`: the library's description

    // `systemText` may be empty: the system has not said why.
    static PhotosError addFailed(const QString &systemText);

    QString errorDescription() const;
};

// The user's decision; asks for it only while there is none.
[[nodiscard]] QCoro::Task<PhotoPermission::Status> requestAccess();

// Adds copies of the images under their own file names, all or none, to the album with this title, which is
// made when there is none. An empty list adds nothing and asks for nothing.
[[nodiscard]] QCoro::Task<std::expected<void, PhotosError>> add(QStringList jpegPaths,
                                                                std::optional<QString> albumName);

} // namespace fennick::PhotosImporter
