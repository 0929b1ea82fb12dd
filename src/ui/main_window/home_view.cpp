#include "ui/main_window/home_view.h"

#include "extraction/service_address.h"
#include "model/receipt_query.h"
#include "ui/main_window/empty_state.h"
#include "ui/main_window/find_line.h"
#include "ui/main_window/receipts_table.h"
#include "ui/widgets/caption_label.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/symbol_label.h"
#include "ui/widgets/text_style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <tuple>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int headerSymbolSize = 16;

QFrame *makeDivider(QWidget *parent) {
    auto *const divider = new QFrame(parent);
    divider->setFrameShape(QFrame::HLine);
    divider->setFrameShadow(QFrame::Plain);
    divider->setForegroundRole(QPalette::Mid);
    return divider;
}

} // namespace

HomeView::HomeView(const ReceiptStore *store, const SettingsStore *settings, QWidget *parent)
    : QWidget(parent)
    , store_(store)
    , settings_(settings)
    , folder_(new ElidedLabel(this))
    , photosBadge_(new CaptionLabel(tr("Photos export on"), Tint::secondary, Symbol::photos, this))
    //: Names the shortcut of the settings on the reader's keyboard.
    , missingKey_(new CaptionLabel(tr("Set your Gemini API key in Settings (⌘,) to start scanning."),
                                   Tint::warning, Symbol::warning, this))
    , findLine_(new FindLine(this))
    , table_(new ReceiptsTable(store, this))
    , list_(new QStackedWidget(this)) {
    folder_->setObjectName(u"watchFolder"_s);
    folder_->setFont(styledFont(folder_->font(), TextStyle::callout));
    photosBadge_->setObjectName(u"photosBadge"_s);
    missingKey_->setObjectName(u"missingKey"_s);
    layOut();
    connectFindLine();
    connect(settings, &SettingsStore::changed, this, &HomeView::showSettings);
    connect(store, &ReceiptStore::receiptsChanged, this, &HomeView::showList);
    showSettings();
    showList();
}

void HomeView::layOut() {
    auto *const emptyState = new EmptyState(this);
    connect(emptyState, &EmptyState::chooseFolderRequested, this, &HomeView::chooseFolderRequested);
    list_->addWidget(emptyState);
    list_->addWidget(table_);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addWidget(makeDivider(this));
    layout->addWidget(findLine_);
    layout->addWidget(list_, 1);
}

QWidget *HomeView::makeHeader() {
    auto *const header = new QWidget(this);
    auto *const firstLine = new QHBoxLayout;
    firstLine->setSpacing(8);
    auto *const symbol = new SymbolLabel(Symbol::watchedFolder, Tint::secondary, headerSymbolSize, header);
    symbol->setObjectName(u"folderSymbol"_s);
    firstLine->addWidget(symbol);
    firstLine->addWidget(folder_, 1);
    firstLine->addWidget(photosBadge_);

    auto *const lines = new QVBoxLayout(header);
    lines->setContentsMargins(16, 10, 16, 10);
    lines->setSpacing(6);
    lines->addLayout(firstLine);
    lines->addWidget(missingKey_);
    return header;
}

void HomeView::connectFindLine() {
    connect(findLine_, &FindLine::opened, this, [this] {
        table_->prepareFind();
        showFound();
    });
    connect(findLine_, &FindLine::queryChanged, this, [this](const ReceiptQuery &query) {
        table_->find(query);
        showFound();
    });
    connect(findLine_, &FindLine::closed, this, [this] {
        table_->endFind();
        table_->setFocus(Qt::OtherFocusReason);
    });
    connect(findLine_, &FindLine::leftDownwards, this, [this] { table_->setFocus(Qt::TabFocusReason); });
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(table_->model(), signal, this, &HomeView::showFound);
    }
    connect(table_->model(), &QAbstractItemModel::modelReset, this, &HomeView::showFound);
}

void HomeView::find() {
    findLine_->open();
}

void HomeView::selectReceipt(const QString &id) {
    if (table_->selectReceipt(id)) {
        return;
    }
    findLine_->close();
    std::ignore = table_->selectReceipt(id); // it may have left the list meanwhile
}

void HomeView::showFound() {
    findLine_->showCount(table_->model()->rowCount(), static_cast<int>(store_->receipts().size()));
}

void HomeView::showSettings() {
    const auto &path = settings_->watchFolderPath();
    folder_->showValue(path.value_or(tr("No folder selected")), path.has_value());
    photosBadge_->setVisible(settings_->addToPhotos());
    missingKey_->setVisible(!isOnDevice(settings_->serviceAddress()) && !settings_->hasAPIKey());
    table_->setPhotosExportOn(settings_->addToPhotos());
}

void HomeView::showFolderMissing(bool isMissing) {
    folder_->setNote(isMissing ? tr("This folder is missing. Receipts are read again when it is back.")
                               : QString());
}

void HomeView::showList() {
    list_->setCurrentIndex(store_->receipts().isEmpty() ? 0 : 1);
}

} // namespace fennick
