#include "support/test_program.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>

#include <algorithm>
#include <chrono>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

namespace {

// Files; those of a tree are taken in one after the other.
constexpr int treeSize = 30;

// Longer than debounce, stability wait and one batch of the watcher together.
constexpr int longEnoughToBeTakenIn = 1500;

// A file that is left alone for longer is sent as it is.
constexpr int longestPause = 800;

// Tells the document apart from all others, and comes the later the more its number is scattered.
HttpReply answerNaming(const HttpRequest &request) {
    const QByteArray document = inlineDocument(request);
    const int number = document.mid(document.lastIndexOf(' ') + 1).toInt();
    HttpReply reply =
        answering(R"({"date": "2024-05-01", "location": ")" + document + R"(", "amount": )" +
                  QByteArray::number(number) + R"(, "currency": "USD", "category": "shopping"})");
    reply.delay = milliseconds(number * 37 % 200);
    return reply;
}

QByteArray documentNumbered(int number) {
    return "Shop " + QByteArray::number(number);
}

QString nameNumbered(int number) {
    return u"2024-05-01 Shopping - Shop %1 $%1.00.pdf"_s.arg(number);
}

} // namespace

// Many files, or many changes, at the same time.
class CrowdTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session_.renew();
        session_.server.setScript(answerNaming);
    }
    void cleanup() { QVERIFY(session_.end()); }

    void hundredFilesAtOnceAreEachSentRenamedAndListedOnce() {
        QVERIFY(session_.start());
        for (int number = 0; number < 100; ++number) {
            session_.drop(u"scan-%1.pdf"_s.arg(number), documentNumbered(number));
        }
        QVERIFY(session_.waitForRows(100, u"done"_s));
        waitUntilQuiet();
        checkNumbered(100, QString());
    }

    void treeMovedInIsTakenInWhole() {
        QVERIFY(session_.start());
        const QString outside = session_.home.path(u"outside"_s);
        for (int number = 0; number < treeSize; ++number) {
            writeFile(outside + u"/%1/%2/scan.pdf"_s.arg(number / 2).arg(number), documentNumbered(number));
        }
        QVERIFY(QDir().rename(outside, session_.path(u"moved"_s)));
        QVERIFY(session_.waitForRows(treeSize, u"done"_s));
        waitUntilQuiet();
        checkNumbered(treeSize, u"moved/%1/%2/"_s);
    }

    // A new folder's first files are there before anybody watches it.
    void treeCopiedInIsTakenInWhole() {
        QVERIFY(session_.start());
        for (int number = 0; number < treeSize; ++number) {
            session_.drop(u"copied/%1/%2/scan.pdf"_s.arg(number / 2).arg(number), documentNumbered(number));
        }
        QVERIFY(session_.waitForRows(treeSize, u"done"_s));
        waitUntilQuiet();
        checkNumbered(treeSize, u"copied/%1/%2/"_s);
    }

    void filesThatGetTheSameNameAreNumbered() {
        session_.server.setScript([](const HttpRequest &) { return answering(lunchAnswer); });
        QVERIFY(session_.start());
        QSet<QByteArray> contents;
        for (int number = 0; number < 30; ++number) {
            contents.insert(documentNumbered(number));
            session_.drop(u"scan-%1.pdf"_s.arg(number), documentNumbered(number));
        }
        QVERIFY(session_.waitForRows(30, u"done"_s));
        waitUntilQuiet();
        const QMap<QString, QByteArray> files = session_.files();
        QCOMPARE(files.size(), 30);
        QCOMPARE(QSet<QByteArray>(files.begin(), files.end()), contents);
        QVERIFY(files.contains(lunchName));
        for (int number = 2; number <= 30; ++number) {
            QVERIFY(files.contains(u"2024-05-01 Lunch - Dockside Deli $23.50 (%1).pdf"_s.arg(number)));
        }
        QCOMPARE(listedNames(), files.keys());
    }

    void tenWritesInAShortTimeAreOneRequest() {
        QVERIFY(session_.start());
        QFile file(session_.path(u"a.pdf"_s));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray document = "Shop 1";
        for (int write = 0; write < 10; ++write) {
            letTimePass(write == 0 ? 0 : 25);
            file.seek(0);
            file.write(document);
        }
        file.close();
        QVERIFY(session_.waitForRows(1, u"done"_s));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(session_.sentDocuments(), QList<QByteArray>{document});
        QCOMPARE(session_.rows().size(), 1);
    }

    void growingFileIsOneRequestAndWhole_data() {
        QTest::addColumn<int>("pause");
        QTest::newRow("30 ms apart") << 30;
        QTest::newRow("100 ms apart") << 100;
        QTest::newRow("290 ms apart") << 290;
        QTest::newRow("400 ms apart") << 400;
    }
    void growingFileIsOneRequestAndWhole() {
        QFETCH(int, pause);
        QVERIFY(session_.start());
        // A busy machine may hold the test's own writes back.
        QByteArray document = growWithoutALongPause(pause);
        while (document.isEmpty()) {
            QVERIFY(session_.end());
            init();
            QVERIFY(session_.start());
            document = growWithoutALongPause(pause);
        }
        QVERIFY(session_.waitForRows(1, u"done"_s));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(session_.sentDocuments(), QList<QByteArray>{document});
        QCOMPARE(session_.rows().size(), 1);
    }

