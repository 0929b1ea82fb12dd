#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace fennick {

// Whether the user may create folders in the chooser.
enum class NewFolders { allowed, refused };

// Asks for a folder in a modal dialog, the desktop's own where available, and returns its path; nothing if
// the user cancels. Starts in `startFolder`, or in the home folder if that is absent or no longer exists. If
// `parent` is deleted while the dialog is open, it counts as cancelled.
std::optional<QString> chooseFolder(QWidget *parent, const QString &confirmText,
                                    const std::optional<QString> &startFolder, NewFolders newFolders);

} // namespace fennick
