#pragma once

#include <QByteArray>

namespace fennick {

// Whether the cross-reference and object streams of the PDF in `bytes` unpack to a size that fits into memory
// (PDF 1.7, 7.5.7 and 7.5.8). libqpdf unpacks them whole, up to a thousand times their size, as soon as it
// opens a file. True for a file without any; also false for filters that no program uses for these streams.
[[nodiscard]] bool hasBoundedTables(const QByteArray &bytes);

} // namespace fennick
