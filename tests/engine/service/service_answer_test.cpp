#include "engine/service/service_answer.h"
#include "support/test_program.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QJsonObject textObject(const QJsonObject &answer) {
    const QJsonObject candidate = answer.value("candidates"_L1).toArray().at(0).toObject();
    const QJsonArray parts = candidate.value("content"_L1).toObject().value("parts"_L1).toArray();
    return QJsonDocument::fromJson(parts.at(0).toObject().value("text"_L1).toString().toUtf8()).object();
}

} // namespace

class ServiceAnswerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wrapsTheFieldsLikeTheService() {
        ReceiptFields fields;
        fields.category = u"misc"_s;
        fields.summary = u"Receipt"_s;
        const QJsonObject answer = generateAnswer(fields, u"gemini-2.5-flash"_s);
        QCOMPARE(answer.value("modelVersion"_L1).toString(), u"gemini-2.5-flash"_s);
        const QJsonArray candidates = answer.value("candidates"_L1).toArray();
        QCOMPARE(candidates.size(), 1);
        const QJsonObject candidate = candidates.at(0).toObject();
        QCOMPARE(candidate.value("finishReason"_L1).toString(), u"STOP"_s);
        QCOMPARE(candidate.value("index"_L1), QJsonValue(0));
        QCOMPARE(candidate.value("content"_L1).toObject().value("role"_L1).toString(), u"model"_s);
    }

    void writesAllSevenFields() {
        const ReceiptFields fields{.date = QDate(2024, 5, 1),
                                   .time = QTime(7, 5),
                                   .amount = 23.5,
                                   .currency = u"USD"_s,
                                   .location = u"Mario's \"Cafe\""_s,
                                   .category = u"lunch"_s,
                                   .summary = u"Lunch"_s,
                                   .evidence = {}};
        const QJsonObject expected{{u"date"_s, u"2024-05-01"_s},
                                   {u"time"_s, u"07:05"_s},
                                   {u"amount"_s, 23.5},
                                   {u"currency"_s, u"USD"_s},
                                   {u"location"_s, u"Mario's \"Cafe\""_s},
                                   {u"category"_s, u"lunch"_s},
                                   {u"summary"_s, u"Lunch"_s}};
        QCOMPARE(textObject(generateAnswer(fields, u"m"_s)), expected);
    }

    void writesNullForTheUnknown() {
        ReceiptFields fields;
        fields.category = u"misc"_s;
        fields.summary = u"Receipt"_s;
        const QJsonObject object = textObject(generateAnswer(fields, u"m"_s));
        QCOMPARE(object.size(), 7);
        for (const QString &name : {u"date"_s, u"time"_s, u"amount"_s, u"currency"_s, u"location"_s})
            QVERIFY2(object.value(name).isNull(), qPrintable(name));
        QCOMPARE(object.value("category"_L1).toString(), u"misc"_s);
        QCOMPARE(object.value("summary"_L1).toString(), u"Receipt"_s);
    }

    void saysWhereTheValuesStand() {
        ReceiptFields fields;
        fields.evidence.total =
            Evidence{.page = 1, .place = QRectF(0.70001, 0.25, 0.123456, 0.5), .text = u"23,50"_s};
        const QJsonObject evidence = generateAnswer(fields, u"m"_s).value("evidence"_L1).toObject();
        const QJsonObject expected{{u"page"_s, 2},       {u"x"_s, 0.7},      {u"y"_s, 0.25},
                                   {u"width"_s, 0.1235}, {u"height"_s, 0.5}, {u"text"_s, u"23,50"_s}};
        QCOMPARE(evidence.keys(), QStringList{u"total"_s});
        QCOMPARE(evidence.value("total"_L1).toObject(), expected);
    }

    void boundsThePrintedText() {
        ReceiptFields fields;
        fields.evidence.merchant =
            Evidence{.page = 0, .place = QRectF(0, 0, 1, 1), .text = QString(5000, u'x')};
        const QJsonObject evidence = generateAnswer(fields, u"m"_s).value("evidence"_L1).toObject();
        QCOMPARE(evidence.value("merchant"_L1).toObject().value("text"_L1).toString().size(), 200);
    }

    void wordsErrorsLikeTheService() {
        const QJsonObject error =
            errorAnswer({.code = 404, .status = u"NOT_FOUND"_s, .message = u"Nothing here"_s, .reason = {}});
        const QJsonObject expected{
            {u"code"_s, 404}, {u"message"_s, u"Nothing here"_s}, {u"status"_s, u"NOT_FOUND"_s}};
        QCOMPARE(error.value("error"_L1).toObject(), expected);
    }

    void givesAReasonInTheDetails() {
        const QJsonObject error = errorAnswer({.code = 400,
                                               .status = u"INVALID_ARGUMENT"_s,
                                               .message = u"Key"_s,
                                               .reason = u"API_KEY_INVALID"_s});
        const QJsonArray details = error.value("error"_L1).toObject().value("details"_L1).toArray();
        QCOMPARE(details.size(), 1);
        QCOMPARE(details.at(0).toObject().value("reason"_L1).toString(), u"API_KEY_INVALID"_s);
    }

    void blamesTheDocumentForAllButTheRecogniser() {
        for (const ReadError error : {ReadError::unreadableImage, ReadError::imageTooLarge,
                                      ReadError::unreadablePdf, ReadError::lockedPdf, ReadError::emptyPdf}) {
            QCOMPARE(serviceError(error).code, 400);
            QVERIFY(!serviceError(error).message.isEmpty());
        }
        QCOMPARE(serviceError(ReadError::recogniserMissing).code, 500);
    }
};

int service_answer_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<ServiceAnswerTest>(argc, argv);
}
#include "service_answer_test.moc"
