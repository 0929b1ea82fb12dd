#include "ui/dialogs/progress_panel.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace fennick {

using namespace Qt::StringLiterals;

ProgressPanel::ProgressPanel(const QString &title, int steps, QWidget *parent)
    : QDialog(parent)
    , text_(new QLabel(this))
    , bar_(new QProgressBar(this)) {
    constexpr int leastWidth = 320;
    setObjectName(u"progress"_s);
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    text_->setObjectName(u"progressText"_s);
    text_->setTextFormat(Qt::PlainText);
    text_->setMinimumWidth(leastWidth);
    bar_->setRange(0, steps);
    bar_->setAccessibleName(title);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(bar_);
    layout->addWidget(buttons);
}

void ProgressPanel::showProgress(int step, const QString &text) {
    bar_->setValue(step);
    text_->setText(text);
}

} // namespace fennick
