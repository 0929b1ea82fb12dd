#include "documents/hostile_documents.h"

namespace fennick::test {

namespace {

// As zlib packs it: without the length that Qt puts in front.
QByteArray packed(const QByteArray &bytes) {
    return qCompress(bytes, 9).sliced(4);
}

QByteArray bigEndian(quint32 number) {
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(number >> shift & 0xFF);
    }
    return bytes;
}

quint32 checksum(const QByteArray &bytes) {
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
        }
    }
    return ~sum;
}

QByteArray chunk(const QByteArray &type, const QByteArray &data) {
    return bigEndian(static_cast<quint32>(data.size())) + type + data + bigEndian(checksum(type + data));
}

QByteArray png(quint32 width, quint32 height, const QByteArray &pixels) {
    const QByteArray eightBitsWithAlpha("\x08\x06\0\0\0", 5);
    return QByteArray("\x89PNG\r\n\x1A\n") +
           chunk("IHDR", bigEndian(width) + bigEndian(height) + eightBitsWithAlpha) +
           chunk("IDAT", packed(pixels)) + chunk("IEND", {});
}

QByteArray stream(int number, const QByteArray &dictionary, const QByteArray &data) {
    return QByteArray::number(number) + " 0 obj\n<<" + dictionary + "/Length " +
           QByteArray::number(data.size()) + ">>\nstream\n" + data + "\nendstream\nendobj\n";
}

const QByteArray start = "%PDF-1.7\n1 0 obj\n<</Type/Catalog/Pages 2 0 R>>\nendobj\n";
const QByteArray onePage = "2 0 obj\n<</Type/Pages/Kids[3 0 R]/Count 1>>\nendobj\n";

QByteArray page(const QByteArray &members) {
    return "3 0 obj\n<</Type/Page/Parent 2 0 R" + members + ">>\nendobj\n";
}

// Without a cross-reference table: readers rebuild it.
QByteArray pdfOf(const QByteArray &objects) {
    return start + objects + "trailer\n<</Root 1 0 R/Size 99>>\n%%EOF\n";
}

} // namespace

QByteArray blankPng(int width, int height) {
    const qsizetype rowSize = 4 * qsizetype{width} + 1;
    return png(static_cast<quint32>(width), static_cast<quint32>(height), QByteArray(rowSize * height, '\0'));
}

QByteArray pngClaiming(quint32 width, quint32 height) {
    return png(width, height, QByteArray(100, '\0'));
}

QByteArray pdfDrawing(const QByteArray &instructions, int times) {
    QByteArray data = instructions;
    QByteArray filters;
    for (int time = 0; time < times; ++time) {
        data = packed(data);
        filters += "/FlateDecode";
    }
    return pdfOf(onePage + page("/MediaBox[0 0 99 99]/Contents 5 0 R") +
                 stream(5, "/Filter[" + filters + ']', data));
}

QByteArray pdfWithPageBox(const QByteArray &box) {
    return pdfOf(onePage + page("/MediaBox[" + box + ']'));
}

QByteArray pdfOfForms(int levels) {
    QByteArray forms;
    for (int level = 0; level < levels; ++level) {
        const QByteArray next = QByteArray::number(level + 6);
        const bool isLast = level + 1 == levels;
        const QByteArray resources = isLast ? QByteArray() : "/Resources<</XObject<</F " + next + " 0 R>>>>";
        forms += stream(level + 5, "/Type/XObject/Subtype/Form/BBox[0 0 600 800]" + resources,
                        isLast ? QByteArray("0 0 m 600 800 l S") : QByteArray("/F Do ").repeated(10));
    }
    return pdfOf(onePage + page("/MediaBox[0 0 600 800]/Contents 4 0 R/Resources<</XObject<</F 5 0 R>>>>") +
                 stream(4, {}, QByteArray("/F Do ").repeated(10)) + forms);
}

QByteArray pdfWithTreeOf(int levels) {
    QByteArray nodes;
    for (int level = 0; level < levels; ++level) {
        const QByteArray number = QByteArray::number(level + 2);
        const QByteArray next = QByteArray::number(level + 3);
        nodes += number + " 0 obj\n<</Type/Pages/Kids[" + next + " 0 R]/Count 1>>\nendobj\n";
    }
    return pdfOf(nodes + QByteArray::number(levels + 2) +
                 " 0 obj\n<</Type/Page/MediaBox[0 0 9 9]>>\nendobj\n");
}

QByteArray pdfWithSharedChildren(int count) {
    QByteArray nodes = "2 0 obj\n<</Type/Pages/Kids 3 0 R/Count 1>>\nendobj\n";
    QByteArray children = "3 0 obj\n[";
    for (int node = 4; node < count + 4; ++node) {
        const QByteArray number = QByteArray::number(node);
        nodes += number + " 0 obj\n<</Type/Pages/Kids 3 0 R/Count 1>>\nendobj\n";
        children += number + " 0 R ";
    }
    return pdfOf(nodes + children + "]\nendobj\n");
}

QByteArray pdfWithPages(int count) {
    constexpr int firstPage = 10;
    QByteArray kids;
    QByteArray pages;
    for (int number = firstPage; number < firstPage + count; ++number) {
        kids += QByteArray::number(number) + " 0 R ";
        pages += QByteArray::number(number) +
                 " 0 obj\n<</Type/Page/Parent 2 0 R/MediaBox[0 0 300 400]/Contents 5 0 R"
                 "/Resources<</Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>>>>>\nendobj\n";
    }
    return pdfOf("2 0 obj\n<</Type/Pages/Kids[" + kids + "]/Count " + QByteArray::number(count) +
                 ">>\nendobj\n" + pages +
                 stream(5, {}, "BT /F 12 Tf 20 300 Td (Corner Shop, High Street, Total 23.50) Tj ET"));
}

QByteArray pdfWithCrossReferences(qsizetype size) {
    const QByteArray objects = start + onePage + page("/MediaBox[0 0 99 99]");
    return objects +
           stream(9, "/Type/XRef/Root 1 0 R/Size 10/W[1 2 1]/Filter/FlateDecode",
                  packed(QByteArray(size, '\0'))) +
           "startxref\n" + QByteArray::number(objects.size()) + "\n%%EOF\n";
}

QByteArray pdfWithObjectStream(qsizetype size) {
    return pdfOf(onePage + page("/MediaBox[0 0 99 99]") +
                 // The name is "ObjStm".
                 stream(7, "/Type/Obj#53tm/N 1/First 5/Filter/FlateDecode", packed(QByteArray(size, ' '))));
}

} // namespace fennick::test
