#include "report/notice_pages.h"

#include "report/painted_pdf.h"
#include "report/table_pages.h"
#include "report/wrapped_text.h"

namespace fennick {

namespace {

constexpr double noticeSize = 12;
constexpr int mostLinesOfAParagraph = 6;

void drawNotice(QPainter &painter, const QStringList &paragraphs) {
    constexpr double margin = 60 * PaintedPdf::unitsPerPoint;
    const double width = reportPageSize.width() * PaintedPdf::unitsPerPoint - 2 * margin;
    double y = reportPageSize.height() * PaintedPdf::unitsPerPoint / 3;
    QFont::Weight weight = QFont::Bold;
    for (const QString &paragraph : paragraphs) {
        const WrappedText text(paragraph, reportFont(noticeSize, weight), width, mostLinesOfAParagraph,
                               Qt::AlignHCenter);
        text.draw(painter, {margin, y});
        y += text.height() + noticeSize * PaintedPdf::unitsPerPoint / 2;
        weight = QFont::Normal;
    }
}

} // namespace

QByteArray drawnNotices(const QList<QStringList> &notices) {
    PaintedPdf pdf(reportPageSize);
    bool isFirst = true;
    for (const QStringList &paragraphs : notices) {
        if (!isFirst) {
            pdf.newPage();
        }
        isFirst = false;
        drawNotice(pdf.painter(), paragraphs);
    }
    return pdf.finished();
}

} // namespace fennick
