#include "engine/recognition/picture_reader.h"

#include "engine/recognition/page_cutter.h"
#include "engine/recognition/recognition_passes.h"
#include "engine/recognition/text_recogniser.h"

#include <QDeadlineTimer>
#include <QSemaphore>
#include <QThread>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

namespace fennick::engine {

namespace {

using namespace std::chrono_literals;

// For all pages and passes. Callers give up after a minute, part of which a document may have waited for its
// turn; what is read by then is worth more than nothing. A pass over a page takes half a second or so.
constexpr auto recognitionTime = 25s;
constexpr size_t passesAtOnce = 2;
// Of its 0 to 1: lines on their head come out below.
constexpr double sureLine = 0.6;
// How much more must be legible for a page to be turned; and letters per page below which that is tried.
constexpr double clearlyBetter = 1.5;
constexpr double hardlyLegible = 20;
// Processor time for one look at a page, and at a part of it. Of 30 German receipts as many values were right
// with it as with twice as much. Grass, cloth and wood, which look like endless small letters, take far more.
constexpr auto longestLook = 3s;
constexpr auto longestSampleLook = 1s;

QSemaphore freeProcessors(std::max(1, QThread::idealThreadCount()));

// The lines of a strip as lines of its page.
Reading placed(Reading lines, int top, const QTransform &toPage) {
    for (TextLine &line : lines) {
        line.box.translate(0, top);
        for (TextPiece &piece : line.pieces) {
            piece.place = toPage.mapRect(piece.place.translated(0, top));
        }
    }
    return lines;
}

// How many letters were surely read.
double legibility(const Reading &reading) {
    double letters = 0;
    for (const TextLine &line : reading) {
        if (line.confidence >= sureLine) {
            letters += static_cast<double>(std::ranges::count_if(
                line.text, [](QChar character) { return character.isLetterOrNumber(); }));
        }
    }
    return letters;
}

// One pass at a time over all pages of a document, on a thread of its own.
class PassReader {
public:
    Reading read(const QList<PdfPage> &pages, const std::vector<PreparedPage> &prepared, size_t pass,
                 QDeadlineTimer deadline, const std::stop_token &stop) {
        Reading reading;
        for (qsizetype page = 0; page < pages.size(); ++page) {
            if (pages[page].picture.isNull()) {
                reading += pages[page].lines;
                continue;
            }
            if (!freeProcessors.tryAcquire(1, static_cast<int>(deadline.remainingTime()))) {
                return reading;
            }
            const QSemaphoreReleaser processor(freeProcessors);
            if (stop.stop_requested()) {
                return reading;
            }
            const RecognitionPass &way = recognitionPasses[pass];
            const DerivedPicture picture = pictureFor(prepared[static_cast<size_t>(page)], way);
            for (const PageStrip &strip : headingAndRest(picture.picture, way.letterHeight)) {
                reading += placed(
                    recogniser_.recognise(strip.picture, static_cast<int>(page), longestLook, deadline, stop),
                    strip.top, picture.toSource);
            }
        }
        return reading;
    }

    // Whether the page can be read better with its top at the bottom.
    bool isUpsideDown(const PreparedPage &page, QDeadlineTimer deadline, const std::stop_token &stop) {
        PreparedPage sample = sampleOf(page);
        const double asItIs = legibilityOf(sample, deadline, stop);
        turnUpsideDown(sample);
        return legibilityOf(sample, deadline, stop) > clearlyBetter * asItIs;
    }

    bool isReady() const { return recogniser_.isReady(); }

private:
    double legibilityOf(const PreparedPage &sample, QDeadlineTimer deadline, const std::stop_token &stop) {
        return legibility(recogniser_.recognise(pictureFor(sample, recognitionPasses.front()).picture, 0,
                                                longestSampleLook, deadline, stop));
    }

    TextRecogniser recogniser_;
};

// Ends early when `stop` is requested.
std::vector<PreparedPage> prepared(const QList<PdfPage> &pages, const std::stop_token &stop) {
    std::vector<PreparedPage> ready;
    for (const PdfPage &page : pages) {
        if (stop.stop_requested()) {
            break;
        }
        ready.push_back(preparedPage(page.picture));
    }
    return ready;
}

// A pass and the one after it, at the same time.
std::array<Reading, passesAtOnce> readTwice(std::array<PassReader, passesAtOnce> &readers,
                                            const QList<PdfPage> &pages,
                                            const std::vector<PreparedPage> &prepared, size_t pass,
                                            QDeadlineTimer deadline, const std::stop_token &stop) {
    std::array<Reading, passesAtOnce> pair;
    {
        const std::jthread other(
            [&] { pair[1] = readers[1].read(pages, prepared, pass + 1, deadline, stop); });
        pair[0] = readers[0].read(pages, prepared, pass, deadline, stop);
    }
    return pair;
}

// Whether any page was turned.
bool turnIfUpsideDown(std::vector<PreparedPage> &pages, PassReader &reader, QDeadlineTimer deadline,
                      const std::stop_token &stop) {
    bool isAnyTurned = false;
    for (PreparedPage &page : pages) {
        if (!page.wasOnItsSide && reader.isUpsideDown(page, deadline, stop)) {
            turnUpsideDown(page);
            isAnyTurned = true;
        }
    }
    return isAnyTurned;
}

} // namespace

std::expected<QList<Reading>, ReadError>
readPages(const QList<PdfPage> &pages, const std::function<bool(const QList<Reading> &readings)> &isEnough,
          const std::stop_token &stop) {
    const bool hasPictures =
        std::ranges::any_of(pages, [](const PdfPage &page) { return !page.picture.isNull(); });
    if (!hasPictures) {
        Reading text;
        for (const PdfPage &page : pages) {
            text += page.lines;
        }
        return QList<Reading>{text};
    }

    const QDeadlineTimer deadline(recognitionTime);
    std::array<PassReader, passesAtOnce> readers;
    if (!readers.front().isReady()) {
        return std::unexpected(ReadError::recogniserMissing);
    }
    std::vector<PreparedPage> ready = prepared(pages, stop);
    for (PreparedPage &page : ready) {
        if (page.wasOnItsSide && readers.front().isUpsideDown(page, deadline, stop)) {
            turnUpsideDown(page);
        }
    }
    QList<Reading> readings;
    bool mayBeUpsideDown = true;
    size_t pass = 0;
    while (pass + 1 < recognitionPasses.size()) {
        if (stop.stop_requested()) {
            return std::unexpected(ReadError::abandoned);
        }
        const auto pair = readTwice(readers, pages, ready, pass, deadline, stop);
        const bool isLegible = std::ranges::any_of(
            pair, [](const Reading &reading) { return legibility(reading) >= hardlyLegible; });
        if (std::exchange(mayBeUpsideDown, false) && !isLegible &&
            turnIfUpsideDown(ready, readers.front(), deadline, stop)) {
            continue; // with the same pass
        }
        readings << pair[0] << pair[1];
        if (deadline.hasExpired() || isEnough(readings)) {
            break;
        }
        pass += passesAtOnce;
    }
    if (stop.stop_requested()) {
        return std::unexpected(ReadError::abandoned);
    }
    const bool isAnyLegible = std::ranges::any_of(
        readings, [](const Reading &reading) { return legibility(reading) >= hardlyLegible; });
    if (deadline.hasExpired() && !isAnyLegible) {
        return std::unexpected(ReadError::tookTooMuch);
    }
    return readings;
}

} // namespace fennick::engine
