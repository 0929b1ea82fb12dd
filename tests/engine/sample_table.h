#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QList>
#include <QString>

namespace fennick::engine {

// One receipt of samples/receipts and what a reader has to find on it.
struct Sample {
    QString file;
    QJsonObject facts; // the six fields besides the summary, null where there is nothing to find
};

// The rows of samples/expected.csv; empty if it cannot be read.
QList<Sample> sampleTable();

QByteArray sampleBytes(const QString &file);

// The MIME type that goes with the file's extension.
QString sampleType(const QString &file);

// Reads again if a busy machine left less time than recognition needs, so that what was read may be less than
// all. Whether it was read in time at last.
template <typename Read>
bool tillThereIsTime(Read read) {
    constexpr int mostTries = 10;
    constexpr int recognitionTime = 25'000; // milliseconds, after which the engine leaves out the rest
    for (int tries = 0; tries < mostTries; ++tries) {
        QElapsedTimer timer;
        timer.start();
        read();
        if (timer.elapsed() < recognitionTime) {
            return true;
        }
    }
    return false;
}

} // namespace fennick::engine
