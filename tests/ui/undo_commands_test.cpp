#include "main_window_under_test.h"
#include "next_dialog.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QLineEdit>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class UndoCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { under_.renew(); }
    void cleanup() { under_.close(); }

    void textsNameTheDeed() {
        QCOMPARE(under_.action("undo")->text(), u"Undo"_s);
        QVERIFY(!under_.action("undo")->isEnabled());
        QVERIFY(!under_.action("redo")->isEnabled());
        QCOMPARE(under_.action("undo")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
        QCOMPARE(under_.action("redo")->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
        removeOne();
        QCOMPARE(under_.action("undo")->text(), u"Undo Remove from List"_s);
        under_.action("undo")->trigger();
        QVERIFY(!under_.action("undo")->isEnabled());
        QCOMPARE(under_.action("redo")->text(), u"Redo Remove from List"_s);
    }

    void keysUndoAndRedo() {
        removeOne();
        QTest::keyClick(under_.window.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(under_.store->receipts().size(), 2);
        QTest::keyClick(under_.window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(under_.store->receipts().size(), 1);
    }

    void keyInTheLineOfFindUndoesTyping() {
        removeOne();
        under_.action("find")->trigger();
        auto *const line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(line != nullptr);
        QTest::keyClicks(line, u"deli"_s);
        QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(line->text(), QString());
        QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier); // nothing left to undo there
        QCOMPARE(under_.store->receipts().size(), 1);
    }

    void ampersandOfAPlaceIsShown() {
        Receipt receipt = finishedReceipt(under_.addFile(u"a.pdf"_s));
        receipt.location = u"Fish & Chips"_s;
        under_.store->add(receipt);
        const FieldFormats formats{QLocale::c(), QLocale::c()};
        QVERIFY(under_.appState->correct(receipt.id, {{ReceiptField::summary, u"typed"_s}}, formats));
        QCOMPARE(under_.action("undo")->text(), u"Undo Correction of “Fish && Chips”"_s);
    }

    void whatCouldNotBeUndoneIsShown() {
        removeOne();
        QVERIFY(QFile::remove(under_.watched + u"/a.pdf"_s));
        QString text;
        onNextDialog<QMessageBox>([&text](QMessageBox *box) {
            text = box->informativeText();
            box->close();
        });
        under_.action("undo")->trigger();
        QVERIFY(waitUntil([&text] { return !text.isEmpty(); }));
        QCOMPARE(text, u"a.pdf: The file is no longer there."_s);
        QCOMPARE(under_.store->receipts().size(), 2);
    }

private:
    // Of two.
    void removeOne() {
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s}) {
            under_.store->add(finishedReceipt(under_.addFile(name)));
        }
        QTest::keyClick(under_.window.get(), Qt::Key_F20); // no Shift or Ctrl of an earlier key is held
        under_.table()->selectRow(0);
        under_.action("removeFromList")->trigger();
        QCOMPARE(under_.store->receipts().size(), 1);
    }

    MainWindowUnderTest under_;
};

int undo_commands_test(int argc, char **argv) {
    return runTest<QApplication, UndoCommandsTest>(argc, argv);
}
#include "undo_commands_test.moc"
