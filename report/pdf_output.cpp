#include "report/pdf_output.h"

#include <QIODevice>
#include <QUuid>

#include <cmath>

namespace fennick {

namespace {

// Bytes above 127 in the second line show programs that move files that this one is not text.
constexpr QByteArrayView firstLines = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n";

constexpr int offsetDigits = 10;

QByteArray tableEntry(qint64 offset) {
    if (offset == 0) {
        return QByteArrayLiteral("0000000000 65535 f \n");
    }
    return QByteArray::number(offset).rightJustified(offsetDigits, '0') + " 00000 n \n";
}

} // namespace

PdfOutput::PdfOutput(QIODevice *device)
    : device_(device)
    , offsets_(1) {
    put(firstLines);
}

int PdfOutput::reserve() {
    offsets_.push_back(0);
    return static_cast<int>(offsets_.size()) - 1;
}

void PdfOutput::write(int number, const QByteArray &object) {
    offsets_.at(static_cast<std::size_t>(number)) = size_;
    put(QByteArray::number(number) + " 0 obj\n" + object + "\nendobj\n");
}

void PdfOutput::writeStream(int number, const QByteArray &dictionaryEntries, QByteArrayView content) {
    offsets_.at(static_cast<std::size_t>(number)) = size_;
    put(QByteArray::number(number) + " 0 obj\n<<" + dictionaryEntries + "/Length " +
        QByteArray::number(content.size()) + ">>\nstream\n");
    put(content);
    put("\nendstream\nendobj\n");
}

int PdfOutput::add(const QByteArray &object) {
    const int number = reserve();
    write(number, object);
    return number;
}

int PdfOutput::addStream(const QByteArray &dictionaryEntries, QByteArrayView content) {
    const int number = reserve();
    writeStream(number, dictionaryEntries, content);
    return number;
}

bool PdfOutput::finish(int catalog, int information) {
    const qint64 table = size_;
    const QByteArray count = QByteArray::number(static_cast<qint64>(offsets_.size()));
    const QByteArray identifier = QUuid::createUuid().toRfc4122().toHex();
    put("xref\n0 " + count + '\n');
    for (const qint64 offset : offsets_) {
        put(tableEntry(offset));
    }
    put("trailer\n<</Size " + count + "/Root " + pdfReference(catalog) + "/Info " +
        pdfReference(information) + "/ID[<" + identifier + "><" + identifier + ">]>>\nstartxref\n" +
        QByteArray::number(table) + "\n%%EOF\n");
    return !hasFailed_;
}

void PdfOutput::put(QByteArrayView bytes) {
    hasFailed_ = hasFailed_ || device_->write(bytes.data(), bytes.size()) != bytes.size();
    size_ += bytes.size();
}

QByteArray pdfReference(int number) {
    return QByteArray::number(number) + " 0 R";
}

QByteArray pdfNumber(double value) {
    constexpr int decimals = 3;
    return QByteArray::number(std::isfinite(value) ? value : 0.0, 'f', decimals);
}

QByteArray pdfText(const QString &text) {
    QByteArray digits = QByteArrayLiteral("FEFF");
    for (const QChar character : text) {
        digits += QByteArray::number(character.unicode(), 16).rightJustified(4, '0');
    }
    return '<' + digits + '>';
}

} // namespace fennick
