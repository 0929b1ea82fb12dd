#include "service_failures.h"
#include "support/test_program.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>

#include <algorithm>
#include <chrono>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray silence = "silence";

// Answers that hold their object among other things; each is written around an object that names the test.
const QList<std::pair<QByteArray, QByteArray>> wrappings = {
    {"a bare object", "%"},
    {"a fence", "```json\n%\n```"},
    {"words around", "Here it is: % Enjoy."},
    {"a list of one", "[%]"},
};

QByteArray fileNameOf(const QByteArray &name) {
    return QByteArray(name).replace(':', '-') + ".pdf";
}

} // namespace

// What the receipts of failed scans carry. All files are dropped at once, and each is answered by its
// content.
class AnswerFailuresTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        session_.renew();
        prepareReplies();
        session_.server.setScript([this](const HttpRequest &request) {
            return replies_.value(inlineDocument(request),
                                  HttpReply{.status = 418, .body = {}, .headers = {}});
        });
        QVERIFY(session_.start());
        for (auto reply = replies_.begin(); reply != replies_.end(); ++reply) {
            session_.drop(QString::fromUtf8(fileNameOf(reply.key())), reply.key());
        }
        QVERIFY(session_.waitFor([this] { return session_.server.requests().size() == replies_.size(); }));
        QVERIFY(session_.waitFor([this] { return rowsUnderWay() == 1; })); // the silent one
    }

    void failureIsRecordedByItsText_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("error");
        for (const ServiceFailure &failure : failures_) {
            QTest::newRow(failure.name.constData()) << failure.name << failure.error;
        }
    }
    void failureIsRecordedByItsText() {
        QFETCH(QByteArray, name);
        QFETCH(QString, error);
        const QString fileName = QString::fromUtf8(fileNameOf(name));
        const QJsonObject row = session_.row(fileName);
        QCOMPARE(row.value(u"error").toString(), error);
        QCOMPARE(row.value(u"status").toString(), u"error"_s);
        QCOMPARE(row.value(u"filePath").toString(), session_.path(fileName));
        QCOMPARE(row.value(u"addedToPhotos"), QJsonValue(false));
        QCOMPARE(row.value(u"category").toString(), u"misc"_s);
        QVERIFY(QFileInfo::exists(session_.path(fileName)));
    }

    void objectAmongOtherTextIsNoFailure_data() {
        QTest::addColumn<QByteArray>("name");
        for (const auto &[name, wrapping] : wrappings) {
            QTest::newRow(name.constData()) << name;
        }
    }
    void objectAmongOtherTextIsNoFailure() {
        QFETCH(QByteArray, name);
        const QString fileName = u"Undated Misc - "_s + QString::fromUtf8(fileNameOf(name));
        QVERIFY(session_.waitFor([&] { return !session_.row(fileName).isEmpty(); })); // saved before renamed
        const QJsonObject row = session_.row(fileName);
        QCOMPARE(row.value(u"status").toString(), u"done"_s);
        QCOMPARE(row.value(u"summary").toString(), u"Receipt scanned successfully"_s);
        QVERIFY(!row.contains(u"error"));
        QVERIFY(QFileInfo::exists(session_.path(fileName)));
    }

    void silentServiceIsGivenUpAfterAMinute() {
        const auto &requests = session_.server.requests();
        const auto silent = std::find_if(requests.begin(), requests.end(), [](const HttpRequest &request) {
            return inlineDocument(request) == silence;
        });
        QVERIFY(silent != requests.end());
        QVERIFY(session_.waitFor([this] { return rowsUnderWay() == 0; }));
        const auto waited = std::chrono::system_clock::now() - silent->arrivedAt;
        QVERIFY(waited >= std::chrono::seconds(59));
        QVERIFY(waited <= std::chrono::seconds(65));
        QCOMPARE(session_.row(u"silence.pdf"_s).value(u"error").toString(), u"The request timed out."_s);
    }

    void nothingIsTriedAgain() {
        QCOMPARE(session_.server.requests().size(), replies_.size());
        QCOMPARE(session_.rows().size(), replies_.size());
    }

    void keyStandsInNoFile() {
        QDirIterator files(session_.home.path(QString()), QDir::Files | QDir::Hidden,
                           QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            const QString path = files.next();
            QVERIFY2(!readFile(path).contains(UserSession::key), qPrintable(path));
            ++count;
        }
        QVERIFY(count > replies_.size());
        for (const QJsonObject &row : session_.rows()) {
            QVERIFY2(!row.value(u"error").toString().contains(QString::fromUtf8(UserSession::key)),
                     qPrintable(row.value(u"fileName").toString()));
        }
    }

    void keyStandsInNoOutput() { QVERIFY(session_.end()); }

private:
    void prepareReplies() {
        failures_ = serviceFailures(UserSession::key);
        for (const ServiceFailure &failure : failures_) {
            replies_[failure.name] = failure.reply;
        }
        for (const auto &[name, wrapping] : wrappings) {
            const QByteArray object = "{\"location\": \"" + name + "\"}";
            replies_[name] = answering(QByteArray(wrapping).replace('%', object));
        }
        replies_[silence].fault = HttpReply::Fault::hang;
    }

    qsizetype rowsUnderWay() const {
        const QList<QJsonObject> rows = session_.rows();
        return std::count_if(rows.begin(), rows.end(), [](const QJsonObject &row) {
            return row.value(u"status").toString() == u"processing";
        });
    }

    UserSession session_;
    QList<ServiceFailure> failures_;
    QMap<QByteArray, HttpReply> replies_;
};

int answer_failures_test(int argc, char **argv) {
    return runTest<QCoreApplication, AnswerFailuresTest>(argc, argv);
}
#include "answer_failures_test.moc"
