#pragma once

#include <QString>

namespace fennick {

// Why a document could not be read.
enum class ReadError {
    UnreadableImage,
    ImageTooLarge,
    UnreadablePdf,
    LockedPdf,
    EmptyPdf,
    RecogniserMissing,
};

// One English sentence for the caller.
QString readErrorText(ReadError error);

} // namespace fennick
