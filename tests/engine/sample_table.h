#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

namespace fennick::engine {

// One receipt of samples/receipts and what a reader has to find on it.
struct Sample {
    QString file;
    QJsonObject facts; // the six fields besides the summary, null where there is nothing to find

    // All else that is in the folder is no receipt.
    bool isReceipt() const { return !facts.value(QStringLiteral("category")).isNull(); }
};

// The rows of samples/expected.csv; empty if it cannot be read.
QList<Sample> sampleTable();

QByteArray sampleBytes(const QString &file);

// The MIME type that goes with the file's extension.
QString sampleType(const QString &file);

} // namespace fennick::engine
