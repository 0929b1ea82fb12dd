#include "ui/dialogs/confirmations.h"

#include "text/display_text.h"
#include "ui/dialogs/wide_text.h"
#include "ui/widgets/symbols.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include <functional>

namespace fennick::Confirmations {

using namespace Qt::StringLiterals;

namespace {

constexpr int messageSymbolSize = 32;

struct Question {
    QString objectName;
    Symbol symbol;
    QString title;
    std::function<QString()> message; // of the moment
    QString confirmText;
    QMessageBox::ButtonRole confirmRole;
};

// The message follows `list`, if there is one, while the question is open.
bool ask(QWidget *parent, const Question &question, const ReceiptStore *list = nullptr) {
    QMessageBox box(parent);
    box.setObjectName(question.objectName);
    box.setIconPixmap(symbolIcon(question.symbol)
                          .pixmap(QSize(messageSymbolSize, messageSymbolSize), parent->devicePixelRatio()));
    box.setWindowTitle(u"Fennick"_s);
    box.setTextFormat(Qt::PlainText); // paths may look like markup
    box.setText(question.title);
    box.setInformativeText(question.message());
    if (list != nullptr) {
        QObject::connect(list, &ReceiptStore::receiptsChanged, &box,
                         [&box, &question] { box.setInformativeText(question.message()); });
    }
    const QPushButton *const confirm = box.addButton(question.confirmText, question.confirmRole);
    QPushButton *const cancel =
        box.addButton(QCoreApplication::translate("Confirmations", "Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    widenText(&box);
    box.exec();
    return box.clickedButton() == confirm;
}

// Two texts, since English is shown as it stands here, while a translation has plural forms of each.
QString archiveMessage(int receipts) {
    if (receipts == 1) {
        //: %1 is CSV or HTML, %2 a folder.
        return QCoreApplication::translate("Confirmations",
                                           "Saves a %1 ledger and moves %n receipt file into “%2”, then "
                                           "clears the list. Your Photos are unaffected.",
                                           nullptr, receipts);
    }
    //: %1 is CSV or HTML, %2 a folder.
    return QCoreApplication::translate("Confirmations",
                                       "Saves a %1 ledger and moves %n receipt files into “%2”, then clears "
                                       "the list. Your Photos are unaffected.",
                                       nullptr, receipts);
}

} // namespace

bool confirmClear(QWidget *parent) {
    const Question question{
        u"clearConfirmation"_s,
        Symbol::clear,
        QCoreApplication::translate("Confirmations", "Clear all receipts from the list?"),
        [] {
            return QCoreApplication::translate(
                "Confirmations", "This empties the list. Your renamed files stay in the folder and won't be "
                                 "re-scanned.");
        },
        QCoreApplication::translate("Confirmations", "Clear All"),
        QMessageBox::DestructiveRole};
    return ask(parent, question);
}

bool confirmArchive(QWidget *parent, const QString &formatName, const ReceiptStore *store,
                    const QString &destination) {
    const Question question{
        u"archiveConfirmation"_s,
        Symbol::archive,
        QCoreApplication::translate("Confirmations", "Export, archive, and clear this batch?"),
        [&] {
            return archiveMessage(static_cast<int>(store->receipts().size()))
                .arg(formatName, displayText(destination));
        },
        QCoreApplication::translate("Confirmations", "Export, Archive && Clear"),
        QMessageBox::AcceptRole};
    return ask(parent, question, store);
}

bool confirmOpen(QWidget *parent, int files) {
    const Question question{u"openConfirmation"_s,
                            Symbol::warning,
                            QCoreApplication::translate("Confirmations", "Open %n files?", nullptr, files),
                            [] {
                                return QCoreApplication::translate(
                                    "Confirmations",
                                    "Each opens in the program that your desktop uses for it.");
                            },
                            QCoreApplication::translate("Confirmations", "Open All"),
                            QMessageBox::AcceptRole};
    return ask(parent, question);
}

bool confirmReadAgain(QWidget *parent, int corrected) {
    const Question question{
        u"readAgainConfirmation"_s,
        Symbol::warning,
        QCoreApplication::translate("Confirmations", "Read again and lose your corrections?"),
        [corrected] {
            return corrected == 1 ? QCoreApplication::translate(
                                        "Confirmations",
                                        "You have corrected one of these receipts by hand. What is read "
                                        "now takes the place of what you typed.")
                                  : QCoreApplication::translate(
                                        "Confirmations",
                                        "You have corrected %n of these receipts by hand. What is read "
                                        "now takes the place of what you typed.",
                                        nullptr, corrected);
        },
        QCoreApplication::translate("Confirmations", "Read Again"),
        QMessageBox::DestructiveRole};
    return ask(parent, question);
}

bool confirmDiscard(QWidget *parent) {
    const Question question{
        u"discardConfirmation"_s,
        Symbol::warning,
        QCoreApplication::translate("Confirmations", "Quit without saving your corrections?"),
        [] {
            return QCoreApplication::translate(
                "Confirmations", "You have changed fields in the receipt details and not saved them.");
        },
        QCoreApplication::translate("Confirmations", "Quit Without Saving"),
        QMessageBox::DestructiveRole};
    return ask(parent, question);
}

} // namespace fennick::Confirmations
