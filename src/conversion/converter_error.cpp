#include "conversion/converter_error.h"

#include <QCoreApplication>

namespace fennick {

QString ConverterError::errorDescription() const {
    switch (kind) {
    case Kind::unsupported:
        //: %1 is a file name extension.
        return QCoreApplication::translate("ConverterError", "Unsupported file type: .%1").arg(payload);
    case Kind::pdfLoad:
        return QCoreApplication::translate("ConverterError", "Could not open PDF");
    case Kind::renderFailed:
        return QCoreApplication::translate("ConverterError", "Could not render page image");
    case Kind::encodeFailed:
        return QCoreApplication::translate("ConverterError", "Could not encode JPEG");
    case Kind::platform:
        break;
    }
    return payload;
}

} // namespace fennick
