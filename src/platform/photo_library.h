#pragma once

#include "platform/file_problem.h"

#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

// The user's photo library: a place for pictures, grouped in albums that have a title. Adding is all or
// nothing. Callable from any thread; callers have asked for access first. A `journalFolder` is a folder that
// is there and that nobody but the user can write.
namespace fennick::PhotoLibrary {

struct Album {
    QString folder;
};

// Where the library lies, for telling the user; it need not exist yet.
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
// What is being done is kept in `journalFolder` for the next start.
[[nodiscard]] std::expected<void, FileProblem> performChanges(const Additions &additions,
                                                              const QString &journalFolder);

// Takes back what changes have left that never came to their end because the program was killed. Once at the
// program's start, while no change is being made.
void undoInterruptedChanges(const QString &journalFolder);

} // namespace fennick::PhotoLibrary
