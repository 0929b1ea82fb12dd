#pragma once

#include "conversion/converter_error.h"

#include <QCoroTask>
#include <QStringList>

#include <chrono>
#include <expected>
#include <memory>
#include <stop_token>

class QFile;

namespace fennick {

// Runs ReceiptImageConverter in a process of its own with limits on memory and time: whatever a hostile
// document does to the libraries that read it, this program keeps running. Main thread only.
namespace ConversionProcess {

// As ReceiptImageConverter::convertToJPEGs, without blocking. `program` is the path of the program
// `convert_receipt`, `file` the receipt, open and unread; `fileName` is its name. This file is converted even
// if it is renamed meanwhile. A crash of the program, or a limit that it exceeds (1 GiB of memory,
// `longestTime` of processor time, five times that on the clock), is a renderFailed error.
[[nodiscard]] QCoro::Task<std::expected<QStringList, ConverterError>>
convertToJPEGs(QString program, std::shared_ptr<QFile> file, QString fileName, QString baseName,
               std::chrono::seconds longestTime = std::chrono::seconds(60));

// The same into an existing folder. The converter is ended as soon as `stop` is requested, on this thread;
// the result is a renderFailed error then. The caller removes the folder.
[[nodiscard]] QCoro::Task<std::expected<QStringList, ConverterError>>
convertInto(QString program, QString folder, std::shared_ptr<QFile> file, QString fileName, QString baseName,
            std::stop_token stop, std::chrono::seconds longestTime = std::chrono::seconds(60));

} // namespace ConversionProcess

} // namespace fennick
