#include "support/striped_pdf.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace fennick::test {

QByteArray stripedPdf(int pages) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        QPainter painter(&writer);
        for (int page = 0; page < pages; ++page) {
            if (page > 0) {
                writer.newPage();
            }
            for (int line = 0; line < 60; ++line) {
                painter.fillRect(200, 200 + line * 200, 5000 - line * 37, 90, Qt::black);
            }
        }
    }
    return buffer.data();
}

} // namespace fennick::test
