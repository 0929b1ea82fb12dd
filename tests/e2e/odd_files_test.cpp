#include "support/test_program.h"
#include "user_session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <filesystem>
#include <fstream>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString lunch = u"2024-05-01 Lunch - Dockside Deli $23.50"_s;

} // namespace

// Names and trees that a file system allows and few people have.
class OddFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { session_.renew(); }
    void cleanup() { QVERIFY(session_.end()); }

    void oddNamesAreTakenInAndRenamed_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("255 bytes") << QString(251, u'n') + u".pdf"_s;
        QTest::newRow("255 bytes of two each") << QString(125, u'é') + u"x.pdf"_s;
        QTest::newRow("right to left") << u"קבלה ממסעדה.pdf"_s;
        QTest::newRow("combining characters") << u"cafe\u0301 re\u0327u.pdf"_s;
        QTest::newRow("override") << u"bill\u202Efdp.pdf"_s;
        QTest::newRow("line feed") << u"two\nlines.pdf"_s;
        QTest::newRow("percent and places") << u"100%25 %1 %2 %L1.pdf"_s;
        QTest::newRow("markup") << u"<b>&amp;\"'.pdf"_s;
        QTest::newRow("blanks") << u"  .pdf"_s;
        QTest::newRow("outside the first plane") << u"🧾 receipt.pdf"_s;
    }
    void oddNamesAreTakenInAndRenamed() {
        QFETCH(QString, name);
        session_.drop(name, "lies there");
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        session_.drop(u"x"_s + name.mid(1), "arrives");
        QVERIFY(session_.waitForRows(2, u"done"_s));
        QVERIFY(session_.waitFor([this] {
            return session_.files().keys() == QStringList{lunch + u" (2).pdf"_s, lunch + u".pdf"_s};
        }));
    }

    // Qt has no text for such a name, so the file cannot be opened; it is left where it is.
    void nameThatIsNoUtf8IsListedUntilItIsRenamed() {
        const std::string folder = session_.folder().toStdString();
        std::ofstream(folder + "/caf\xE9.pdf") << "a receipt";
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(session_.row(u"caf\uFFFD.pdf"_s).value(u"error"),
                 u"The file's name cannot be read. Rename the file to scan it."_s);

        std::ofstream(folder + "/b\xFCro.pdf") << "another receipt";
        QVERIFY(session_.waitForRows(2, u"error"_s));
        std::ofstream(folder + "/caf\xE9.pdf") << "changed";
        session_.drop(u"good.pdf"_s);
        QVERIFY(session_.waitFor([this] { return isDone(lunch + u".pdf"_s); }));
        QCOMPARE(session_.rows().size(), 3);
        QVERIFY(std::filesystem::exists(folder + "/caf\xE9.pdf"));

        std::filesystem::rename(folder + "/caf\xE9.pdf", folder + "/renamed.pdf");
        QVERIFY(session_.waitFor([this] { return isDone(lunch + u" (2).pdf"_s); }));
        QCOMPARE(session_.server.requests().size(), 2);
    }

    void linksInCirclesAreNotFollowed() {
        QDir(session_.folder()).mkpath(u"a/b"_s);
        QFile::link(session_.folder(), session_.path(u"a/b/up"_s));
        QFile::link(u"loop"_s, session_.path(u"loop"_s));
        session_.drop(u"a/b/1.pdf"_s, "1");
        QVERIFY(session_.start());
        session_.drop(u"a/b/2.pdf"_s, "2");
        QVERIFY(session_.waitForRows(2, u"done"_s));
        QCOMPARE(session_.server.requests().size(), 2);
    }

    void linksNamedLikeReceiptsAreListedAndNotFollowed() {
        writeFile(session_.home.path(u"id_rsa"_s), "a key");
        const auto makeLinks = [this](const QString &when) {
            QFile::link(session_.home.path(u"id_rsa"_s), session_.path(when + u"key.pdf"_s));
            QFile::link(u"nowhere.pdf"_s, session_.path(when + u"nothing.pdf"_s));
            QFile::link(when + u"self.pdf"_s, session_.path(when + u"self.pdf"_s));
        };
        makeLinks(u"early-"_s);
        QVERIFY(session_.start());
        makeLinks(u"late-"_s);
        QVERIFY(session_.waitForRows(6, u"error"_s));
        for (const QJsonObject &row : session_.rows()) {
            QCOMPARE(row.value(u"error"),
                     u"The file is a link. Put the file itself into the folder to scan it."_s);
        }
        QVERIFY(session_.server.requests().isEmpty());
    }

    void twentyThousandFoldersAreWatched() {
        for (int folder = 0; folder < 20000; ++folder) {
            std::filesystem::create_directories(
                session_.path(u"%1/%2"_s.arg(folder / 200).arg(folder)).toStdString());
        }
        const QString last = u"99/19999/receipt.pdf"_s;
        session_.program.start();
        QVERIFY(session_.waitFor(
            [&] { return session_.program.isWatching(QFileInfo(session_.path(last)).path()); }));
        session_.drop(last);
        QVERIFY(session_.waitForRows(1, u"done"_s));
    }

private:
    bool isDone(const QString &name) const { return session_.row(name).value(u"status") == u"done"_s; }

    UserSession session_;
};

int odd_files_test(int argc, char **argv) {
    return runTest<QGuiApplication, OddFilesTest>(argc, argv);
}
#include "odd_files_test.moc"
