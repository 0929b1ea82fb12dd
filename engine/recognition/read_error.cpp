#include "engine/recognition/read_error.h"

namespace fennick::engine {

using namespace Qt::StringLiterals;

ReadError readErrorOf(DocumentError error) {
    switch (error) {
    case DocumentError::unreadableImage:
        return ReadError::unreadableImage;
    case DocumentError::imageTooLarge:
        return ReadError::imageTooLarge;
    case DocumentError::unreadablePdf:
        return ReadError::unreadablePdf;
    case DocumentError::pdfTooLarge:
        return ReadError::pdfTooLarge;
    case DocumentError::lockedPdf:
        return ReadError::lockedPdf;
    case DocumentError::emptyPdf:
        return ReadError::emptyPdf;
    }
    return ReadError::unreadablePdf;
}

QString readErrorText(ReadError error) {
    switch (error) {
    case ReadError::unreadableImage:
        return u"The image cannot be decoded."_s;
    case ReadError::imageTooLarge:
        return u"The image has too many pixels."_s;
    case ReadError::unreadablePdf:
        return u"The document is not a readable PDF."_s;
    case ReadError::pdfTooLarge:
        return u"The PDF unpacks to more than can be read."_s;
    case ReadError::lockedPdf:
        return u"The document is protected by a password."_s;
    case ReadError::emptyPdf:
        return u"The document has no pages."_s;
    case ReadError::recogniserMissing:
        return u"The text recogniser cannot start: its language data for English is missing."_s;
    case ReadError::noReceipt:
        return u"No receipt was found on the page."_s;
    case ReadError::tookTooMuch:
        return u"The document takes too much time or memory to read."_s;
    case ReadError::abandoned:
        return u"The request was given up."_s;
    }
    return {};
}

} // namespace fennick::engine
