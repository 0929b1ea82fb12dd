// event_loop_stalls: the longest time in which the event loop of the pipeline serves nothing while it works,
// beside an event loop that has nothing to do.

#include "comparison_row.h"
#include "pipeline/pipeline_under_test.h"
#include "support/striped_pdf.h"

#include <QApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

class LongestStall {
public:
    LongestStall() {
        QObject::connect(&ticker_, &QTimer::timeout, &ticker_, [this] {
            longest_ = std::max(longest_, static_cast<double>(sinceTick_.nsecsElapsed()) / 1e6);
            sinceTick_.start();
        });
        sinceTick_.start();
        ticker_.start(1);
    }

    double milliseconds() const { return longest_; }

private:
    QTimer ticker_;
    QElapsedTimer sinceTick_;
    double longest_ = 0;
};

double stallAtRest() {
    const LongestStall stall;
    letTimePass(2000);
    return stall.milliseconds();
}

double stallUntil(const std::function<bool()> &condition) {
    const LongestStall stall;
    if (!waitUntil(condition, 60000)) {
        qFatal("The work did not end");
    }
    return stall.milliseconds();
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Surroundings surroundings;
    {
        PipelineUnderTest pipeline(surroundings);
        pipeline.start();
        pipeline.settings->setAddToPhotos(true);
        pipeline.drop(u"pages.pdf"_s, stripedPdf(20));
        pipeline.waitForRows(1, ReceiptStatus::done);
        const double ours = stallUntil([&] { return pipeline.receipts().first().addedToPhotos; });
        printRow("stall while 20 pages are delivered, at rest", ours, stallAtRest(), "ms");
    }
    PipelineUnderTest pipeline(surroundings);
    pipeline.start();
    pipeline.drop(u"large.pdf"_s, QByteArray(40'000'000, 'x'));
    const double ours = stallUntil([&] {
        return !pipeline.receipts().isEmpty() && pipeline.receipts().first().status == ReceiptStatus::done;
    });
    printRow("stall while 40 MB are sent and served, at rest", ours, stallAtRest(), "ms");
    return 0;
}
