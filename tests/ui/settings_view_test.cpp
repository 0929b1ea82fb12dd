#include "settings_view_under_test.h"
#include "support/conditions.h"
#include "support/test_program.h"
#include "ui/widgets/caption_label.h"
#include "ui/widgets/elided_label.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QShowEvent>

#include <algorithm>
#include <cstdlib>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class SettingsViewTest : public SettingsViewUnderTest {
    Q_OBJECT

private Q_SLOTS:
    void freshInstallationShowsTheDefaults() {
        show();
        QCOMPARE(path("watchFolderPath")->fullText(), u"None selected"_s);
        QCOMPARE(path("archiveFolderPath")->fullText(),
                 u"Default: “Receipt Archive” inside the watched folder"_s);
        QVERIFY(!button("archiveFolderReset")->isVisible());
        QCOMPARE(field("apiKey")->text(), QString());
        QVERIFY(!control<CaptionLabel>("keySaved")->isVisible());
        QCOMPARE(field("model")->text(), u"gemini-2.5-flash"_s);
        QVERIFY(toggle("addToPhotos")->isChecked());
        QVERIFY(toggle("groupIntoAlbum")->isChecked());
        QVERIFY(toggle("groupIntoAlbum")->isEnabled());
        QVERIFY(!toggle("launchAtLogin")->isChecked());
        QVERIFY(!toggle("menuBarMode")->isChecked());
        QVERIFY(button("grantPhotosAccess")->isVisible());
    }

    void everyTextStandsInItsPlace() {
        show();
        QCOMPARE(shownTexts(),
                 QStringList({u"# Watched Folder"_s,
                              u"None selected"_s,
                              u"Choose…"_s,
                              u"New PDFs and photos dropped here are scanned automatically."_s,
                              u"# Gemini"_s,
                              u"API Key"_s,
                              u"Save Key"_s,
                              u"Model"_s,
                              u"Default: gemini-2.5-flash"_s,
                              u"# Photos Export"_s,
                              u"Add receipts to Photos"_s,
                              u"Converts each receipt to JPEG and adds it to Photos, so iCloud syncs "
                              "it to your iPhone for Workday's mobile Scan Receipt. Each photo is "
                              "named after the receipt."_s,
                              u"Group into a dated album"_s,
                              u"Everything you process in one sitting goes into an album named "
                              "“Expenses: <today's date>”, which also syncs to your iPhone."_s,
                              u"Grant Photos Access"_s,
                              u"# Archive"_s,
                              u"“Archive & Clear” saves each batch — the receipt files and a "
                              "CSV/HTML ledger — into a dated subfolder here."_s,
                              u"Default: “Receipt Archive” inside the watched folder"_s,
                              u"Choose…"_s,
                              u"# Startup & Background"_s,
                              u"Launch at login"_s,
                              u"Run in menu bar (hide Dock icon)"_s}));
    }

    void everyControlCanBeNamed() {
        show();
        const auto children = view_->findChildren<QWidget *>();
        int controls = 0;
        for (QWidget *const child : children) {
            const bool isControl = qobject_cast<QAbstractButton *>(child) != nullptr ||
                                   qobject_cast<QLineEdit *>(child) != nullptr;
            if (isControl) {
                QVERIFY(!child->objectName().isEmpty());
                QVERIFY2(!child->accessibleName().isEmpty(), qPrintable(child->objectName()));
                ++controls;
            }
        }
        QCOMPARE(controls, 11);
        QCOMPARE(labelOf(field("apiKey")), u"API Key"_s);
        QCOMPARE(labelOf(field("model")), u"Model"_s);
    }

    void windowKeepsItsSizeAndScrollsUpAndDownOnly_data() {
        QTest::addColumn<double>("scale");
        QTest::newRow("the desktop's font") << 1.0;
        QTest::newRow("a large font") << 1.8;
    }
    void windowKeepsItsSizeAndScrollsUpAndDownOnly() {
        QFETCH(double, scale);
        const QFont before = QApplication::font();
        QFont larger = before;
        larger.setPointSizeF(before.pointSizeF() * scale);
        QApplication::setFont(larger);
        create();
        settings_->setArchiveFolderPath(home_.path(u"a/long/path/to/an/archive/folder/far/away"_s));
        show();
        const bool isNarrow = form()->minimumSizeHint().width() <= scrollArea()->viewport()->width();
        QApplication::setFont(before);

        QCOMPARE(view_->size(), QSize(460, 520));
        QCOMPARE(view_->minimumSize(), view_->maximumSize());
        QVERIFY(isNarrow);
        QVERIFY(!scrollArea()->horizontalScrollBar()->isVisible());
        QScrollBar *const bar = scrollArea()->verticalScrollBar();
        QVERIFY(bar->isVisible());
        bar->setValue(bar->maximum());
        QVERIFY(isInSight(toggle("menuBarMode")));
    }

    void switchesAreTheirPreferences_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("key");
        QTest::newRow("add to Photos") << QByteArray("addToPhotos") << QByteArray("addToPhotos");
        QTest::newRow("album") << QByteArray("groupIntoAlbum") << QByteArray("groupIntoAlbum");
        QTest::newRow("launch at login") << QByteArray("launchAtLogin") << QByteArray("openAtLogin");
        QTest::newRow("menu bar") << QByteArray("menuBarMode") << QByteArray("menuBarMode");
    }
    void switchesAreTheirPreferences() {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, key);
        writeFile(home_.permissionsFile(), "[General]\nphotos=authorized\n");
        show();
        QCheckBox *const checkBox = toggle(name.constData());
        const bool before = checkBox->isChecked();
        click(checkBox);
        QCOMPARE(checkBox->isChecked(), !before);
        QCOMPARE(storedPreference(key), before ? QByteArray("false") : QByteArray("true"));
        QTest::keyClick(checkBox, Qt::Key_Space);
        QCOMPARE(checkBox->isChecked(), before);
        QCOMPARE(storedPreference(key), before ? QByteArray("true") : QByteArray("false"));
    }

    void changesFromElsewhereShowAtOnce() {
        writeFile(home_.permissionsFile(), "[General]\nphotos=authorized\n");
        show();
        settings_->setAddToPhotos(false);
        settings_->setGroupIntoAlbum(false);
        settings_->setOpenAtLogin(true);
        settings_->setMenuBarMode(true);
        QVERIFY(!toggle("addToPhotos")->isChecked());
        QVERIFY(!toggle("groupIntoAlbum")->isChecked());
        QVERIFY(toggle("launchAtLogin")->isChecked());
        QVERIFY(toggle("menuBarMode")->isChecked());
    }

    void typingSurvivesMinimising() {
        show();
        type(field("apiKey"), u"half a ke"_s);
        // As the window system tells it.
        for (const QEvent::Type shownOrHidden : {QEvent::Hide, QEvent::Show}) {
            const std::unique_ptr<QEvent> event(
                shownOrHidden == QEvent::Show ? static_cast<QEvent *>(new QShowEvent) : new QHideEvent);
            QSpontaneKeyEvent::setSpontaneous(event.get());
            QVERIFY(QApplication::instance()->notify(view_.get(), event.get()));
        }
        QCOMPARE(field("apiKey")->text(), u"half a ke"_s);
    }

    void keysCloseTheWindow_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifier");
        QTest::addColumn<bool>("isInField");
        QTest::newRow("Esc") << static_cast<int>(Qt::Key_Escape) << static_cast<int>(Qt::NoModifier) << false;
        QTest::newRow("Ctrl+W") << static_cast<int>(Qt::Key_W) << static_cast<int>(Qt::ControlModifier)
                                << false;
        QTest::newRow("Esc in a field")
            << static_cast<int>(Qt::Key_Escape) << static_cast<int>(Qt::NoModifier) << true;
        QTest::newRow("Ctrl+W in a field")
            << static_cast<int>(Qt::Key_W) << static_cast<int>(Qt::ControlModifier) << true;
    }
    void keysCloseTheWindow() {
        QFETCH(int, key);
        QFETCH(int, modifier);
        QFETCH(bool, isInField);
        show();
        if (isInField) {
            field("model")->setFocus();
        }
        QTest::keyClick(isInField ? static_cast<QWidget *>(field("model")) : view_.get(),
                        static_cast<Qt::Key>(key), static_cast<Qt::KeyboardModifier>(modifier));
        QVERIFY(!view_->isVisible());
    }

    void tabGoesFromTopToBottomAndScrollsAlong() {
        settings_->setArchiveFolderPath(u"/archive"_s);
        show();
        QStringList order;
        for (int i = 0; i < 11; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order.append(QApplication::focusWidget()->objectName());
            QVERIFY2(isInSight(QApplication::focusWidget()), qPrintable(order.last()));
        }
        QCOMPARE(order,
                 QStringList({u"watchFolderChoose"_s, u"apiKey"_s, u"saveKey"_s, u"model"_s, u"addToPhotos"_s,
                              u"groupIntoAlbum"_s, u"grantPhotosAccess"_s, u"archiveFolderReset"_s,
                              u"archiveFolderChoose"_s, u"launchAtLogin"_s, u"menuBarMode"_s}));
    }

    void switchShowsItsStateAndItsFocus() {
        writeFile(home_.permissionsFile(), "[General]\nphotos=authorized\n");
        show();
        QCheckBox *const checkBox = toggle("groupIntoAlbum");
        const QImage on = checkBox->grab().toImage();
        checkBox->setFocus();
        QVERIFY(checkBox->grab().toImage() != on);
        field("model")->setFocus();
        QCOMPARE(checkBox->grab().toImage(), on);
        settings_->setAddToPhotos(false);
        QVERIFY(checkBox->grab().toImage() != on);
        settings_->setAddToPhotos(true);
        settings_->setGroupIntoAlbum(false);
        QVERIFY(checkBox->grab().toImage() != on);
    }

