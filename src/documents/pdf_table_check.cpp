#include "documents/pdf_table_check.h"

#include "documents/pdf_stream_meter.h"

#include <QRegularExpression>
#include <qpdf/Pl_Flate.hh>

#include <algorithm>
#include <exception>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// A table of a million objects is 7 MB.
constexpr size_t largestTable = 32 * 1024 * 1024;
// What is encrypted cannot be measured before it is opened; deflate packs 1032 to 1 at the most.
constexpr qsizetype largestUnmeasured = 128 * 1024;
constexpr qsizetype pieceSize = 16 * 1024;

// Any letter of a name may be written as # and its code (PDF 1.7, 7.3.5).
QByteArray withPlainNames(QByteArrayView text) {
    QByteArray plain;
    plain.reserve(text.size());
    qsizetype done = 0;
    for (qsizetype at = text.indexOf('#'); at >= 0; at = text.indexOf('#', done)) {
        plain.append(text.sliced(done, at - done));
        const qsizetype digits = std::min<qsizetype>(2, text.size() - at - 1);
        bool isCode = false;
        const int code = text.sliced(at + 1, digits).toInt(&isCode, 16);
        plain.append(isCode ? static_cast<char>(code) : '#');
        done = at + 1 + (isCode ? digits : 0);
    }
    plain.append(text.sliced(done));
    return plain;
}

bool isTable(const QByteArray &description) {
    return description.contains("/XRef") || description.contains("/ObjStm");
}

bool isPackedAsUsual(const QByteArray &description) {
    static const QRegularExpression encryption(uR"(/Filter\s*/Standard)"_s);
    static const QRegularExpression flateAlone(uR"(/Filter\s*(\[\s*)?/(FlateDecode|Fl)\s*(\]\s*)?(/|>>))"_s);
    QString text = QString::fromLatin1(description).remove(encryption);
    text.remove(flateAlone);
    return !text.contains("/Filter"_L1);
}

// `data` starts with the stream and may go on behind it.
bool isBounded(const QByteArray &data, qsizetype length) {
    PdfStreamMeter meter(largestTable);
    Pl_Flate unpacker("unpacker", &meter, Pl_Flate::a_inflate);
    try {
        for (qsizetype at = 0; at < length; at += pieceSize) {
            const QByteArray piece = data.sliced(at, std::min(pieceSize, length - at));
            unpacker.write(reinterpret_cast<const unsigned char *>(piece.constData()),
                           static_cast<size_t>(piece.size()));
        }
        unpacker.finish();
    } catch (const std::exception &) {
        return !meter.isOver() && (meter.size() > 0 || length <= largestUnmeasured);
    }
    return true;
}

} // namespace

bool hasBoundedTables(const QByteArray &bytes) {
    static const QByteArray keyword = "stream";
    qsizetype last = 0;
    for (qsizetype at = bytes.indexOf(keyword); at >= 0; at = bytes.indexOf(keyword, last)) {
        const QByteArray description = withPlainNames(QByteArrayView(bytes).sliced(last, at - last));
        last = at + keyword.size();
        if (!isTable(description)) {
            continue;
        }
        if (!isPackedAsUsual(description)) {
            return false;
        }
        while (last < bytes.size() && (bytes[last] == '\r' || bytes[last] == '\n')) {
            ++last;
        }
        const qsizetype end = bytes.indexOf("endstream", last);
        const qsizetype length = (end < 0 ? bytes.size() : end) - last;
        if (description.contains("/Filter") &&
            !isBounded(QByteArray::fromRawData(bytes.constData() + last, length), length)) {
            return false;
        }
    }
    return true;
}

} // namespace fennick
