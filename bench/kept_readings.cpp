#include "kept_readings.h"

#include <QFile>
#include <QStringList>
#include <QTextStream>

namespace fennick {

bool keepReadings(const QString &path, const QList<engine::Reading> &readings) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QTextStream text(&file);
    for (qsizetype reading = 0; reading < readings.size(); ++reading) {
        for (const engine::TextLine &line : readings[reading]) {
            text << reading << '\t' << line.page << '\t' << line.box.x() << '\t' << line.box.y() << '\t'
                 << line.box.width() << '\t' << line.box.height() << '\t' << line.confidence << '\t'
                 << line.text << '\n';
        }
    }
    return true;
}

std::optional<QList<engine::Reading>> keptReadings(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QList<engine::Reading> readings;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList cells = line.split(u'\t');
        const qsizetype reading = cells.value(0).toLongLong();
        while (readings.size() <= reading) {
            readings.append(engine::Reading());
        }
        readings[reading].append({.text = cells.value(7),
                                  .box = QRectF(cells.value(2).toDouble(), cells.value(3).toDouble(),
                                                cells.value(4).toDouble(), cells.value(5).toDouble()),
                                  .confidence = cells.value(6).toDouble(),
                                  .page = cells.value(1).toInt()});
    }
    return readings;
}

} // namespace fennick
