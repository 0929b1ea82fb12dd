#include "ui/widgets/named_combo_box.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace fennick {

namespace {

class NamedComboBoxInterface : public QAccessibleWidget {
public:
    explicit NamedComboBoxInterface(NamedComboBox *box)
        : QAccessibleWidget(box, QAccessible::ComboBox)
        , box_(box) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? box_->currentText() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        state.editable = box_->isEditable();
        return state;
    }

    QStringList actionNames() const override { return {showMenuAction()}; }

    void doAction(const QString &name) override {
        if (name == showMenuAction()) {
            box_->showPopup();
        }
    }

private:
    NamedComboBox *box_;
};

QAccessibleInterface *makeNamedComboBoxInterface(const QString &, QObject *object) {
    auto *const box = qobject_cast<NamedComboBox *>(object);
    return box != nullptr ? new NamedComboBoxInterface(box) : nullptr;
}

} // namespace

NamedComboBox::NamedComboBox(QWidget *parent)
    : QComboBox(parent) {
    QAccessible::installFactory(makeNamedComboBoxInterface); // once, however often it is called
}

} // namespace fennick