private:
    // What is shown, top to bottom and from the left: titles with a hash before them, labels and buttons.
    QStringList shownTexts() const {
        QList<std::pair<QPoint, QString>> texts;
        const auto children = form()->findChildren<QWidget *>();
        for (const QWidget *const child : children) {
            const QString text = textOf(child);
            if (child->isVisible() && !text.isEmpty()) {
                const QPoint centre = child->mapTo(form(), QPoint(0, child->height() / 2));
                // What stands on one line is centred on it, give or take a pixel.
                texts.append({QPoint(child->inherits("QGroupBox") ? 0 : centre.x(),
                                     child->inherits("QGroupBox") ? child->y() : centre.y()),
                              text});
            }
        }
        std::sort(texts.begin(), texts.end(), [](const auto &one, const auto &other) {
            const int down = one.first.y() - other.first.y();
            return std::abs(down) > 4 ? down < 0 : one.first.x() < other.first.x();
        });
        QStringList sorted;
        for (const auto &[position, text] : texts) {
            sorted.append(text);
        }
        return sorted;
    }

    static QString textOf(const QWidget *widget) {
        if (const auto *const section = qobject_cast<const QGroupBox *>(widget)) {
            return u"# "_s + section->accessibleName();
        }
        if (const auto *const elided = qobject_cast<const ElidedLabel *>(widget)) {
            return elided->fullText();
        }
        if (const auto *const label = qobject_cast<const QLabel *>(widget)) {
            return label->text();
        }
        const auto *const anyButton = qobject_cast<const QAbstractButton *>(widget);
        return anyButton == nullptr ? QString() : anyButton->text();
    }

    QString labelOf(const QWidget *buddy) const {
        const auto labels = view_->findChildren<QLabel *>();
        for (const QLabel *const label : labels) {
            if (label->buddy() == buddy) {
                return label->text();
            }
        }
        return {};
    }
};

int settings_view_test(int argc, char **argv) {
    return runTest<QApplication, SettingsViewTest>(argc, argv);
}
#include "settings_view_test.moc"
