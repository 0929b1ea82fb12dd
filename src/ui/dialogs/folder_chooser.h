#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace fennick {

// Whether the user may make folders in the chooser.
enum class NewFolders { allowed, refused };

// Asks for one folder in a modal dialog, the desktop's own where there is one, and returns its path; nothing
// when the user cancels. Starts in `startFolder`, or at home when there is none or it is gone. `parent` may
// be deleted while the dialog is open: that is a cancellation.
std::optional<QString> chooseFolder(QWidget *parent, const QString &confirmText,
                                    const std::optional<QString> &startFolder, NewFolders newFolders);

} // namespace fennick
