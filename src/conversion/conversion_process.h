#pragma once

#include "conversion/converter_error.h"

#include <QCoroTask>
#include <QStringList>

#include <chrono>
#include <expected>
#include <memory>

class QFile;

namespace fennick {

// ReceiptImageConverter in a process of its own with limits on memory and time: whatever a hostile document
// does to the libraries that read it, this program goes on. Main thread only.
namespace ConversionProcess {

// As ReceiptImageConverter::convertToJPEGs, without blocking. `program` is the path of the program
// `convert_receipt`, `file` the receipt, open and unread; `fileName` is its name. This file is converted even
// if it is renamed meanwhile. When the program crashes or runs into a limit (1 GiB of memory,
// `longestTime` of processor time, five times that on the clock), that is a renderFailed error.
QCoro::Task<std::expected<QStringList, ConverterError>>
convertToJPEGs(QString program, std::shared_ptr<QFile> file, QString fileName, QString baseName,
               std::chrono::seconds longestTime = std::chrono::seconds(60));

} // namespace ConversionProcess

} // namespace fennick
