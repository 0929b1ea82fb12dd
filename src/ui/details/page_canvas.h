#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace fennick {

// A page drawn over the whole widget, sharp at every scale of the screen. Owned by the page view.
class PageCanvas : public QWidget {
    Q_OBJECT

public:
    explicit PageCanvas(QWidget *parent = nullptr);

    void showImage(const QImage &image);
    const QImage &image() const { return image_; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage image_;
    QPixmap reduced_; // the image in the widget's size, if that is smaller
};

} // namespace fennick
