#pragma once

#include "engine/recognition/grey_picture.h"
#include "engine/recognition/text_line.h"

#include <QDeadlineTimer>

#include <chrono>
#include <memory>
#include <stop_token>

namespace tesseract {
class TessBaseAPI;
}

namespace fennick::engine {

// Printed text in pictures, read by Tesseract with its English data. One instance per thread.
class TextRecogniser {
public:
    TextRecogniser();
    ~TextRecogniser();

    // False when the language data is missing; nothing can be recognised then.
    bool isReady() const;

    // The lines of `picture`, from top to bottom, boxes and places in its pixels. None when `deadline`
    // passes, `mostProcessorTime` is used up or `stop` is requested first: Tesseract gives a page whole or
    // not at all.
    QList<TextLine> recognise(const GreyPicture &picture, int page,
                              std::chrono::nanoseconds mostProcessorTime, QDeadlineTimer deadline,
                              const std::stop_token &stop = {});

private:
    std::unique_ptr<tesseract::TessBaseAPI> tesseract_;
    bool ready_ = false;
};

} // namespace fennick::engine
