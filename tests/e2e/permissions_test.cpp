#include "support/striped_pdf.h"
#include "support/test_program.h"
#include "user_session.h"

#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>

#include <algorithm>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions readOnlyFolder = QFile::ReadOwner | QFile::ExeOwner;
constexpr QFile::Permissions usualFolder = readOnlyFolder | QFile::WriteOwner;

// Takes the leave to write into a folder for as long as it lives.
class ReadOnly {
public:
    explicit ReadOnly(QString folder)
        : folder_(std::move(folder)) {
        QFile::setPermissions(folder_, readOnlyFolder);
    }
    ~ReadOnly() { QFile::setPermissions(folder_, usualFolder); }

private:
    QString folder_;
};

} // namespace

// Folders that the user may not write into or look into, also when that changes while the program runs.
class PermissionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { session_.renew(); }
    void cleanup() { QVERIFY(session_.end()); }

    void readOnlyFolderKeepsItsFilesUnderTheirNames() {
        session_.drop(u"scan.pdf"_s, "a receipt");
        const ReadOnly folder(session_.folder());
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        QCOMPARE(session_.row(u"scan.pdf"_s).value(u"amount").toDouble(), 23.5);
        QCOMPARE(session_.files(), (QMap<QString, QByteArray>{{u"scan.pdf"_s, "a receipt"}}));
    }

    void listIsSavedAsSoonAsItMayBe() {
        session_.drop(u"first.pdf"_s, "first");
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        {
            const ReadOnly folder(session_.home.path(u"data/Fennick"_s));
            session_.drop(u"second.pdf"_s, "second");
            QVERIFY(session_.waitFor([this] { return session_.server.requests().size() == 2; }));
            QVERIFY(session_.waitFor([this] { return !session_.files().contains(u"second.pdf"_s); }));
            QCOMPARE(session_.rows().size(), 1); // the old list, whole
        }
        session_.drop(u"third.pdf"_s, "third");
        QVERIFY(session_.waitForRows(3, u"done"_s));
        QVERIFY(session_.waitFor([this] { return isEveryFileWhereTheListSays(); }));
    }

    void folderThatMayNotBeLookedIntoIsPassedOver() {
        const QString closed = session_.path(u"closed"_s);
        session_.drop(u"closed/hidden.pdf"_s, "hidden");
        session_.drop(u"open/seen.pdf"_s, "seen");
        QFile::setPermissions(closed, QFile::Permissions());
        QVERIFY(session_.start());
        session_.drop(u"open/later.pdf"_s, "later");
        QVERIFY(session_.waitForRows(2, u"done"_s));
        QFile::setPermissions(closed, usualFolder);
        session_.program.kill();
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(3, u"done"_s));
    }

    void readOnlyLibraryFailsTheDeliveryOnly() {
        session_.setPreference("addToPhotos", "true");
        const ReadOnly pictures(session_.home.path(u"Pictures"_s));
        session_.drop(u"scan.pdf"_s, stripedPdf(1));
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        QVERIFY(session_.waitFor([this] { return session_.row(lunchName).value(u"status") == u"done"_s; }));
        const QString images = session_.home.temporaryImages(); // where they stay for the user
        QVERIFY(session_.waitFor([&] {
            return QDirIterator(images, {u"*.jpg"_s}, QDir::Files, QDirIterator::Subdirectories).hasNext();
        }));
        QVERIFY(!session_.row(lunchName).value(u"addedToPhotos").toBool());
        QVERIFY(session_.program.isRunning());
    }

private:
    bool isEveryFileWhereTheListSays() const {
        const QList<QJsonObject> rows = session_.rows();
        return std::all_of(rows.begin(), rows.end(), [](const QJsonObject &row) {
            return QFile::exists(row.value(u"filePath").toString());
        });
    }

    UserSession session_;
};

int permissions_test(int argc, char **argv) {
    return runTest<QGuiApplication, PermissionsTest>(argc, argv);
}
#include "permissions_test.moc"
