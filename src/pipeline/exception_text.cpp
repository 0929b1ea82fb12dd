#include "pipeline/exception_text.h"

#include <QCoreApplication>
#include <QException>

#include <new>

namespace fennick {

QString exceptionText(const std::exception_ptr &exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const QUnhandledException &unhandled) {
        if (unhandled.exception()) {
            return exceptionText(unhandled.exception());
        }
    } catch (const std::bad_alloc &) {
        return QCoreApplication::translate("Exception", "There is not enough memory for this file.");
    } catch (const std::exception &known) {
        return QCoreApplication::translate("Exception", "Something unexpected happened: %1")
            .arg(QString::fromLocal8Bit(known.what()));
    } catch (...) {
        Q_UNUSED(exception)
    }
    return QCoreApplication::translate("Exception", "Something unexpected happened.");
}

} // namespace fennick
