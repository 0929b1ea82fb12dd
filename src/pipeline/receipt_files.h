#pragma once

#include <QStringList>

#include <atomic>
#include <functional>

// The files that a folder holds before it is watched. Blocks as long as the file system does.
namespace fennick {

// Calls `visit` for every supported regular file and link below `folder`, without hidden ones and what lies
// in hidden folders; links are not followed. Ends early once `isCancelled` is true.
void visitReceiptFiles(const QString &folder, const std::atomic_bool &isCancelled,
                       const std::function<void(const QString &path)> &visit);

// All of them, sorted.
QStringList receiptFilesIn(const QString &folder);

} // namespace fennick
