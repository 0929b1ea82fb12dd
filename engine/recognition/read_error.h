#pragma once

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
    TookTooMuch, // memory or time
    Abandoned,   // nobody waits for the answer any more
};

// One English sentence for the caller.
QString readErrorText(ReadError error);

} // namespace fennick::engine