private:
    // Writes a new file bit by bit for three seconds; returns its content, or nothing when two writes were
    // too far apart.
    QByteArray growWithoutALongPause(int pause) {
        QFile file(session_.path(u"a.pdf"_s));
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        QByteArray document;
        const auto write = [&](const QByteArray &part) {
            file.write(part);
            document += part;
        };
        QElapsedTimer sinceTheLastWrite;
        for (int passed = 0; passed < 3000; passed += pause) {
            write("growing, ");
            sinceTheLastWrite.start();
            letTimePass(pause);
            if (sinceTheLastWrite.hasExpired(longestPause)) {
                return {};
            }
        }
        write("Shop 1");
        return sinceTheLastWrite.hasExpired(longestPause) ? QByteArray() : document;
    }

    // Whatever else a crowd may set off has then begun.
    void waitUntilQuiet() { letTimePass(longEnoughToBeTakenIn); }

    QStringList listedNames() const {
        QStringList names;
        for (const QJsonObject &row : session_.rows()) {
            names.append(row.value(u"fileName").toString());
        }
        names.sort();
        return names;
    }

    // Whether `count` numbered documents were sent once, lie under the name of their own answer in the folder
    // by `pattern`, and are listed so. `%1` in the pattern is half the number, `%2` the number.
    void checkNumbered(int count, const QString &pattern) {
        QList<QByteArray> sent;
        QMap<QString, QByteArray> files;
        QMap<QString, QString> locations;
        for (int number = 0; number < count; ++number) {
            const QString folder = pattern.isEmpty() ? QString() : pattern.arg(number / 2).arg(number);
            sent.append(documentNumbered(number));
            files[folder + nameNumbered(number)] = documentNumbered(number);
            locations[session_.path(folder + nameNumbered(number))] =
                QString::fromUtf8(documentNumbered(number));
        }
        QList<QByteArray> actuallySent = session_.sentDocuments();
        std::sort(actuallySent.begin(), actuallySent.end());
        std::sort(sent.begin(), sent.end());
        QCOMPARE(actuallySent, sent);
        QCOMPARE(session_.files(), files);
        const QList<QJsonObject> rows = session_.rows();
        QCOMPARE(rows.size(), count);
        QMap<QString, QString> listed;
        for (const QJsonObject &row : rows) {
            listed[row.value(u"filePath").toString()] = row.value(u"location").toString();
            QVERIFY(row.value(u"filePath").toString().endsWith(u'/' + row.value(u"fileName").toString()));
        }
        QCOMPARE(listed, locations);
    }

    UserSession session_;
};

int crowd_test(int argc, char **argv) {
    return runTest<QCoreApplication, CrowdTest>(argc, argv);
}
#include "crowd_test.moc"
