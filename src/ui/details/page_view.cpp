#include "ui/details/page_view.h"

#include "platform/regular_file.h"
#include "text/display_text.h"
#include "ui/details/field_name.h"
#include "ui/details/page_canvas.h"

#include <QBuffer>
#include <QImageReader>
#include <QLabel>
#include <QNativeGestureEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr double zoomStep = 1.25;
constexpr double mostZoom = 8;
constexpr int wheelStep = 120;     // of QWheelEvent::angleDelta
constexpr int longestSide = 5000;  // pixels; a picture has at most 3000, a long page of a PDF more
constexpr int mostEnlargement = 2; // of a small picture that is fitted to the width

// The picture in a file that the converter has written; null if it cannot be read.
QImage readPage(const QString &path) {
    const OpenedFile file = openRegularFile(path);
    QByteArray content = file ? readWhole(**file).value_or(QByteArray()) : QByteArray();
    QBuffer buffer(&content);
    QImageReader reader(&buffer, "jpeg");
    reader.setDecideFormatFromContent(false);
    if (const QSize size = reader.size(); std::max(size.width(), size.height()) > longestSide) {
        reader.setScaledSize(size.scaled(longestSide, longestSide, Qt::KeepAspectRatio));
    }
    return reader.read();
}

} // namespace

PageView::PageView(QWidget *parent)
    : QScrollArea(parent)
    , canvas_(new PageCanvas)
    , message_(new QLabel(viewport())) {
    setObjectName(u"pages"_s);
    setAccessibleName(tr("Page"));
    setWidget(canvas_);
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(NoFrame);
    setBackgroundRole(QPalette::Mid);
    message_->setObjectName(u"pagesMessage"_s);
    message_->setTextFormat(Qt::PlainText);
    message_->setAlignment(Qt::AlignCenter);
    message_->setWordWrap(true);
    auto *const layout = new QVBoxLayout(viewport());
    layout->addWidget(message_);
    connect(canvas_, &PageCanvas::markClicked, this, &PageView::markClicked);
    showMessage(QString());
}

void PageView::showPages(const QStringList &files) {
    files_ = files;
    emphasised_.reset();
    zoom_ = 1;
    page_ = -1;
    showPage(0);
}

void PageView::showMessage(const QString &text) {
    files_.clear();
    page_ = 0;
    canvas_->showImage({});
    canvas_->hide();
    message_->setText(displayText(text));
    message_->setVisible(!text.isEmpty());
    Q_EMIT pageChanged();
}

void PageView::showPage(qsizetype page) {
    if (page < 0 || page >= files_.size() || page == page_) {
        return;
    }
    page_ = page;
    canvas_->showImage(readPage(files_[page]));
    const bool isReadable = !canvas_->image().isNull();
    canvas_->setVisible(isReadable);
    message_->setText(isReadable ? QString() : tr("The page could not be read"));
    message_->setVisible(!isReadable);
    layOutPage();
    verticalScrollBar()->setValue(0);
    showMarksOfPage();
    Q_EMIT pageChanged();
}

void PageView::showMarks(const std::map<ReceiptField, PlaceOnPage> &places) {
    const bool isNew = emphasised_ && !places_.contains(*emphasised_);
    places_ = places;
    showMarksOfPage();
    if (isNew) {
        showEmphasised();
    }
}

void PageView::emphasise(ReceiptField field) {
    emphasised_ = field;
    showMarksOfPage();
    showEmphasised();
}

void PageView::showMarksOfPage() {
    QList<PageMark> marks;
    QStringList names;
    for (const auto &[field, place] : places_) {
        if (place.page == page_) {
            marks.append({field, place.area});
            names.append(fieldName(field));
        }
    }
    canvas_->showMarks(marks, emphasised_);
    //: For screen readers. %1 are names of fields, such as "Date, Amount".
    setAccessibleDescription(names.isEmpty() ? QString() : tr("Marked: %1").arg(names.join(u", "_s)));
}

void PageView::showEmphasised() {
    const auto place = emphasised_ ? places_.find(*emphasised_) : places_.end();
    if (place == places_.end() || place->second.page >= files_.size()) {
        return;
    }
    showPage(place->second.page);
    constexpr int surroundings = 40; // pixels
    const QRect frame = PageMark{place->first, place->second.area}.frameOn(canvas_->size()).toRect();
    ensureVisible(frame.center().x(), frame.center().y(), frame.width() / 2 + surroundings,
                  frame.height() / 2 + surroundings);
}

void PageView::zoomIn() {
    zoomTo(zoom_ * zoomStep);
}

void PageView::zoomOut() {
    zoomTo(zoom_ / zoomStep);
}

void PageView::fitWidth() {
    zoomTo(1);
}

// What is in the middle of the view stays there.
void PageView::zoomTo(double zoom) {
    const double before = std::exchange(zoom_, std::clamp(zoom, 1.0, mostZoom));
    const double growth = zoom_ / before;
    const auto middle = [](const QScrollBar *bar) {
        return bar->value() + bar->pageStep() / 2.0;
    };
    const double across = middle(horizontalScrollBar()) * growth;
    const double down = middle(verticalScrollBar()) * growth;
    layOutPage();
    horizontalScrollBar()->setValue(qRound(across - horizontalScrollBar()->pageStep() / 2.0));
    verticalScrollBar()->setValue(qRound(down - verticalScrollBar()->pageStep() / 2.0));
}

void PageView::layOutPage() {
    if (!canvas_->image().isNull()) {
        canvas_->resize((QSizeF(fittedPage()) * zoom_).toSize());
    }
}

// As wide as the view, beside a scroll bar if the page is longer than the view.
QSize PageView::fittedPage() const {
    const QSize image = canvas_->image().size();
    const QSize room = maximumViewportSize();
    const auto heightFor = [&image](int width) {
        return std::max(1, qRound(static_cast<double>(image.height()) * width / image.width()));
    };
    int width = room.width();
    if (heightFor(width) > room.height()) {
        width -= verticalScrollBar()->sizeHint().width();
    }
    width = std::clamp(width, 1, image.width() * mostEnlargement);
    return QSize(width, heightFor(width));
}

bool PageView::event(QEvent *event) {
    if (event->type() == QEvent::NativeGesture) {
        const auto *const gesture = static_cast<QNativeGestureEvent *>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            zoomTo(zoom_ * (1 + gesture->value()));
            return true;
        }
    }
    return QScrollArea::event(event);
}

void PageView::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    layOutPage();
}

void PageView::wheelEvent(QWheelEvent *event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QScrollArea::wheelEvent(event);
        return;
    }
    zoomTo(zoom_ * std::pow(zoomStep, static_cast<double>(event->angleDelta().y()) / wheelStep));
    event->accept();
}

// Up and Down are the window's, for the list. Space scrolls, as where pages are read.
void PageView::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Space) {
        const bool isBack = event->modifiers().testFlag(Qt::ShiftModifier);
        verticalScrollBar()->triggerAction(isBack ? QScrollBar::SliderPageStepSub
                                                  : QScrollBar::SliderPageStepAdd);
        return;
    }
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        event->ignore();
        return;
    }
    QScrollArea::keyPressEvent(event);
}

} // namespace fennick
