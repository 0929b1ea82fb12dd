#include "ui/details/details_window.h"

#include "extraction/gemini_error.h"
#include "pipeline/app_state.h"
#include "platform/file_manager.h"
#include "text/display_text.h"
#include "text/path_text.h"
#include "ui/details/evidence_marks.h"
#include "ui/details/page_view.h"
#include "ui/details/receipt_form.h"
#include "ui/widgets/remembered_geometry.h"

#include <QDateTime>
#include <QFocusEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize detailsSize(920, 640);
constexpr QSize leastDetailsSize(640, 420);
constexpr int detailsMargin = 16;
constexpr int fieldSideWidth = 360;
constexpr int factSpacing = 6;

// A link in it has the focus as soon as the label has, not only after another press of the key.
class LinkLabel : public QLabel {
protected:
    void focusInEvent(QFocusEvent *event) override {
        QLabel::focusInEvent(event);
        if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
            focusNextPrevChild(true);
        }
    }
};

QString statusInWords(ReceiptStatus status) {
    switch (status) {
    case ReceiptStatus::processing:
        return DetailsWindow::tr("Processing");
    case ReceiptStatus::done:
        return DetailsWindow::tr("Done");
    case ReceiptStatus::error:
        return DetailsWindow::tr("Error");
    }
    Q_UNREACHABLE();
}

QString momentInWords(const QString &scannedAt) {
    const QDateTime moment = QDateTime::fromString(scannedAt, Qt::ISODate);
    return moment.isValid() ? QLocale::system().toString(moment.toLocalTime(), QLocale::ShortFormat)
                            : displayText(scannedAt);
}

QString linkTo(const QString &target, const QString &text) {
    return u"<a href=\"%1\">%2</a>"_s.arg(target.toHtmlEscaped(), text.toHtmlEscaped());
}

} // namespace

DetailsWindow::DetailsWindow(ReceiptStore *store, AppState *appState)
    : QWidget(nullptr, Qt::Window)
    , store_(store)
    , appState_(appState) {
    setObjectName(u"details"_s);
    setWindowTitle(tr("Receipt Details") + u"[*]"_s);
    setMinimumSize(leastDetailsSize);
    resize(detailsSize);
    new RememberedGeometry(this);
    auto *const halves = new QSplitter;
    halves->addWidget(makePageSide());
    halves->addWidget(makeFieldSide());
    halves->setStretchFactor(0, 1);
    halves->setCollapsible(0, false);
    halves->setCollapsible(1, false);
    halves->setSizes({detailsSize.width() - fieldSideWidth, fieldSideWidth});
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(halves);
    new EvidenceMarks(appState->evidence(), form_, pages_, this);
    addShortcuts();
    for (QWidget *const widget : std::initializer_list<QWidget *>{save_, revert_, previousPage_, nextPage_}) {
        widget->installEventFilter(this);
    }
    connect(store, &ReceiptStore::receiptsChanged, this, &DetailsWindow::dropDraftsOfRemoved);
    connect(&naming_, &QFutureWatcherBase::finished, this, &DetailsWindow::showFileName);
    connect(appState->pages(), &ReceiptPages::changed, this, &DetailsWindow::showPages);
    showReceipt(std::nullopt);
}

// A field that loses the focus with the window may still change its text.
DetailsWindow::~DetailsWindow() {
    form_->disconnect(this);
}

QWidget *DetailsWindow::makePageSide() {
    auto *const side = new QWidget;
    pages_ = new PageView;
    pageBar_ = new QWidget;
    pageNumber_ = new QLabel;
    pageNumber_->setObjectName(u"pageNumber"_s);
    const auto makeTurn = [](const char *objectName, Qt::ArrowType arrow, const QString &name) {
        auto *const button = new QToolButton;
        button->setObjectName(QLatin1StringView(objectName));
        button->setArrowType(arrow);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(name);
        button->setToolTip(name);
        return button;
    };
    previousPage_ = makeTurn("previousPage", Qt::LeftArrow, tr("Previous Page"));
    nextPage_ = makeTurn("nextPage", Qt::RightArrow, tr("Next Page"));
    auto *const bar = new QHBoxLayout(pageBar_);
    bar->setContentsMargins(0, 4, 0, 4);
    bar->addStretch();
    bar->addWidget(previousPage_);
    bar->addWidget(pageNumber_);
    bar->addWidget(nextPage_);
    bar->addStretch();
    auto *const layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(pages_, 1);
    layout->addWidget(pageBar_);
    connect(previousPage_, &QToolButton::clicked, pages_, &PageView::showPreviousPage);
    connect(nextPage_, &QToolButton::clicked, pages_, &PageView::showNextPage);
    connect(pages_, &PageView::pageChanged, this, &DetailsWindow::showPageNumber);
    return side;
}

