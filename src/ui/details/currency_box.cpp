#include "ui/details/currency_box.h"

#include "text/currency_codes.h"

#include <QAbstractItemView>
#include <QStyle>
#include <QStyledItemDelegate>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Shows the name after the code.
class CurrencyDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = index.data(Qt::AccessibleTextRole).toString();
    }
};

} // namespace

CurrencyBox::CurrencyBox(QWidget *parent)
    : NamedComboBox(parent) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    const QStringList codes = currencyCodesInUse();
    for (const QString &code : codes) {
        addItem(code);
        setItemData(count() - 1, code + u"  "_s + currencyName(code, QLocale()), Qt::AccessibleTextRole);
    }
    setItemDelegate(new CurrencyDelegate(this));
    view()->setTextElideMode(Qt::ElideRight);
    view()->setMinimumWidth(view()->sizeHintForColumn(0) +
                            view()->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

} // namespace fennick
