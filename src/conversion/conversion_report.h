#pragma once

#include "conversion/converter_error.h"

#include <QByteArray>
#include <QStringList>

#include <expected>

namespace fennick {

// What the converter's process tells on its standard output, as JSON on one line.
QByteArray encodeReport(const std::expected<QStringList, ConverterError> &result);

// A report that is not whole, as after a crash, is a renderFailed error.
std::expected<QStringList, ConverterError> decodeReport(const QByteArray &report);

} // namespace fennick
