#include "platform/photo_permission.h"
#include "support/conditions.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>

#include <optional>

using namespace fennick;
using namespace Qt::StringLiterals;
using test::writeFile;
using Status = PhotoPermission::Status;

namespace {

QMessageBox *question() {
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *const widget : widgets) {
        if (widget->objectName() == u"photosAccessQuestion" && widget->isVisible()) {
            return qobject_cast<QMessageBox *>(widget);
        }
    }
    return nullptr;
}

QCoro::Task<> ask(std::optional<Status> &answer) {
    answer = co_await PhotoPermission::request();
}

void clickButton(const QString &text) {
    const auto buttons = question()->buttons();
    for (QAbstractButton *const button : buttons) {
        if (button->text() == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL("no such button");
}

} // namespace

class PhotoPermissionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // QSettings looks up the user's folders once per process, hence one home for all tests.
    void init() {
        QFile::remove(home_.permissionsFile());
        QDir().mkpath(home_.path(u"Pictures"_s));
    }

    void statusIsReadFromThePermissionsFile_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<int>("status");
        QTest::newRow("nothing") << QByteArray() << 0;
        QTest::newRow("denied") << QByteArray("[General]\nphotos=denied\n") << 2;
        QTest::newRow("authorized") << QByteArray("[General]\nphotos=authorized\n") << 3;
        QTest::newRow("limited") << QByteArray("[General]\nphotos=limited\n") << 4;
    }
    void statusIsReadFromThePermissionsFile() {
        QFETCH(QByteArray, stored);
        QFETCH(int, status);
        writeFile(home_.permissionsFile(), stored);
        QCOMPARE(static_cast<int>(PhotoPermission::status()), status);
    }

    void picturesFolderThatIsNoFolderIsRestricted() {
        QDir(home_.path(u"Pictures"_s)).removeRecursively();
        writeFile(home_.path(u"Pictures"_s), "");
        QCOMPARE(PhotoPermission::status(), Status::restricted);
        QVERIFY(QFile::remove(home_.path(u"Pictures"_s)));
    }

    void allowIsRemembered() {
        std::optional<Status> answer;
        ask(answer);
        QVERIFY(fennick::test::waitUntil([&] { return question(); }));
        clickButton(u"Allow"_s);
        fennick::test::waitUntil([&] { return answer == Status::authorized; });
        QCOMPARE(answer, Status::authorized);
        QCOMPARE(PhotoPermission::status(), Status::authorized);
        QVERIFY(test::readFile(home_.permissionsFile()).contains("photos=authorized"));
    }

    void refusalIsRemembered() {
        std::optional<Status> answer;
        ask(answer);
        QVERIFY(fennick::test::waitUntil([&] { return question(); }));
        clickButton(u"Don’t Allow"_s);
        fennick::test::waitUntil([&] { return answer == Status::denied; });
        QCOMPARE(answer, Status::denied);
        QVERIFY(test::readFile(home_.permissionsFile()).contains("photos=denied"));
    }

    void closingTheQuestionDecidesNothing() {
        std::optional<Status> answer;
        ask(answer);
        QVERIFY(fennick::test::waitUntil([&] { return question(); }));
        QTest::keyClick(question(), Qt::Key_Escape);
        QVERIFY(fennick::test::waitUntil([&] { return answer.has_value(); }));
        QCOMPARE(PhotoPermission::status(), Status::notDetermined);
        QCOMPARE(answer, Status::notDetermined);
    }

    void twoRequestsShareOneQuestion() {
        std::optional<Status> first;
        std::optional<Status> second;
        ask(first);
        ask(second);
        QVERIFY(fennick::test::waitUntil([&] { return question(); }));
        clickButton(u"Allow"_s);
        fennick::test::waitUntil([&] { return first == Status::authorized; });
        QCOMPARE(first, Status::authorized);
        fennick::test::waitUntil([&] { return second == Status::authorized; });
        QCOMPARE(second, Status::authorized);
        QVERIFY(!question());
    }

private:
    test::TemporaryHome home_;
};

int photo_permission_test(int argc, char **argv) {
    return fennick::test::runTest<QApplication, PhotoPermissionTest>(argc, argv);
}
#include "photo_permission_test.moc"
