#pragma once

#include "conversion/converter_error.h"

#include <QByteArray>
#include <QStringList>

#include <expected>

namespace fennick {

// What the converter's process writes to its standard output, as JSON on one line.
[[nodiscard]] QByteArray encodeReport(const std::expected<QStringList, ConverterError> &result);

// An incomplete report, as after a crash, is a renderFailed error.
[[nodiscard]] std::expected<QStringList, ConverterError> decodeReport(const QByteArray &report);

} // namespace fennick
