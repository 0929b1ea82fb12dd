#pragma once

#include "documents/document_error.h"

#include <QString>

namespace fennick::engine {

// Why a document could not be read.
enum class ReadError {
    UnreadableImage,
    ImageTooLarge,
    UnreadablePdf,
    PdfTooLarge,
    LockedPdf,
    EmptyPdf,
    RecogniserMissing,
    NoReceipt,
    TookTooMuch, // memory or time
    Abandoned,   // nobody waits for the answer any more
};

// What an error of the room that opens documents is to the engine.
[[nodiscard]] ReadError readErrorOf(DocumentError error);

// One English sentence for the caller.
[[nodiscard]] QString readErrorText(ReadError error);

} // namespace fennick::engine
