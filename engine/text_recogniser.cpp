#include "engine/text_recogniser.h"

#include <allheaders.h>
#include <omp.h>
#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>

#include <algorithm>
#include <cmath>

namespace fennick {

namespace {

// Receipts are narrow: below this width their letters are smaller than the 20 pixels or so that Tesseract
// reads best.
constexpr int comfortableWidth = 1200;
constexpr double largestEnlargement = 3.0;
constexpr double comfortablePixels = 12e6;

QImage prepared(const QImage &picture) {
    const double pixels = static_cast<double>(picture.width()) * picture.height();
    double factor = static_cast<double>(comfortableWidth) / std::max(1, picture.width());
    factor = std::min({factor, largestEnlargement, std::sqrt(comfortablePixels / std::max(1.0, pixels))});
    QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    if (factor > 1.05) {
        grey = grey.scaled(grey.size() * factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return grey;
}

bool isPast(void *deadline, int) {
    return static_cast<QDeadlineTimer *>(deadline)->hasExpired();
}

// It reports oddities of pictures on the terminal, to nobody's use. The setting is the whole process's.
void silenceLeptonica() {
    static const int previous = setMsgSeverity(L_SEVERITY_NONE);
    Q_UNUSED(previous)
}

QString lineText(const tesseract::ResultIterator &line) {
    const std::unique_ptr<char[]> text(line.GetUTF8Text(tesseract::RIL_TEXTLINE));
    return text ? QString::fromUtf8(text.get()).simplified() : QString();
}

} // namespace

TextRecogniser::TextRecogniser()
    : tesseract_(std::make_unique<tesseract::TessBaseAPI>()) {
    silenceLeptonica();
    ready_ = tesseract_->Init(nullptr, "eng", tesseract::OEM_LSTM_ONLY) == 0;
    if (!ready_) {
        return;
    }
    tesseract_->SetVariable("debug_file", "/dev/null");
    // One block of lines across the whole width: columns would part the labels from their amounts.
    tesseract_->SetPageSegMode(tesseract::PSM_SINGLE_BLOCK);
}

TextRecogniser::~TextRecogniser() = default;

bool TextRecogniser::isReady() const {
    return ready_;
}

QList<TextLine> TextRecogniser::recognise(const QImage &picture, int page, QDeadlineTimer deadline) {
    if (!ready_ || picture.isNull()) {
        return {};
    }
    // Requests are the unit of parallel work; Tesseract's own threads only get in each other's way.
    omp_set_max_active_levels(0);
    const QImage grey = prepared(picture);
    tesseract_->SetImage(grey.constBits(), grey.width(), grey.height(), 1,
                         static_cast<int>(grey.bytesPerLine()));
    tesseract_->SetSourceResolution(300);

    tesseract::ETEXT_DESC monitor;
    monitor.cancel = isPast;
    monitor.cancel_this = &deadline;
    if (tesseract_->Recognize(&monitor) != 0) {
        return {};
    }

    const std::unique_ptr<tesseract::ResultIterator> line(tesseract_->GetIterator());
    QList<TextLine> fragments;
    if (!line) {
        return {};
    }
    do {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        const QString text = lineText(*line);
        if (text.isEmpty() || !line->BoundingBox(tesseract::RIL_TEXTLINE, &left, &top, &right, &bottom)) {
            continue;
        }
        fragments.append({.text = text,
                          .box = QRectF(left, top, right - left, bottom - top),
                          .confidence = static_cast<double>(line->Confidence(tesseract::RIL_TEXTLINE)) / 100,
                          .page = page});
    } while (line->Next(tesseract::RIL_TEXTLINE));
    tesseract_->Clear();
    return joinedRows(fragments);
}

} // namespace fennick
