#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

class QIODevice;

namespace fennick {

// Writes a PDF file object by object, in any order: what is written takes no memory any more, so that a
// report of any number of receipts is made in the memory of the largest one. Borrows the device.
class PdfOutput {
public:
    explicit PdfOutput(QIODevice *device);

    // A number for an object that is referred to before it is written.
    int reserve();

    void write(int number, const QByteArray &object);
    void writeStream(int number, const QByteArray &dictionaryEntries, QByteArrayView content);

    int add(const QByteArray &object);
    int addStream(const QByteArray &dictionaryEntries, QByteArrayView content);

    // Ends the file. Returns whether all of it could be written.
    [[nodiscard]] bool finish(int catalog, int information);

    bool hasFailed() const { return hasFailed_; }

private:
    void put(QByteArrayView bytes);

    QIODevice *device_;
    std::vector<qint64> offsets_; // by number; 0 for an object that is not written
    qint64 size_ = 0;
    bool hasFailed_ = false;
};

// "12 0 R".
[[nodiscard]] QByteArray pdfReference(int number);

[[nodiscard]] QByteArray pdfNumber(double value);

// A text that people read, in any script.
[[nodiscard]] QByteArray pdfText(const QString &text);

} // namespace fennick
