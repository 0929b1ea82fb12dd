#include "ui/details/field_name.h"

#include <QCoreApplication>

namespace fennick {

QString fieldName(ReceiptField field) {
    switch (field) {
    case ReceiptField::date:
        return QCoreApplication::translate("fennick::ReceiptForm", "Date");
    case ReceiptField::time:
        return QCoreApplication::translate("fennick::ReceiptForm", "Time");
    case ReceiptField::amount:
        return QCoreApplication::translate("fennick::ReceiptForm", "Amount");
    case ReceiptField::currency:
        return QCoreApplication::translate("fennick::ReceiptForm", "Currency");
    case ReceiptField::location:
        return QCoreApplication::translate("fennick::ReceiptForm", "Location");
    case ReceiptField::category:
        return QCoreApplication::translate("fennick::ReceiptForm", "Category");
    case ReceiptField::summary:
        return QCoreApplication::translate("fennick::ReceiptForm", "Summary");
    }
    Q_UNREACHABLE();
}

} // namespace fennick
