#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

// The kinds of documents that a receipt may be: one table for the window, the converter and the engine.
namespace fennick {

enum class DocumentKind {
    pdf,
    jpeg,
    png,
    webp,
    heif,
    // Pictures that have neither an extension nor a MIME type here: no such file is taken in. Cameras and
    // scanners may give them the name of another kind, and the converter reads them.
    gif,
    bmp,
};

// By the extension of the file name, in any letter case. Empty for a name that no receipt has.
[[nodiscard]] std::optional<DocumentKind> kindOfName(const QString &path);

// By the MIME type, as a request states it.
[[nodiscard]] std::optional<DocumentKind> kindOfMimeType(const QString &mimeType);

// By the first bytes, whatever the file's name is.
[[nodiscard]] std::optional<DocumentKind> kindOfContent(QByteArrayView content);

// The MIME type under which a document is sent; empty for a kind that is not taken in.
[[nodiscard]] QString mimeTypeOf(DocumentKind kind);

} // namespace fennick
