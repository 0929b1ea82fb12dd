#include "ui/confirmations.h"

#include "text/display_text.h"
#include "ui/symbols.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSpacerItem>

namespace fennick::Confirmations {

namespace {

constexpr int symbolSize = 32;
constexpr int textWidth = 420; // wide enough for a path

// QMessageBox makes its text as narrow as it can; and its title is no more than a line of the text.
void widen(QMessageBox *box) {
    if (auto *const layout = qobject_cast<QGridLayout *>(box->layout())) {
        layout->addItem(new QSpacerItem(textWidth, 0), layout->rowCount(), 0, 1, layout->columnCount());
    }
    if (auto *const title = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))) {
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
    }
}

bool ask(QWidget *parent, const QString &objectName, Symbol symbol, const QString &title,
         const QString &message, const QString &confirmText, QMessageBox::ButtonRole confirmRole) {
    QMessageBox box(parent);
    box.setObjectName(objectName);
    box.setIconPixmap(symbolIcon(symbol).pixmap(QSize(symbolSize, symbolSize), parent->devicePixelRatio()));
    box.setWindowTitle(QMessageBox::tr("Fennick"));
    box.setTextFormat(Qt::PlainText); // paths may look like markup
    box.setText(title);
    box.setInformativeText(message);
    const QPushButton *const confirm = box.addButton(confirmText, confirmRole);
    QPushButton *const cancel = box.addButton(QMessageBox::tr("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    widen(&box);
    box.exec();
    return box.clickedButton() == confirm;
}

} // namespace

bool confirmClear(QWidget *parent) {
    return ask(parent, QStringLiteral("clearConfirmation"), Symbol::clear,
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
            .arg(formatName, QString::number(receipts), files, displayText(destination));
    return ask(parent, QStringLiteral("archiveConfirmation"), Symbol::archive,
               QMessageBox::tr("Export, archive, and clear this batch?"), message,
               QMessageBox::tr("Export, Archive && Clear"), QMessageBox::AcceptRole);
}

} // namespace fennick::Confirmations
