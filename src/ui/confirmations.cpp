#include "ui/confirmations.h"

#include <QMessageBox>
#include <QPushButton>

namespace fennick::Confirmations {

namespace {

bool ask(QWidget *parent, const QString &objectName, const QString &title, const QString &message,
         const QString &confirmText, QMessageBox::ButtonRole confirmRole) {
    QMessageBox box(parent);
    box.setObjectName(objectName);
    box.setIcon(QMessageBox::Question);
    box.setWindowTitle(QMessageBox::tr("Fennick"));
    box.setTextFormat(Qt::PlainText); // paths may look like markup
    box.setText(title);
    box.setInformativeText(message);
    const QPushButton *const confirm = box.addButton(confirmText, confirmRole);
    QPushButton *const cancel = box.addButton(QMessageBox::tr("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.exec();
    return box.clickedButton() == confirm;
}

} // namespace

bool confirmClear(QWidget *parent) {
    return ask(parent, QStringLiteral("clearConfirmation"),
               QMessageBox::tr("Clear all receipts from the list?"),
               QMessageBox::tr("This empties the list. Your renamed files stay in the folder and won't be "
                               "re-scanned."),
               QMessageBox::tr("Clear All"), QMessageBox::DestructiveRole);
}

bool confirmArchive(QWidget *parent, const QString &formatName, qsizetype receipts,
                    const QString &destination) {
    const QString files = receipts == 1 ? QMessageBox::tr("receipt file") : QMessageBox::tr("receipt files");
    const QString message =
        QMessageBox::tr("Saves a %1 ledger and moves %2 %3 into “%4”, then clears the list. Your "
                        "Photos are unaffected.")
            .arg(formatName, QString::number(receipts), files, destination);
    return ask(parent, QStringLiteral("archiveConfirmation"),
               QMessageBox::tr("Export, archive, and clear this batch?"), message,
               QMessageBox::tr("Export, Archive && Clear"), QMessageBox::AcceptRole);
}

} // namespace fennick::Confirmations
