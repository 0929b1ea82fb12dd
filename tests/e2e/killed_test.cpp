#include "support/striped_pdf.h"
#include "support/test_program.h"
#include "user_session.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QSet>

#include <algorithm>
#include <chrono>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds answerDelay{30};

// No two are alike, and each is converted for Photos without complaint.
QByteArray document(int number) {
    if (number % 2 == 0) {
        return stripedPdf(1) + "\n% " + QByteArray::number(number) + '\n';
    }
    QImage image(300, 400, QImage::Format_RGB32);
    image.fill(QColor::fromRgb(static_cast<QRgb>(number * 2654435761U)));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

HttpReply answerAfterAWhile(const HttpRequest &) {
    HttpReply reply = answering(lunchAnswer);
    reply.delay = answerDelay;
    return reply;
}

} // namespace

// The program is killed at every stage of a file's life, again and again on what the last kill has left.
// Nothing that was dropped may be lost, doubled or hidden, and the next start must work.
class KilledTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        session_.renew();
        session_.setPreference("addToPhotos", "true");
        session_.server.setScript(answerAfterAWhile);
        writeFile(session_.home.ignoredFile(), "[\"\\/somewhere\\/else.pdf\"]");
        QVERIFY(session_.start());
    }

    void whateverTheMomentNothingIsLost_data() {
        QTest::addColumn<bool>("afterTheRequest");
        QTest::addColumn<int>("delay");
        for (const int delay : {0, 5, 150, 295, 305, 500, 780, 800}) {
            QTest::newRow(qPrintable(u"%1 ms after the drop"_s.arg(delay))) << false << delay;
        }
        for (const int delay : {0,  10, 25, 28, 29, 30, 31, 32, 33, 34,  35,  36,
                                38, 40, 42, 45, 50, 55, 60, 70, 85, 100, 130, 200}) {
            QTest::newRow(qPrintable(u"%1 ms after the first request"_s.arg(delay))) << true << delay;
        }
    }
    void whateverTheMomentNothingIsLost() {
        QFETCH(bool, afterTheRequest);
        QFETCH(int, delay);
        session_.server.forgetRequests();
        for (int file = 0; file < 3; ++file) {
            dropAnother();
            letTimePass(afterTheRequest ? 8 : 0); // so that the files are at different stages
        }
        if (afterTheRequest) {
            QVERIFY(session_.waitFor([this] { return !session_.server.requests().isEmpty(); }));
        }
        letTimePass(delay);
        session_.program.kill();
        checkFiles();
        checkLists();
        checkPhotos();
        checkNextStart();
    }

    void outputIsClean() { QVERIFY(session_.end()); }

private:
    QByteArray dropAnother() {
        const QByteArray content = document(++number_);
        session_.drop(u"scan-%1.%2"_s.arg(number_).arg(number_ % 2 == 0 ? u"pdf"_s : u"png"_s), content);
        dropped_.append(content);
        return content;
    }

    // Every document that was ever dropped lies in the folder once, and nothing else does.
    void checkFiles() {
        QList<QByteArray> found = session_.files().values();
        QList<QByteArray> expected = dropped_;
        std::sort(found.begin(), found.end());
        std::sort(expected.begin(), expected.end());
        QVERIFY2(found == expected, qPrintable(session_.files().keys().join(u'\n')));
    }

    void checkLists() {
        QSet<QString> ids;
        const QList<QJsonObject> rows = session_.rows(); // fails when the list is damaged
        for (const QJsonObject &row : rows) {
            ids.insert(row.value(u"id").toString());
            for (const char *const member : {"fileName", "filePath", "category", "summary", "scannedAt"}) {
                QVERIFY(row.value(QLatin1StringView(member)).isString());
            }
            QVERIFY(row.value(u"addedToPhotos").isBool());
        }
        QCOMPARE(ids.size(), rows.size());
        QCOMPARE(readFile(session_.home.ignoredFile()), "[\"\\/somewhere\\/else.pdf\"]");
    }

    // What the user sees in the library are whole pictures.
    void checkPhotos() {
        QDirIterator photos(session_.home.photoLibrary(), {u"*.jpg"_s}, QDir::Files,
                            QDirIterator::Subdirectories);
        while (photos.hasNext()) {
            const QString path = photos.next();
            const QByteArray photo = readFile(path);
            QVERIFY2(photo.startsWith("\xFF\xD8") && photo.endsWith("\xFF\xD9"), qPrintable(path));
        }
    }

    // The program comes up on what was left, goes through with a new file, and knows all others.
    void checkNextStart() {
        QVERIFY(session_.start());
        const QByteArray content = dropAnother();
        QVERIFY(session_.waitFor([&] { return isDelivered(content) && isEveryFileListed(); }));
    }

    bool isDelivered(const QByteArray &content) const {
        const QList<QJsonObject> rows = session_.rows();
        return std::any_of(rows.begin(), rows.end(), [&](const QJsonObject &row) {
            QFile file(row.value(u"filePath").toString());
            return row.value(u"addedToPhotos").toBool() && row.value(u"status").toString() == u"done" &&
                   file.open(QIODevice::ReadOnly) && file.readAll() == content;
        });
    }

    bool isEveryFileListed() const {
        QSet<QString> listed;
        for (const QJsonObject &row : session_.rows()) {
            listed.insert(row.value(u"filePath").toString());
        }
        const QDir folder(session_.folder());
        const QStringList names = folder.entryList(QDir::Files | QDir::Hidden);
        return std::all_of(names.begin(), names.end(),
                           [&](const QString &name) { return listed.contains(folder.filePath(name)); });
    }

    UserSession session_;
    QList<QByteArray> dropped_;
    int number_ = 0;
};

int killed_test(int argc, char **argv) {
    return runTest<QGuiApplication, KilledTest>(argc, argv);
}
#include "killed_test.moc"
