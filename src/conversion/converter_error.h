#pragma once

#include <QString>

namespace fennick {

// Why a receipt could not be turned into pictures.
struct ConverterError {
    enum class Kind { unsupported, pdfLoad, renderFailed, encodeFailed, platform };

    Kind kind;
    // unsupported: the file's extension in lower case; platform: the system's own description.
    QString payload;

    // A sentence for the user, without a full stop.
    [[nodiscard]] QString errorDescription() const;
};

} // namespace fennick
