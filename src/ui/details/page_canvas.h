#pragma once

#include "ui/details/page_mark.h"

#include <QImage>
#include <QList>
#include <QPixmap>
#include <QWidget>

#include <optional>

namespace fennick {

// A page drawn over the whole widget, sharp at every scale of the screen, with marks on it. Owned by the page
// view.
class PageCanvas : public QWidget {
    Q_OBJECT

public:
    explicit PageCanvas(QWidget *parent = nullptr);

    void showImage(const QImage &image);
    const QImage &image() const { return image_; }

    // Draws these marks over the page, the one of `emphasised` more strongly.
    void showMarks(const QList<PageMark> &marks, std::optional<ReceiptField> emphasised);
    const QList<PageMark> &marks() const { return marks_; }

Q_SIGNALS:
    void markClicked(ReceiptField field);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void paintPage(QPainter &painter, const QRect &part);
    std::optional<ReceiptField> fieldAt(const QPointF &position) const;

    QImage image_;
    QList<PageMark> marks_;
    std::optional<ReceiptField> emphasised_;
    QPixmap reduced_; // the image in the widget's size, if that is smaller
};

} // namespace fennick