QWidget *DetailsWindow::makeFieldSide() {
    fieldSide_ = new QWidget;
    form_ = new ReceiptForm(formats_);
    status_ = makeFact(u"status"_s);
    error_ = makeFact(u"error"_s);
    duplicate_ = new LinkLabel;
    duplicate_->setObjectName(u"duplicate"_s);
    duplicate_->setTextFormat(Qt::RichText);
    duplicate_->setWordWrap(true);
    duplicate_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    fileName_ = makeFact(u"fileNameAfter"_s);
    photos_ = makeFact(u"photos"_s);
    scannedAt_ = makeFact(u"scannedAt"_s);
    facts_ = new QFormLayout;
    facts_->setVerticalSpacing(factSpacing);
    facts_->setLabelAlignment(Qt::AlignLeading | Qt::AlignTop);
    facts_->addRow(tr("Status"), status_);
    facts_->addRow(tr("Reason"), error_);
    //: Follows: the name of another receipt's file, as a link.
    facts_->addRow(tr("Possible duplicate of"), duplicate_);
    facts_->addRow(tr("File name"), fileName_);
    facts_->addRow(tr("Photos"), photos_);
    facts_->addRow(tr("Scanned"), scannedAt_);
    //: Stores the corrected fields.
    save_ = new QPushButton(tr("Save"));
    save_->setObjectName(u"saveFields"_s);
    //: Takes back what was typed.
    revert_ = new QPushButton(tr("Revert"));
    revert_->setObjectName(u"revertFields"_s);
    auto *const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(revert_);
    buttons->addWidget(save_);
    auto *const layout = new QVBoxLayout(fieldSide_);
    layout->setContentsMargins(detailsMargin, detailsMargin, detailsMargin, detailsMargin);
    layout->setSpacing(detailsMargin);
    layout->addWidget(form_);
    layout->addLayout(buttons);
    layout->addLayout(facts_);
    layout->addStretch();
    connect(duplicate_, &QLabel::linkActivated, this, &DetailsWindow::goToDuplicate);
    connect(appState_->duplicates(), &PossibleDuplicates::changed, this, &DetailsWindow::showDuplicate);
    connect(form_, &ReceiptForm::edited, this, &DetailsWindow::keepDraft);
    connect(save_, &QPushButton::clicked, this, &DetailsWindow::save);
    connect(revert_, &QPushButton::clicked, this, &DetailsWindow::revert);

    auto *const area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(fieldSide_);
    area->installEventFilter(this);
    area->setMinimumWidth(fieldSide_->minimumSizeHint().width());
    return area;
}

