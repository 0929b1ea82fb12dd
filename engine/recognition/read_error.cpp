#include "engine/recognition/read_error.h"

namespace fennick::engine {

using namespace Qt::StringLiterals;

ReadError readErrorOf(DocumentError error) {
    switch (error) {
    case DocumentError::unreadableImage:
        return ReadError::UnreadableImage;
    case DocumentError::imageTooLarge:
        return ReadError::ImageTooLarge;
    case DocumentError::unreadablePdf:
        return ReadError::UnreadablePdf;
    case DocumentError::pdfTooLarge:
        return ReadError::PdfTooLarge;
    case DocumentError::lockedPdf:
        return ReadError::LockedPdf;
    case DocumentError::emptyPdf:
        return ReadError::EmptyPdf;
    }
    return ReadError::UnreadablePdf;
}

QString readErrorText(ReadError error) {
    switch (error) {
    case ReadError::UnreadableImage:
        return u"The image cannot be decoded."_s;
    case ReadError::ImageTooLarge:
        return u"The image has too many pixels."_s;
    case ReadError::UnreadablePdf:
        return u"The document is not a readable PDF."_s;
    case ReadError::PdfTooLarge:
        return u"The PDF unpacks to more than can be read."_s;
    case ReadError::LockedPdf:
        return u"The document is protected by a password."_s;
    case ReadError::EmptyPdf:
        return u"The document has no pages."_s;
    case ReadError::RecogniserMissing:
        return u"The text recogniser cannot start: its language data for English is missing."_s;
    case ReadError::NoReceipt:
        return u"No receipt was found on the page."_s;
    case ReadError::TookTooMuch:
        return u"The document takes too much time or memory to read."_s;
    case ReadError::Abandoned:
        return u"The request was given up."_s;
    }
    return {};
}

} // namespace fennick::engine
