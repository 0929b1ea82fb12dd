#include "platform/photo_permission.h"
#include "settings_view_under_test.h"
#include "support/conditions.h"
#include "support/test_program.h"
#include "ui/widgets/caption_label.h"

#include <QApplication>
#include <QMessageBox>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

QMessageBox *accessQuestion() {
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *const widget : widgets) {
        if (widget->objectName() == u"photosAccessQuestion" && widget->isVisible()) {
            return qobject_cast<QMessageBox *>(widget);
        }
    }
    return nullptr;
}

bool answerAccessQuestion(const QString &answer) {
    if (!waitUntil([] { return accessQuestion() != nullptr; })) {
        return false;
    }
    const auto buttons = accessQuestion()->buttons();
    for (QAbstractButton *const button : buttons) {
        if (button->text() == answer) {
            QTest::mouseClick(button, Qt::LeftButton);
            return true;
        }
    }
    return false;
}

} // namespace

class SettingsPhotosTest : public SettingsViewUnderTest {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() {
        if (QMessageBox *const question = accessQuestion(); question != nullptr) {
            question->reject();
        }
    }

    void albumIsDisabledWithoutPhotosAndKeepsItsValue() {
        writeFile(home_.permissionsFile(), "[General]\nphotos=authorized\n");
        show();
        click(toggle("addToPhotos"));
        QVERIFY(!toggle("groupIntoAlbum")->isEnabled());
        QVERIFY(toggle("groupIntoAlbum")->isChecked());
        click(toggle("groupIntoAlbum"));
        QVERIFY(settings_->groupIntoAlbum());
        click(toggle("addToPhotos"));
        QVERIFY(toggle("groupIntoAlbum")->isEnabled());
        QVERIFY(toggle("groupIntoAlbum")->isChecked());
    }

    void photosStatusIsReadEachTimeTheWindowAppears_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QByteArray>("shown");
        QTest::newRow("not determined") << QByteArray() << QByteArray("grantPhotosAccess");
        QTest::newRow("authorised") << QByteArray("[General]\nphotos=authorized\n")
                                    << QByteArray("photosGranted");
        QTest::newRow("limited") << QByteArray("[General]\nphotos=limited\n") << QByteArray("photosGranted");
        QTest::newRow("denied") << QByteArray("[General]\nphotos=denied\n") << QByteArray("photosDenied");
    }
    void photosStatusIsReadEachTimeTheWindowAppears() {
        QFETCH(QByteArray, stored);
        QFETCH(QByteArray, shown);
        show();
        view_->close();
        writeFile(home_.permissionsFile(), stored);
        show();
        QCOMPARE(shownStatuses(), QList<QByteArray>{shown});
        QVERIFY(accessQuestion() == nullptr);
    }

    void picturesFolderThatCannotBeWrittenShowsAsDenied() {
        QDir(home_.path(u"Pictures"_s)).removeRecursively();
        writeFile(home_.path(u"Pictures"_s), "no folder");
        show();
        const auto shown = shownStatuses();
        QVERIFY(QFile::remove(home_.path(u"Pictures"_s)));
        QCOMPARE(shown, QList<QByteArray>{"photosDenied"});
        QCOMPARE(control<CaptionLabel>("photosDenied")->text(),
                 u"Photos access denied — enable in System Settings ▸ Privacy"_s);
    }

    void grantingAccessShowsIt_data() {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QByteArray>("shown");
        QTest::newRow("allowed") << u"Allow"_s << QByteArray("photosGranted");
        QTest::newRow("refused") << u"Don’t Allow"_s << QByteArray("photosDenied");
        QTest::newRow("put off") << u"Not Now"_s << QByteArray("grantPhotosAccess");
    }
    void grantingAccessShowsIt() {
        QFETCH(QString, answer);
        QFETCH(QByteArray, shown);
        show();
        click(button("grantPhotosAccess"));
        QVERIFY(answerAccessQuestion(answer));
        QVERIFY(waitUntil([&] { return shownStatuses() == QList<QByteArray>{shown}; }));
        QCOMPARE(control<CaptionLabel>("photosGranted")->text(), u"Photos access granted"_s);
    }

    void turningPhotosOnAsksForAccess() {
        settings_->setAddToPhotos(false);
        create();
        show();
        QVERIFY(accessQuestion() == nullptr);
        click(toggle("addToPhotos"));
        QVERIFY(answerAccessQuestion(u"Allow"_s));
        QVERIFY(waitUntil([this] { return shownStatuses() == QList<QByteArray>{"photosGranted"}; }));
    }

    void turningPhotosOnShowsADecisionMadeMeanwhile() {
        settings_->setAddToPhotos(false);
        create();
        show();
        writeFile(home_.permissionsFile(), "[General]\nphotos=denied\n");
        click(toggle("addToPhotos"));
        QVERIFY(waitUntil([this] { return shownStatuses() == QList<QByteArray>{"photosDenied"}; }));
        QVERIFY(accessQuestion() == nullptr);
    }

    void turningPhotosOffAndTheInitialValueAskNothing() {
        show();
        click(toggle("addToPhotos"));
        letTimePass(50);
        QVERIFY(accessQuestion() == nullptr);
        QCOMPARE(shownStatuses(), QList<QByteArray>{"grantPhotosAccess"});
    }

    void windowMayGoWhileAQuestionIsOpen() {
        show();
        click(button("grantPhotosAccess"));
        QVERIFY(waitUntil([] { return accessQuestion() != nullptr; }));
        view_.reset();
        QVERIFY(answerAccessQuestion(u"Allow"_s));
        QVERIFY(waitUntil([] { return PhotoPermission::status() == PhotoPermission::Status::authorized; }));
    }

private:
    QList<QByteArray> shownStatuses() const {
        QList<QByteArray> shown;
        for (const char *const name : {"photosGranted", "photosDenied", "grantPhotosAccess"}) {
            if (control<QWidget>(name)->isVisible()) {
                shown.append(name);
            }
        }
        return shown;
    }
};

int settings_photos_test(int argc, char **argv) {
    return runTest<QApplication, SettingsPhotosTest>(argc, argv);
}
#include "settings_photos_test.moc"
