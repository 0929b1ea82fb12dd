#include "ui/dialogs/undo_report.h"

#include "ui/dialogs/wide_text.h"
#include "ui/widgets/symbols.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int reportSymbolSize = 32;
constexpr qsizetype mostLinesAtOnce = 8;

QString summaryOf(const QStringList &problems) {
    const int more = static_cast<int>(problems.size() - mostLinesAtOnce);
    if (more <= 0) {
        return problems.join(u'\n');
    }
    return problems.first(mostLinesAtOnce).join(u'\n') + u'\n' +
           QCoreApplication::translate("UndoReport", "… and %n more", nullptr, more);
}

} // namespace

void showUndoReport(QWidget *parent, const QStringList &problems) {
    auto *const box = new QMessageBox(parent);
    box->setObjectName(u"undoReport"_s);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(u"Fennick"_s);
    box->setIconPixmap(symbolIcon(Symbol::warning, Tint::warning)
                           .pixmap(QSize(reportSymbolSize, reportSymbolSize), box->devicePixelRatio()));
    box->setTextFormat(Qt::PlainText); // names may look like markup
    box->setText(QCoreApplication::translate("UndoReport", "Not everything could be done."));
    box->setInformativeText(summaryOf(problems));
    if (problems.size() > mostLinesAtOnce) {
        box->setDetailedText(problems.join(u'\n'));
    }
    box->addButton(QMessageBox::Close);
    widenText(box);
    box->open();
}

} // namespace fennick
