#include "ui/details/page_canvas.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace fennick {

PageCanvas::PageCanvas(QWidget *parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void PageCanvas::showImage(const QImage &image) {
    image_ = image;
    reduced_ = {};
    update();
}

void PageCanvas::showMarks(const QList<PageMark> &marks, std::optional<ReceiptField> emphasised) {
    marks_ = marks;
    emphasised_ = emphasised;
    update();
}

void PageCanvas::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    if (image_.isNull()) {
        painter.fillRect(event->rect(), palette().window());
        return;
    }
    paintPage(painter, event->rect());
    for (const PageMark &mark : std::as_const(marks_)) {
        paintMark(painter, mark.frameOn(size()), mark.field == emphasised_, palette());
    }
}

// Small print is legible only if a large picture is reduced from all of its pixels, which drawing does not
// do. A picture that is enlarged is drawn from the part that is on the screen: as a whole it could be very
// large.
void PageCanvas::paintPage(QPainter &painter, const QRect &part) {
    const QSize pixels = size() * devicePixelRatioF();
    if (pixels.width() < image_.width()) {
        if (reduced_.size() != pixels) {
            reduced_ =
                QPixmap::fromImage(image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        }
        painter.drawPixmap(rect(), reduced_);
        return;
    }
    const double across = static_cast<double>(image_.width()) / width();
    const double down = static_cast<double>(image_.height()) / height();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(
        QRectF(part), image_,
        QRectF(part.x() * across, part.y() * down, part.width() * across, part.height() * down));
}

// Of marks that lie over each other, the smallest.
std::optional<ReceiptField> PageCanvas::fieldAt(const QPointF &position) const {
    const PageMark *best = nullptr;
    for (const PageMark &mark : marks_) {
        const bool isSmaller = best == nullptr || mark.area.width() * mark.area.height() <
                                                      best->area.width() * best->area.height();
        if (isSmaller && mark.frameOn(size()).contains(position)) {
            best = &mark;
        }
    }
    return best == nullptr ? std::nullopt : std::optional(best->field);
}

void PageCanvas::mouseMoveEvent(QMouseEvent *event) {
    setCursor(fieldAt(event->position()) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QWidget::mouseMoveEvent(event);
}

void PageCanvas::mousePressEvent(QMouseEvent *event) {
    const auto field = fieldAt(event->position());
    if (event->button() == Qt::LeftButton && field) {
        Q_EMIT markClicked(*field);
        return;
    }
    QWidget::mousePressEvent(event);
}

} // namespace fennick
