#include "desktop_test_case.h"
#include "kill_injection.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QStringList undoneNames = {u"one.txt"_s, u"two.txt"_s, u"three.txt"_s}; // which intake does not look at

} // namespace

// The program is killed right before a system call while it takes back an archive: the next start must
// complete that, or know nothing of it and be able to do it.
class KillUndoTest : public DesktopTestCase {
    Q_OBJECT

protected:
    QStringList missingPrograms() const override {
        return canInjectKills() ? QStringList() : QStringList(u"strace"_s);
    }

private Q_SLOTS:
    void archiveIsTakenBackByTheNextStart_data() {
        QTest::addColumn<int>("number");
        for (int number = 1; number <= 9; ++number) {
            QTest::addRow("rename %d", number) << number;
        }
    }
    void archiveIsTakenBackByTheNextStart() {
        QFETCH(int, number);
        archiveAll();
        session().program.start(QProcessEnvironment::systemEnvironment(),
                                killedRightBefore(u"rename,renameat2"_s, number));
        undo();
        session().waitFor([this] { return session().rows().size() == undoneNames.size(); });
        session().program.kill();
        checkContents();

        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        if (session().rows().isEmpty()) { // killed before it was begun
            user().press(mainTitle, u"ctrl+z"_s);
            QVERIFY(session().waitFor([this] { return session().rows().size() == undoneNames.size(); }));
        }
        QVERIFY(session().waitFor(
            [this] { return filesBelow(session().folder()).size() == undoneNames.size(); }));
        checkContents();
        for (const QString &name : undoneNames) {
            QCOMPARE(readFile(session().path(name)), name.toUtf8());
            QVERIFY(!session().row(name).isEmpty());
        }
        QCOMPARE(session().rows().size(), undoneNames.size());
        QCOMPARE(QJsonDocument::fromJson(readFile(session().home.ignoredFile())).array(), QJsonArray());
    }

private:
    // By the program, which then ends.
    void archiveAll() const {
        session().renew();
        QJsonArray rows;
        for (const QString &name : undoneNames) {
            session().drop(name, name.toUtf8());
            rows.append(QJsonObject{{u"id"_s, name},
                                    {u"fileName"_s, name},
                                    {u"filePath"_s, session().path(name)},
                                    {u"scannedAt"_s, u"2024-05-01T12:30:00Z"_s},
                                    {u"status"_s, u"done"_s}});
        }
        writeFile(session().home.receiptsFile(), QJsonDocument(rows).toJson());
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        user().chooseFromMenu(mainTitle, u"Archive & Clear"_s, 1);
        user().click(mainTitle, u"push button"_s, u"Export, Archive & Clear"_s);
        QVERIFY(session().waitFor([this] { return session().rows().isEmpty(); }));
        user().waitForWindow(mainTitle);
        QVERIFY(session().end());
    }

    // A kill may come before the window does.
    void undo() const {
        session().waitFor([] {
            const auto window = VirtualDesktop::window(mainTitle);
            return window && VirtualDesktop::isActive(*window);
        });
        if (session().program.isRunning()) {
            user().press(mainTitle, u"ctrl+z"_s);
        }
    }

    // Each file's content is there, whole.
    void checkContents() const {
        const QList<QByteArray> contents = filesBelow(session().folder());
        for (const QString &name : undoneNames) {
            QCOMPARE(contents.count(name.toUtf8()), 1);
        }
    }

    static QList<QByteArray> filesBelow(const QString &folder) {
        QList<QByteArray> contents;
        QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            contents.append(readFile(files.next()));
        }
        return contents;
    }
};

int kill_undo_test(int argc, char **argv) {
    return runTest<QCoreApplication, KillUndoTest>(argc, argv);
}
#include "kill_undo_test.moc"
