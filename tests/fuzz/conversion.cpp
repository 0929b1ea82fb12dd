#include "conversion.h"

#include "converter/receipt_image_converter.h"
#include "invariant.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace fennick::fuzz {

namespace {

QString temporaryFile(const QString &name) {
    return QDir::tempPath() + u'/' + name;
}

void checkPicture(const QString &path, const std::function<bool(QSize)> &isAcceptableSize) {
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "the picture can be read");
    const QByteArray jpeg = file.readAll();
    require(jpeg.startsWith("\xFF\xD8\xFF") && jpeg.endsWith("\xFF\xD9"), "the picture is a whole JPEG");
    const QSize size = QImageReader(path).size();
    require(size.width() > 0 && size.height() > 0, "the picture has a size");
    require(isAcceptableSize(size), "the picture is of an acceptable size");
}

QString expectedName(qsizetype index, qsizetype count) {
    return count == 1 ? u"Lunch.jpg"_s : u"Lunch (p%1).jpg"_s.arg(index + 1);
}

} // namespace

void prepareConversion() {
    static int argumentCount = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Damaged pictures are told about at length.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static const QGuiApplication application(argumentCount, arguments);
}

void checkConversion(const QString &name, const QByteArray &content,
                     const std::function<bool(QSize)> &isAcceptableSize) {
    const QString path = temporaryFile(name);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "a file is written");
    file.close();
    const auto pictures = ReceiptImageConverter::convertToJPEGs(path, u"Lunch"_s);
    if (pictures) {
        require(!pictures->isEmpty(), "a conversion that succeeds gives pictures");
        for (qsizetype index = 0; index < pictures->size(); ++index) {
            checkPicture(pictures->at(index), isAcceptableSize);
            require(QFileInfo(pictures->at(index)).fileName() == expectedName(index, pictures->size()),
                    "the pictures are named after the receipt, in page order");
        }
    } else {
        require(!pictures.error().errorDescription().isEmpty(), "a failure has a text");
        require(pictures.error().kind != ConverterError::Kind::platform, "the folder can be made");
        require(pictures.error().kind != ConverterError::Kind::unsupported, "the kind of file is known");
    }
    QDir(temporaryFile(u"FennickJPEG"_s)).removeRecursively();
}

} // namespace fennick::fuzz
