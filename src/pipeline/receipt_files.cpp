#include "pipeline/receipt_files.h"

#include "kinds/document_kind.h"
#include "platform/regular_file.h"

#include <QDirIterator>

namespace fennick {

namespace {

bool isReceiptFile(const QDirIterator &entry) {
    const QString path = entry.filePath();
    const FileKind kind = kindOfName(path) ? fileStateAt(path).kind : FileKind::missing;
    return kind == FileKind::regular || (kind == FileKind::link && !entry.fileInfo().isDir());
}

} // namespace

// Folders are entries as well, so that the walk also ends early where there are no files.
void visitReceiptFiles(const QString &folder, const std::atomic_bool &isCancelled,
                       const std::function<void(const QString &path)> &visit) {
    constexpr auto everything = QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::System;
    QDirIterator entries(folder, everything, QDirIterator::Subdirectories);
    while (!isCancelled && entries.hasNext()) {
        entries.next();
        if (isReceiptFile(entries)) {
            visit(entries.filePath());
        }
    }
}

QStringList receiptFilesIn(const QString &folder) {
    const std::atomic_bool isCancelled = false;
    QStringList paths;
    visitReceiptFiles(folder, isCancelled, [&paths](const QString &path) { paths.append(path); });
    paths.sort();
    return paths;
}

} // namespace fennick
