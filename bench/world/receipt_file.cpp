#include "receipt_file.h"

#include "sheet_drawing.h"

#include <QBuffer>
#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int dotsPerInch = 300;
constexpr double millimetresPerInch = 25.4;

double dots(double millimetres) {
    return millimetres / millimetresPerInch * dotsPerInch;
}

// Qt writes into a PDF when it was made and a number of its own.
QByteArray withoutTraces(QByteArray document) {
    static const QRegularExpression traces(
        u"(?<=\\(D:)[0-9]{14}|(?<=\")[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}"
        u"|/ID \\[ ?<\\K[0-9a-fA-F]+> ?<[0-9a-fA-F]+(?=>)"
        u"|[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}"_s);
    const QString text = QString::fromLatin1(document);
    for (auto matches = traces.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        document.replace(match.capturedStart(), match.capturedLength(),
                         match.captured().replace(QRegularExpression(u"[0-9a-fA-F]"_s), u"0"_s).toLatin1());
    }
    return document;
}

// As a shop sends it: as long as it needs to be, or on A4.
QByteArray documentOf(const ReceiptSheet &sheet, SeededRandom &random) {
    const bool isOnRoll = random.chance(0.5);
    const SheetLook look = chosenLook(sheet, !isOnRoll, random);
    const double width = dots(isOnRoll ? 72 : 150);
    const double margin = dots(isOnRoll ? 4 : 25);
    const double height = sheetHeight(sheet, look, width) + 2 * margin;
    const QSizeF roll(80, height / dotsPerInch * millimetresPerInch);
    QByteArray document;
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(isOnRoll ? QPageSize(roll, QPageSize::Millimeter, {}, QPageSize::ExactMatch)
                                : QPageSize(QPageSize::A4));
    writer.setPageMargins({});
    QPainter painter(&writer);
    painter.translate(margin, margin);
    const double fitting = isOnRoll ? 1 : std::min(1.0, (dots(297) - 2 * margin) / (height - 2 * margin));
    painter.scale(fitting, fitting);
    drawSheet(painter, sheet, look, width);
    painter.end();
    return withoutTraces(document);
}

bool writeBytes(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

QString extensionOf(Rendering rendering) {
    return rendering == Rendering::textPdf ? u"pdf"_s : rendering == Rendering::clean ? u"png"_s : u"jpg"_s;
}

bool writeReceipt(const QString &path, const ReceiptSheet &sheet, Rendering rendering, SeededRandom &random) {
    if (rendering == Rendering::textPdf) {
        return writeBytes(path, documentOf(sheet, random));
    }
    const QImage picture = pictureOf(sheet, rendering, random);
    return rendering == Rendering::clean ? picture.save(path, "PNG")
                                         : picture.save(path, "JPG", random.between(70, 90));
}

} // namespace fennick
