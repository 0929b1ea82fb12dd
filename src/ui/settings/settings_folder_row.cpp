#include "ui/settings/settings_folder_row.h"

#include "ui/settings/settings_section.h"
#include "ui/widgets/elided_label.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QPushButton *makeButton(const QString &text, const QString &objectName, const QString &description,
                        QWidget *parent) {
    auto *const button = new QPushButton(text, parent);
    button->setObjectName(objectName);
    button->setAccessibleName(text);
    button->setAccessibleDescription(description);
    return button;
}

} // namespace

SettingsFolderRow::SettingsFolderRow(const QString &objectName, const QString &purpose, Reset reset,
                                     QWidget *parent)
    : QWidget(parent)
    , path_(new ElidedLabel(this)) {
    setObjectName(objectName);
    path_->setObjectName(objectName + u"Path"_s);
    path_->setAccessibleDescription(purpose);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, SettingsSection::endMargin, 0);
    layout->addWidget(path_, 1);
    if (reset == Reset::offered) {
        reset_ = makeButton(tr("Reset"), objectName + u"Reset"_s, purpose, this);
        layout->addWidget(reset_);
        connect(reset_, &QPushButton::clicked, this, &SettingsFolderRow::resetRequested);
    }
    choose_ = makeButton(tr("Choose…"), objectName + u"Choose"_s, purpose, this);
    layout->addWidget(choose_);
    connect(choose_, &QPushButton::clicked, this, &SettingsFolderRow::chooseRequested);
}

void SettingsFolderRow::showFolder(const std::optional<QString> &path, const QString &placeholder) {
    path_->showValue(path.value_or(placeholder), path.has_value());
    if (reset_ == nullptr) {
        return;
    }
    // A button that hides under the keyboard's focus would hand it to whatever comes next.
    if (!path && reset_->hasFocus()) {
        choose_->setFocus();
    }
    reset_->setVisible(path.has_value());
}

} // namespace fennick
