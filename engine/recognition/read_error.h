#pragma once

#include "documents/document_error.h"

#include <QString>

namespace fennick::engine {

// Why a document could not be read.
enum class ReadError {
    unreadableImage,
    imageTooLarge,
    unreadablePdf,
    pdfTooLarge,
    lockedPdf,
    emptyPdf,
    recogniserMissing,
    noReceipt,
    tookTooMuch, // memory or time
    abandoned,   // nobody waits for the answer any more
};

// What an error of the room that opens documents is to the engine.
[[nodiscard]] ReadError readErrorOf(DocumentError error);

// One English sentence for the caller.
[[nodiscard]] QString readErrorText(ReadError error);

} // namespace fennick::engine
