#pragma once

#include <QStringList>

namespace fennick {

// What is known about a folder before it is watched.
struct FolderFacts {
    bool isWide = false;          // a place that holds much besides receipts, or a folder above one
    int unreadFiles = 0;          // the files that would be read, as far as they were counted
    bool isCountComplete = false; // whether there are no more of them
};

// A folder with more unread files is not watched without asking.
inline constexpr int mostFilesUnasked = 25;

// Counting ends beyond this number.
inline constexpr int mostFilesCounted = 1000;

// Whether the user must agree before the folder is watched: more might be given away than was meant.
bool needsConsent(const FolderFacts &facts);

// Whether `folder` is one of `places` or contains one of them. All paths are clean and without links.
bool isOrContains(const QString &folder, const QStringList &places);

} // namespace fennick