QLabel *DetailsWindow::makeFact(const QString &objectName) {
    auto *const label = new QLabel;
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void DetailsWindow::addShortcuts() {
    const auto onKeys = [this](const QKeySequence &keys, auto *receiver, auto does) {
        connect(new QShortcut(keys, this), &QShortcut::activated, receiver, does);
    };
    onKeys(Qt::CTRL | Qt::Key_S, save_, &QPushButton::click);
    onKeys(Qt::Key_Escape, this, &QWidget::close);
    onKeys(Qt::CTRL | Qt::Key_W, this, &QWidget::close);
    onKeys(Qt::Key_PageUp, pages_, &PageView::showPreviousPage);
    onKeys(Qt::Key_PageDown, pages_, &PageView::showNextPage);
    onKeys(Qt::CTRL | Qt::Key_Plus, pages_, &PageView::zoomIn);
    onKeys(Qt::CTRL | Qt::Key_Equal, pages_, &PageView::zoomIn);
    onKeys(Qt::CTRL | Qt::Key_Minus, pages_, &PageView::zoomOut);
    onKeys(Qt::CTRL | Qt::Key_0, pages_, &PageView::fitWidth);
}

// A receipt stays when it is merely no longer among those that were found: it may just have been saved.
void DetailsWindow::showReceipt(const std::optional<Receipt> &selected) {
    const std::optional<Receipt> receipt = selected ? selected : current();
    const QString id = receipt ? receipt->id : QString();
    const bool isAnother = std::exchange(id_, id) != id;
    fieldSide_->setVisible(receipt.has_value());
    if (!receipt) {
        appState_->pages()->clear();
        pages_->showMessage(tr("Select a receipt in the list."));
        updateButtons();
        return;
    }
    // What others have changed meanwhile is shown beside what was typed.
    showFields(isAnother ? drafts_.value(id) : form_->typed());
    if (!isAnother) {
        lookForEvidence();
    } else if (isVisible()) {
        appState_->pages()->show(*receipt);
    }
}

void DetailsWindow::showFields(const TypedFields &typed) {
    if (const auto receipt = current()) {
        form_->showReceipt(*receipt, typed);
        form_->setEnabled(appState_->canCorrect(id_));
        showFacts(*receipt);
    }
    keepDraft();
}

void DetailsWindow::showFacts(const Receipt &receipt) {
    status_->setText(statusInWords(receipt.status));
    const QString error = receipt.status == ReceiptStatus::error
                              ? inUsersLanguage(receipt.error.value_or(QString()))
                              : QString();
    error_->setText(displayText(error));
    facts_->setRowVisible(error_, !error.isEmpty());
    photos_->setText(receipt.addedToPhotos ? tr("Added to Photos") : tr("Not added to Photos"));
    scannedAt_->setText(momentInWords(receipt.scannedAt));
    showDuplicate();
}

// An archived receipt has no row to go to; its link is the path of its file.
void DetailsWindow::showDuplicate() {
    const OtherReceipt other = appState_->duplicates()->otherOf(id_).value_or(OtherReceipt());
    const auto listed = store_->receipt(other.id);
    const bool isArchived = !other.archivedPath.isEmpty();
    facts_->setRowVisible(duplicate_, listed || isArchived);
    if (listed) {
        duplicate_->setText(linkTo(listed->id, displayText(listed->fileName)));
    } else if (isArchived) {
        //: %1 is the name of a file.
        const QString text = tr("%1 (archived)").arg(displayText(lastPathComponent(other.archivedPath)));
        duplicate_->setText(linkTo(other.archivedPath, text));
    } else {
        duplicate_->clear();
    }
}

void DetailsWindow::goToDuplicate(const QString &target) {
    if (store_->hasReceipt(target)) {
        Q_EMIT receiptRequested(target);
    } else {
        FileManager::reveal(target);
    }
}

void DetailsWindow::showPages() {
    const ReceiptPages *const pages = appState_->pages();
    appState_->evidence()->clear(); // it was for other pages
    switch (pages->state()) {
    case ReceiptPages::State::none:
        return;
    case ReceiptPages::State::underWay:
        pages_->showMessage(tr("Opening the receipt…"));
        return;
    case ReceiptPages::State::ready:
        pages_->showPages(pages->files());
        lookForEvidence();
        return;
    case ReceiptPages::State::failed:
        pages_->showMessage(pages->failure());
        return;
    }
}

// The pages are ready only while the window is open.
void DetailsWindow::lookForEvidence() {
    const ReceiptPages *const pages = appState_->pages();
    if (const auto receipt = current(); receipt && pages->state() == ReceiptPages::State::ready) {
        appState_->evidence()->searchFor(*receipt, pages->files().size());
    }
}

void DetailsWindow::showPageNumber() {
    const qsizetype count = pages_->pageCount();
    pageBar_->setVisible(count > 1);
    //: %1 is the number of the page on the screen, %2 how many there are.
    pageNumber_->setText(tr("Page %1 of %2").arg(pages_->page() + 1).arg(count));
    previousPage_->setEnabled(pages_->page() > 0);
    nextPage_->setEnabled(pages_->page() + 1 < count);
}

// One look at the folder at a time: it may not answer.
void DetailsWindow::askForFileName() {
    isNameOutdated_ = naming_.isRunning();
    if (!isNameOutdated_ && !id_.isEmpty()) {
        namedId_ = id_;
        naming_.setFuture(appState_->fileNameAfterCorrection(id_, form_->typed(), formats_));
    }
}

void DetailsWindow::showFileName() {
    if (isNameOutdated_) {
        askForFileName();
    } else if (namedId_ == id_ && !naming_.isCanceled()) {
        fileName_->setText(displayText(naming_.result()));
    }
}

void DetailsWindow::keepDraft() {
    if (const TypedFields typed = form_->typed(); typed.empty() || id_.isEmpty()) {
        drafts_.remove(id_);
    } else {
        drafts_.insert(id_, typed);
    }
    updateButtons();
    askForFileName();
}

void DetailsWindow::dropDraftsOfRemoved() {
    const auto isGone = [this](const auto &draft) {
        return !store_->hasReceipt(draft.key());
    };
    drafts_.removeIf(isGone);
    updateButtons();
}

void DetailsWindow::updateButtons() {
    const bool isTyped = drafts_.contains(id_);
    save_->setEnabled(isTyped && appState_->canCorrect(id_));
    revert_->setEnabled(isTyped);
    setWindowModified(hasUnsavedFields());
}

void DetailsWindow::save() {
    const QString id = id_;
    const auto saved = appState_->correct(id, form_->typed(), formats_);
    if (!saved) {
        form_->showProblems(saved.error());
        return;
    }
    drafts_.remove(id); // the list's change may have brought another receipt
    if (id_ == id) {
        showFields({});
    }
    updateButtons();
}

void DetailsWindow::revert() {
    showFields({});
}

void DetailsWindow::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    if (const auto receipt = current(); receipt && !event->spontaneous()) {
        appState_->pages()->show(*receipt);
    }
    if (!event->spontaneous()) {
        pages_->setFocus();
    }
}

void DetailsWindow::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        appState_->pages()->clear();
    }
}

// The fields have no use for these keys, but for a list's and those of text with several lines.
void DetailsWindow::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        Q_EMIT stepRequested(event->key() == Qt::Key_Up ? -1 : 1);
        return;
    }
    QWidget::keyPressEvent(event);
}

// Buttons would pass the focus on at these keys, and what scrolls would scroll.
bool DetailsWindow::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        auto *const keys = static_cast<QKeyEvent *>(event);
        if (keys->key() == Qt::Key_Up || keys->key() == Qt::Key_Down) {
            keyPressEvent(keys);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace fennick
