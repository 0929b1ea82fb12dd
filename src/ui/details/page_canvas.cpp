#include "ui/details/page_canvas.h"

#include <QPaintEvent>
#include <QPainter>

namespace fennick {

PageCanvas::PageCanvas(QWidget *parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PageCanvas::showImage(const QImage &image) {
    image_ = image;
    reduced_ = {};
    update();
}

// Small print is legible only if a large picture is reduced from all of its pixels, which drawing does not
// do. A picture that is enlarged is drawn from the part that is on the screen: as a whole it could be very
// large.
void PageCanvas::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    if (image_.isNull()) {
        painter.fillRect(event->rect(), palette().window());
        return;
    }
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
    const QRectF part(event->rect());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(
        part, image_,
        QRectF(part.x() * across, part.y() * down, part.width() * across, part.height() * down));
}

} // namespace fennick
