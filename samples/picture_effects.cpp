#include "samples/picture_effects.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <random>

namespace fennick {

namespace {

void addGrain(QImage &picture, int strength) {
    std::minstd_rand random(7); // the same grain on every run
    std::uniform_int_distribution<int> grain(-strength, strength);
    for (int y = 0; y < picture.height(); ++y) {
        uchar *row = picture.scanLine(y);
        for (int x = 0; x < picture.width(); ++x) {
            row[x] = static_cast<uchar>(std::clamp(row[x] + grain(random), 0, 255));
        }
    }
}

} // namespace

QImage scanned(const QImage &paper, double degrees) {
    QImage sheet(paper.size(), QImage::Format_RGB32);
    sheet.fill(QColor(244, 244, 242));
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.translate(sheet.width() / 2.0, sheet.height() / 2.0);
    painter.rotate(degrees);
    painter.drawImage(QPointF(-paper.width() / 2.0, -paper.height() / 2.0), paper);
    painter.end();
    QImage grey = sheet.convertToFormat(QImage::Format_Grayscale8);
    addGrain(grey, 14);
    return grey;
}

QImage photographed(const QImage &paper) {
    const int border = paper.width() / 9;
    QImage scene(paper.size() + QSize(2 * border, 2 * border), QImage::Format_RGB32);
    scene.fill(QColor(84, 62, 48));
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(scene.width() / 2.0, scene.height() / 2.0);
    painter.rotate(-0.7);
    painter.drawImage(QPointF(-paper.width() / 2.0, -paper.height() / 2.0), paper);
    painter.resetTransform();
    QLinearGradient shade(0, 0, scene.width(), scene.height());
    shade.setColorAt(0, QColor(255, 252, 244));
    shade.setColorAt(1, QColor(196, 190, 182));
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.fillRect(scene.rect(), shade);
    return scene;
}

} // namespace fennick
