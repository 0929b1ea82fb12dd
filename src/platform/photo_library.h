#pragma once

#include "platform/file_problem.h"

#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

// The user's photo library: a place for pictures, grouped in albums that have a title. Adding is all or
// nothing. Callable from any thread; callers have asked for access first. A `journalFolder` is an existing
// folder that only the user can write.
namespace fennick::PhotoLibrary {

struct Album {
    QString folder;
};

// The library's folder, for display; it need not exist yet.
QString folder();

// The first album with exactly this title.
[[nodiscard]] std::optional<Album> fetchAlbum(const QString &title);

// What one change adds: copies of the images under their own file names, to an album that exists, to a new
// one, or to none.
struct Additions {
    QStringList imagePaths;
    std::optional<Album> album;
    std::optional<QString> newAlbumTitle;
};

// After a failure the library is as it was before. An album that cannot be created is no failure: the images
// are added without one.
// The change is recorded in `journalFolder` for the next start.
[[nodiscard]] std::expected<void, FileProblem> performChanges(const Additions &additions,
                                                              const QString &journalFolder);

// Undoes changes that were interrupted because the program was killed. Call it once at the program's start,
// while no change is being made.
void undoInterruptedChanges(const QString &journalFolder);

} // namespace fennick::PhotoLibrary
