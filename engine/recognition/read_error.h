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
    TookTooMuch, // memory or time
    Abandoned,   // nobody waits for the answer any more
};

// The same for what the documents' decoders report.
ReadError readErrorOf(DocumentError error);

// One English sentence for the caller.
QString readErrorText(ReadError error);

} // namespace fennick::engine
