#include "engine/service/pdf_process.h"

#include "platform/child_process.h"
#include "platform/regular_file.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>

#include <optional>
#include <utility>

namespace fennick::engine {

using namespace Qt::StringLiterals;

const QString readPdfArgument = u"--read-pdf"_s;

namespace {

// Five scanned pages take about two seconds.
constexpr ChildLimits share{.memory = 1LL << 30, .processorTime = std::chrono::seconds(15)};
// For a process that waits instead of working, or gets no processor.
constexpr std::chrono::seconds longestTime{50};
// Follow the number of pages.
const QString wholeMediaBoxesArgument = QStringLiteral("--whole-media-boxes");
const QString annotationsArgument = QStringLiteral("--annotations");
constexpr int lookInterval = 50; // milliseconds
constexpr int sizeDigits = 12;
constexpr int standardInput = 0;
constexpr auto streamVersion = QDataStream::Qt_6_4;

void write(QDataStream &stream, const TextLine &line) {
    stream << line.text << line.box << line.confidence << line.page
           << static_cast<qint32>(line.pieces.size());
    for (const TextPiece &piece : line.pieces) {
        stream << static_cast<qint64>(piece.start) << static_cast<qint64>(piece.length) << piece.place;
    }
}

TextLine readLine(QDataStream &stream) {
    TextLine line;
    qint32 pieces = 0;
    stream >> line.text >> line.box >> line.confidence >> line.page >> pieces;
    for (; pieces > 0 && stream.status() == QDataStream::Ok; --pieces) {
        qint64 start = 0;
        qint64 length = 0;
        QRectF place;
        stream >> start >> length >> place;
        line.pieces.append({static_cast<qsizetype>(start), static_cast<qsizetype>(length), place});
    }
    return line;
}

// Not as Qt streams pictures, which packs every one as a PNG.
void write(QDataStream &stream, const QImage &picture) {
    stream << picture.size();
    for (int row = 0; row < picture.height(); ++row) {
        stream.writeRawData(reinterpret_cast<const char *>(picture.constScanLine(row)), picture.width());
    }
}

QImage readPicture(QDataStream &stream) {
    QSize size;
    stream >> size;
    if (size.isEmpty() || stream.status() != QDataStream::Ok) {
        return {};
    }
    QImage picture(size, QImage::Format_Grayscale8);
    for (int row = 0; row < picture.height(); ++row) {
        stream.readRawData(reinterpret_cast<char *>(picture.scanLine(row)), picture.width());
    }
    return picture;
}

QByteArray encoded(const std::expected<QList<PdfPage>, ReadError> &pages) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << pages.has_value();
    if (!pages) {
        stream << pages.error();
        return bytes;
    }
    stream << static_cast<qint32>(pages->size());
    for (const PdfPage &page : *pages) {
        stream << static_cast<qint32>(page.lines.size());
        for (const TextLine &line : page.lines) {
            write(stream, line);
        }
        write(stream, page.picture);
    }
    return bytes;
}

PdfPage decodedPage(QDataStream &stream) {
    PdfPage page;
    qint32 lines = 0;
    stream >> lines;
    for (; lines > 0 && stream.status() == QDataStream::Ok; --lines) {
        page.lines.append(readLine(stream));
    }
    page.picture = readPicture(stream);
    return page;
}

// Nothing of an answer that is not whole.
std::optional<std::expected<QList<PdfPage>, ReadError>> decoded(const QByteArray &bytes) {
    QDataStream stream(bytes);
    stream.setVersion(streamVersion);
    bool hasPages = false;
    stream >> hasPages;
    if (!hasPages) {
        ReadError error{};
        stream >> error;
        return stream.status() == QDataStream::Ok
                   ? std::optional(std::expected<QList<PdfPage>, ReadError>(std::unexpected(error)))
                   : std::nullopt;
    }
    QList<PdfPage> pages;
    qint32 count = 0;
    stream >> count;
    for (; count > 0 && stream.status() == QDataStream::Ok; --count) {
        pages.append(decodedPage(stream));
    }
    return stream.status() == QDataStream::Ok ? std::optional(std::move(pages)) : std::nullopt;
}

// Precedes the document on the process's standard input.
QByteArray sizeField(qint64 size) {
    return QByteArray::number(size).rightJustified(sizeDigits, '0');
}

// Nothing if the input ends before the document does.
std::optional<QByteArray> receivedDocument(QFile &input) {
    const auto size = readExactly(input, sizeDigits);
    const auto document = size ? readExactly(input, size->toLongLong()) : size;
    return document ? std::optional(*document) : std::nullopt;
}

QStringList argumentsFor(const PdfUse &use) {
    QStringList arguments{readPdfArgument, QString::number(use.pageLimit)};
    if (use.wholeMediaBoxes) {
        arguments.append(wholeMediaBoxesArgument);
    }
    if (use.annotations) {
        arguments.append(annotationsArgument);
    }
    return arguments;
}

PdfUse useIn(const QStringList &arguments) {
    return {.pageLimit = arguments.value(1).toInt(),
            .wholeMediaBoxes = arguments.contains(wholeMediaBoxesArgument),
            .annotations = arguments.contains(annotationsArgument)};
}

void end(QProcess &process) {
    process.kill();
    process.waitForFinished();
}

} // namespace

std::expected<QList<PdfPage>, ReadError> readPdfApart(const QString &program, const QByteArray &bytes,
                                                      const PdfUse &use, const std::stop_token &stop) {
    QProcess process;
    endWithThisProgram(process, share);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, argumentsFor(use));
    process.write(sizeField(bytes.size())); // the channel stays open: the process ends when it closes
    process.write(bytes);
    const QDeadlineTimer deadline(longestTime);
    while (!process.waitForFinished(lookInterval) && process.state() != QProcess::NotRunning) {
        if (stop.stop_requested() || deadline.hasExpired()) {
            end(process);
            return std::unexpected(stop.stop_requested() ? ReadError::abandoned : ReadError::tookTooMuch);
        }
    }
    if (process.error() == QProcess::FailedToStart) {
        return std::unexpected(ReadError::unreadablePdf);
    }
    auto pages = decoded(process.readAllStandardOutput());
    return pages ? *std::move(pages) : std::unexpected(ReadError::tookTooMuch);
}

int serveReadPdfApart(const QStringList &arguments) {
    QFile input;
    QFile output;
    if (!input.open(standardInput, QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        !output.open(stdout, QIODevice::WriteOnly)) {
        return 1;
    }
    const auto document = receivedDocument(input);
    if (!document) {
        return 1;
    }
    endWithStandardInput();
    const QByteArray answer = encoded(readPdf(*document, useIn(arguments)));
    return output.write(answer) == answer.size() && output.flush() ? 0 : 1;
}

} // namespace fennick::engine
