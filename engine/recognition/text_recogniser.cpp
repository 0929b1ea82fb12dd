#include "engine/recognition/text_recogniser.h"

#include "platform/library_threads.h"
#include "platform/thread_time.h"

#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>

#include <mutex>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// In heights of a line, from its lowest to its highest stroke.
constexpr double columnGap = 1.2;

QRectF boxOf(const tesseract::ResultIterator &position, tesseract::PageIteratorLevel level) {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    if (!position.BoundingBox(level, &left, &top, &right, &bottom)) {
        return {};
    }
    return QRectF(left, top, right - left, bottom - top);
}

// Puts the words of the line at `word`, which is left on the line's last one, into `line`. Two spaces mark a
// gap that no blank between words is as wide as: the next column.
void addWords(TextLine &line, tesseract::ResultIterator &word) {
    QString &text = line.text;
    double previousRight = 0;
    while (true) {
        const std::unique_ptr<char[]> utf8(word.GetUTF8Text(tesseract::RIL_WORD));
        const QString written = utf8 ? QString::fromUtf8(utf8.get()).simplified() : QString();
        const QRectF box = boxOf(word, tesseract::RIL_WORD);
        if (!written.isEmpty()) {
            if (!text.isEmpty()) {
                text += box.left() - previousRight > columnGap * line.box.height() ? u"  "_s : u" "_s;
            }
            line.pieces.append({.start = text.size(), .length = written.size(), .place = box});
            text += written;
            previousRight = box.right();
        }
        if (word.IsAtFinalElement(tesseract::RIL_TEXTLINE, tesseract::RIL_WORD) ||
            !word.Next(tesseract::RIL_WORD)) {
            return;
        }
    }
}

struct Patience {
    QDeadlineTimer deadline;
    std::chrono::nanoseconds latest; // of the thread's processor time
    std::stop_token stop;
};

bool isOver(void *patience, int) {
    const auto *given = static_cast<Patience *>(patience);
    return given->deadline.hasExpired() || given->stop.stop_requested() ||
           threadProcessorTime() > given->latest;
}

} // namespace

TextRecogniser::TextRecogniser()
    : tesseract_(std::make_unique<tesseract::TessBaseAPI>()) {
    // Tesseract keeps this one for the whole process, and other threads may be reading it already.
    static std::once_flag isQuiet;
    std::call_once(isQuiet, [this] { tesseract_->SetVariable("debug_file", "/dev/null"); });
    ready_ = tesseract_->Init(nullptr, "eng", tesseract::OEM_LSTM_ONLY) == 0;
    if (!ready_) {
        return;
    }
    // One block of lines across the whole width: columns would part the labels from their amounts.
    tesseract_->SetPageSegMode(tesseract::PSM_SINGLE_BLOCK);
}

TextRecogniser::~TextRecogniser() = default;

bool TextRecogniser::isReady() const {
    return ready_;
}

QList<TextLine> TextRecogniser::recognise(const GreyPicture &picture, int page,
                                          std::chrono::nanoseconds mostProcessorTime, QDeadlineTimer deadline,
                                          const std::stop_token &stop) {
    if (!ready_ || !picture) {
        return {};
    }
    // Requests are the unit of parallel work; Tesseract's own threads only get in each other's way.
    keepLibrariesOnThisThread();
    tesseract_->SetImage(picture.get());
    tesseract_->SetSourceResolution(300);

    tesseract::ETEXT_DESC monitor;
    Patience patience{
        .deadline = deadline, .latest = threadProcessorTime() + mostProcessorTime, .stop = stop};
    monitor.cancel = isOver;
    monitor.cancel_this = &patience;
    if (tesseract_->Recognize(&monitor) != 0) {
        return {};
    }

    const std::unique_ptr<tesseract::ResultIterator> line(tesseract_->GetIterator());
    QList<TextLine> fragments;
    if (!line) {
        return {};
    }
    do {
        TextLine fragment{.text = {},
                          .box = boxOf(*line, tesseract::RIL_TEXTLINE),
                          .confidence = static_cast<double>(line->Confidence(tesseract::RIL_TEXTLINE)) / 100,
                          .page = page};
        tesseract::ResultIterator word(*line);
        addWords(fragment, word);
        if (!fragment.text.isEmpty() && !fragment.box.isNull()) {
            fragments.append(fragment);
        }
    } while (line->Next(tesseract::RIL_TEXTLINE));
    tesseract_->Clear();
    return joinedRows(fragments);
}

} // namespace fennick::engine
