#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>
#include <QTemporaryDir>

// Receipt files made for the tests of the converter, and what to look for in its pictures.
namespace fennick::testing {

// A folder for a test program's files, which is also the temporary directory while it lives.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    Q_DISABLE_COPY_MOVE(ScratchFolder)

    QString path(const QString &name) const { return folder_.filePath(name); }

    // Writes the file and gives its path.
    QString file(const QString &name, const QByteArray &content) const;

    // Converts the file with the base name "Out" and gives its only picture; null when the conversion fails
    // or gives another number of files.
    QImage converted(const QString &name, const QByteArray &content) const;

    // The description of the error that the conversion of the file ends with; empty when it succeeds.
    QString failureOf(const QString &name, const QByteArray &content) const;

private:
    QTemporaryDir folder_;
    QByteArray formerTemporaryFolder_;
};

// The description of the error for a file that cannot be rendered.
extern const QString cannotRender;

QByteArray contentOf(const QString &path);

// --- Pictures

// A white picture whose corners are filled with red, green, blue and yellow (in reading order), each a fifth
// of the picture wide and high.
QImage fourCorners(QSize size);

// A picture in which red, green and blue change smoothly.
QImage smoothPicture(QSize size);

// The colours near the four corners, in reading order, as letters (RGBYW, K: black); "?" for any other
// colour.
QString cornersOf(const QImage &image);

// The largest difference of a channel between the picture's middle and `colour`.
int distanceInMiddle(const QImage &image, QRgb colour);

QByteArray encoded(const QImage &image, const char *format, int quality = -1);

// `jpeg` with an EXIF segment that holds the orientation and nothing else.
QByteArray withExifOrientation(QByteArray jpeg, int orientation, bool bigEndian);

// The structure that files of all kinds keep their EXIF data in.
QByteArray exifData(int orientation, bool bigEndian);

// A PNG chunk with its length and checksum.
QByteArray pngChunk(const QByteArray &type, const QByteArray &data);

// `png` with the chunk inserted after its header.
QByteArray withPngChunk(QByteArray png, const QByteArray &type, const QByteArray &data);

// A RIFF chunk, padded to an even length.
QByteArray riffChunk(const QByteArray &type, const QByteArray &data);

// --- PDF files

// `objects` become the objects 1, 2, ... of a PDF file; the first has to be its catalogue.
QByteArray pdfOf(const QList<QByteArray> &objects);

QByteArray pdfStream(const QByteArray &content);

// A PDF whose pages have these attributes besides their parent and contents, and all the same contents.
// `inherited` are attributes of the page tree.
QByteArray pdfWithPages(const QList<QByteArray> &pageAttributes, const QByteArray &content,
                        const QByteArray &inherited = {});

// Page contents like fourCorners() for the box with this lower left corner and size.
QByteArray fourCornersContent(int left, int bottom, int width, int height);

} // namespace fennick::testing
