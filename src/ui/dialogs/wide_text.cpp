#include "ui/dialogs/wide_text.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QSpacerItem>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int textWidth = 420;

} // namespace

void widenText(QMessageBox *box) {
    if (auto *const layout = qobject_cast<QGridLayout *>(box->layout())) {
        layout->addItem(new QSpacerItem(textWidth, 0), layout->rowCount(), 0, 1, layout->columnCount());
    }
    if (auto *const title = box->findChild<QLabel *>(u"qt_msgbox_label"_s)) {
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
    }
}

} // namespace fennick
