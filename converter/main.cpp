#include "files/conversion_report.h"
#include "files/receipt_image_converter.h"
#include "platform/picture_memory.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

// Each page takes a bitmap; more than two at once would take more memory than they save time.
constexpr int processes = 2;

// convert_receipt FILE FOLDER [NAME]: turns a receipt into JPEG files in FOLDER, named after NAME or else
// after the file, and tells on standard output what came of it. Fennick runs it for every receipt that it
// adds to the photo library.
int main(int argc, char **argv) {
    fennick::reusePictureMemory();
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3 || arguments.size() > 4) {
        std::fputs("usage: convert_receipt FILE FOLDER [NAME]\n", stderr);
        return 2;
    }
    const QString name = arguments.value(3, QFileInfo(arguments[1]).completeBaseName());
    const auto result =
        fennick::ReceiptImageConverter::convertInto(arguments[2], arguments[1], name, processes);
    const QByteArray report = fennick::encodeReport(result);
    std::fwrite(report.constData(), 1, static_cast<std::size_t>(report.size()), stdout);
    return result ? 0 : 1;
}
