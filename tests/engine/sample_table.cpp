#include "engine/sample_table.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStringList>

namespace fennick::engine {

using namespace Qt::StringLiterals;

QList<Sample> sampleTable() {
    QFile file(QStringLiteral(FENNICK_SOURCE_DIR "/samples/expected.csv"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QStringList names = lines.value(0).split(u',');
    QList<Sample> samples;
    for (const QString &line : lines.mid(1)) {
        const QStringList cells = line.split(u',');
        Sample sample{.file = cells.value(0), .facts = {}};
        for (qsizetype index = 1; index < names.size(); ++index) {
            const QString cell = cells.value(index);
            QJsonValue value = QJsonValue::Null;
            if (!cell.isEmpty()) {
                value = names[index] == u"amount" ? QJsonValue(cell.toDouble()) : QJsonValue(cell);
            }
            sample.facts.insert(names[index], value);
        }
        samples.append(sample);
    }
    return samples;
}

QByteArray sampleBytes(const QString &name) {
    QFile file(QStringLiteral(FENNICK_SOURCE_DIR "/samples/receipts/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString sampleType(const QString &name) {
    static const QHash<QString, QString> types = {
        {u"pdf"_s, u"application/pdf"_s}, {u"png"_s, u"image/png"_s},   {u"jpg"_s, u"image/jpeg"_s},
        {u"jpeg"_s, u"image/jpeg"_s},     {u"webp"_s, u"image/webp"_s}, {u"heic"_s, u"image/heic"_s},
    };
    return types.value(QFileInfo(name).suffix().toLower());
}

} // namespace fennick::engine
