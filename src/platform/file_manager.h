#pragma once

#include <QString>
#include <QStringList>

// The desktop's file manager and its programs for files. Neither call waits for what it starts.
namespace fennick::FileManager {

// Shows the file selected in its folder; without a file manager that can, opens the folder.
void reveal(const QString &path);

// Shows all of these files at once; without a file manager that can, opens the folder of the first.
void reveal(const QStringList &paths);

// Opens the file with the user's program for its kind.
void open(const QString &path);

} // namespace fennick::FileManager
