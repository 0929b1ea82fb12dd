#include "engine/sample_table.h"
#include "engine/service/receipt_reader.h"
#include "engine/service/service_answer.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class SamplesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySampleIsInTheTable() {
        QStringList listed;
        for (const Sample &sample : sampleTable())
            listed.append(sample.file);
        listed.sort();
        QStringList present =
            QDir(QStringLiteral(FENNICK_SOURCE_DIR "/samples/receipts")).entryList(QDir::Files);
        present.sort();
        QVERIFY(present.size() >= 10);
        QCOMPARE(listed, present);
    }

    void readsEverySample_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QJsonObject>("facts");
        for (const Sample &sample : sampleTable()) {
            if (sample.isReceipt())
                QTest::newRow(qPrintable(sample.file)) << sample.file << sample.facts;
        }
    }
    void readsEverySample() {
        QFETCH(QString, file);
        QFETCH(QJsonObject, facts);
        std::expected<ReceiptFields, ReadError> fields;
        // A busy machine may leave too little time for recognition: then it is tried again.
        QVERIFY(fennick::test::waitUntil([&] {
            fields = readReceiptFile(sampleBytes(file), QDate::currentDate());
            return fields || fields.error() != ReadError::tookTooMuch;
        }));
        QVERIFY(fields);
        const QJsonObject answer = generateAnswer(*fields, u"m"_s);
        const QJsonObject candidate = answer.value("candidates"_L1).toArray().at(0).toObject();
        const QJsonObject part =
            candidate.value("content"_L1).toObject().value("parts"_L1).toArray().at(0).toObject();
        QJsonObject found = QJsonDocument::fromJson(part.value("text"_L1).toString().toUtf8()).object();
        QVERIFY(!found.take(u"summary"_s).toString().isEmpty());
        QCOMPARE(found, facts);
        const ReceiptEvidence &evidence = fields->evidence;
        QCOMPARE(evidence.date.has_value(), fields->date.has_value());
        QCOMPARE(evidence.time.has_value(), fields->time.has_value());
        QCOMPARE(evidence.total.has_value(), fields->amount.has_value());
        QVERIFY(evidence.merchant);
    }

    void findsNoReceiptInARecipe() {
        qsizetype others = 0;
        for (const Sample &sample : sampleTable()) {
            if (sample.isReceipt())
                continue;
            ++others;
            std::expected<ReceiptFields, ReadError> fields;
            QVERIFY(fennick::test::waitUntil([&] {
                fields = readReceiptFile(sampleBytes(sample.file), QDate::currentDate());
                return fields || fields.error() != ReadError::tookTooMuch;
            }));
            QVERIFY(!fields);
            QCOMPARE(fields.error(), ReadError::noReceipt);
        }
        QVERIFY(others > 0);
    }
};

int samples_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, SamplesTest>(argc, argv);
}
#include "samples_test.moc"
