#include "conversion/conversion_report.h"
#include "converter/receipt_image_converter.h"
#include "platform/allocator_tuning.h"
#include "platform/child_process.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Each page takes a bitmap; more than two at once would take more memory than they save time.
constexpr int processes = 2;

// What follows it is the number of an open file.
const QString descriptorOption = u"--descriptor="_s;

} // namespace

// convert_receipt [--descriptor=NUMBER] FILE FOLDER [NAME]: converts a receipt to JPEG files in FOLDER, named
// after NAME or, without it, after the file, and writes a report of the result to standard output. With the
// option, FILE is only the receipt's name, its content is read from the open file of that number, and the
// program ends when its standard input closes. Fennick uses the option for every receipt that it adds to the
// photo library, so that the scanned file is the one converted, even if it is renamed or moved meanwhile.
int main(int argc, char **argv) {
    fennick::keepFreedMemory();
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    const bool isOpen = arguments.value(1).startsWith(descriptorOption);
    const int descriptor = isOpen ? arguments.takeAt(1).mid(descriptorOption.size()).toInt() : -1;
    if (arguments.size() < 3 || arguments.size() > 4) {
        std::fputs("usage: convert_receipt [--descriptor=NUMBER] FILE FOLDER [NAME]\n", stderr);
        return 2;
    }
    const QString name = arguments.value(3, fennick::nameWithoutExtension(arguments[1]));
    QFile input;
    if (isOpen) {
        fennick::endWithStandardInput();
        if (!input.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered)) {
            return 2;
        }
    }
    namespace Converter = fennick::ReceiptImageConverter;
    const auto result = isOpen ? Converter::convertInto(arguments[2], input, arguments[1], name, processes)
                               : Converter::convertInto(arguments[2], arguments[1], name, processes);
    const QByteArray report = fennick::encodeReport(result);
    std::fwrite(report.constData(), 1, static_cast<std::size_t>(report.size()), stdout);
    return result ? 0 : 1;
}
