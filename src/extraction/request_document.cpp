#include "extraction/request_document.h"

namespace fennick {

namespace {

// Chunks are a multiple of three bytes, so that only the last one is padded.
std::expected<void, FileProblem> appendBase64(QByteArray &body, QFile &file, qint64 size) {
    constexpr qint64 chunkSize = 3 * qint64{64} * 1024;
    for (qint64 done = 0; done < size; done += chunkSize) {
        const auto chunk = readExactly(file, qMin(chunkSize, size - done));
        if (!chunk) {
            return std::unexpected(chunk.error());
        }
        body.append(chunk->toBase64());
    }
    return expectEnd(file);
}

} // namespace

std::expected<QByteArray, FileProblem> bodyWithDocument(const QByteArray &head, const FileToRead &wanted,
                                                        const QByteArray &tail) {
    const OpenedFile file = openRegularFile(wanted);
    if (!file) {
        return std::unexpected(file.error());
    }
    QByteArray body;
    const qint64 size = (*file)->size();
    body.reserve(head.size() + (size + 2) / 3 * 4 + tail.size());
    body.append(head);
    if (const auto appended = appendBase64(body, **file, size); !appended) {
        return std::unexpected(appended.error());
    }
    body.append(tail);
    return body;
}

} // namespace fennick
