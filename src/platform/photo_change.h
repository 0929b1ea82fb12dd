#pragma once

#include "platform/file_problem.h"

#include <QFile>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace fennick {

// The file in an album's folder that holds the album's exact title.
inline const QString albumTitleFile = QString::fromUtf8(".album");

// One change of the photo library in the making: images are copied into a hidden folder of the library and
// moved from there to their places. Unless `keep` is called, destruction undoes everything; a journal lets
// the next start do so if the program is killed. The journal lies in a folder that only the user can write,
// not in the library, which may be shared or synchronised, because it names the files to remove. Owned by the
// operation that makes the change; any thread.
class PhotoChange {
public:
    // Undoes interrupted changes of `library`, as recorded by the journals in `journalFolder`. Call it only
    // while no change is being made.
    static void undoInterrupted(const QString &library, const QString &journalFolder);

    PhotoChange(const QString &library, const QString &journalFolder);
    ~PhotoChange();
    PhotoChange(const PhotoChange &) = delete;
    PhotoChange &operator=(const PhotoChange &) = delete;

    // Copies the images into the library's own file system, where moving them into place cannot fail halfway
    // through a file.
    [[nodiscard]] std::expected<void, FileProblem> stage(const QStringList &imagePaths);

    // Creates a folder with the title in it, named after the title without the characters that some system
    // refuses. Absent if it cannot be created.
    [[nodiscard]] std::optional<QString> makeAlbum(const QString &title);

    // Moves the staged images to their final folder. A name that is taken gets a number.
    [[nodiscard]] std::expected<void, FileProblem> moveInto(const QString &folder);

    void keep() { isKept_ = true; }

private:
    struct StagedImage {
        QString path; // in the hidden folder
        QString name; // in the library
    };

    [[nodiscard]] std::expected<void, FileProblem> moveUnderFreeName(const StagedImage &image,
                                                                     const QString &folder);
    [[nodiscard]] bool record(const QJsonObject &entry);

    PhotoChange(const QString &library, const QString &journalFolder, const QString &id);

    QString library_;
    QString staging_;
    QFile journal_;
    QList<StagedImage> staged_;
    bool isKept_ = false;
};

} // namespace fennick
