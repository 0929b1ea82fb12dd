#include "pipeline/field_problem.h"

#include <QCoreApplication>

namespace fennick {

QString FieldProblem::description() const {
    switch (kind) {
    case Kind::unknownDay:
        //: %1 is a day that does not exist, such as "31 February".
        return QCoreApplication::translate("FieldProblem", "There is no %1").arg(payload);
    case Kind::unknownMonth:
        //: %1 is a number.
        return QCoreApplication::translate("FieldProblem", "There is no month %1").arg(payload);
    case Kind::unclearDate:
        //: %1 is a date as the user's locale writes it.
        return QCoreApplication::translate("FieldProblem", "Write the date like 2024-05-31 or %1")
            .arg(payload);
    case Kind::unclearTime:
        return QCoreApplication::translate("FieldProblem", "Write the time like 14:30");
    case Kind::unclearAmount:
        //: %1 is a number as the user's locale writes it.
        return QCoreApplication::translate("FieldProblem", "Write the amount like %1").arg(payload);
    case Kind::unknownCurrency:
        //: %1 is what was typed.
        return QCoreApplication::translate("FieldProblem", "There is no currency “%1”").arg(payload);
    case Kind::unknownCategory:
        //: %1 is what was typed.
        return QCoreApplication::translate("FieldProblem", "There is no category “%1”").arg(payload);
    }
    Q_UNREACHABLE();
}

} // namespace fennick
