#include "ui/main_window/receipt_commands.h"

#include "export/export_service.h"
#include "model/receipt_store.h"
#include "pipeline/app_state.h"
#include "platform/file_manager.h"
#include "settings/settings_store.h"
#include "ui/dialogs/confirmations.h"
#include "ui/main_window/receipts_table.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSet>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostOpenedUnasked = 10;

QStringList pathsOf(const QList<Receipt> &receipts) {
    QStringList paths;
    for (const Receipt &receipt : receipts) {
        paths.append(receipt.filePath);
    }
    return paths;
}

void reveal(const QList<Receipt> &receipts) {
    FileManager::reveal(pathsOf(receipts));
}

void copySummaries(const QList<Receipt> &receipts) {
    QStringList summaries;
    for (const Receipt &receipt : receipts) {
        summaries.append(receipt.summary);
    }
    QGuiApplication::clipboard()->setText(summaries.join(u'\n'));
}

void copyTable(const QList<Receipt> &receipts) {
    QGuiApplication::clipboard()->setText(ExportService::buildTabSeparated(receipts));
}

bool hasFailed(const Receipt &receipt) {
    return receipt.status == ReceiptStatus::error;
}

bool isDone(const Receipt &receipt) {
    return receipt.status == ReceiptStatus::done;
}

QStringList idsOf(const QList<Receipt> &receipts, bool (*applies)(const Receipt &)) {
    QStringList ids;
    for (const Receipt &receipt : receipts) {
        if (applies(receipt)) {
            ids.append(receipt.id);
        }
    }
    return ids;
}

} // namespace

ReceiptCommands::ReceiptCommands(MainActions *actions, ReceiptsTable *table, ReceiptStore *store,
                                 SettingsStore *settings, AppState *appState, QWidget *window)
    : QObject(window)
    , actions_(actions)
    , table_(table)
    , store_(store)
    , settings_(settings)
    , appState_(appState)
    , window_(window) {
    connectSelection();
    connectRows();
    connectRetries();
    connect(store, &ReceiptStore::receiptsChanged, this, &ReceiptCommands::enable);
    connect(table, &ReceiptsTable::selectedReceiptChanged, this, &ReceiptCommands::enable);
    enable();
}

void ReceiptCommands::connectSelection() {
    const auto onSelected = [this](QAction *action, auto does) {
        connect(action, &QAction::triggered, this, [this, does] {
            const QList<Receipt> receipts = table_->selectedReceipts();
            if (!receipts.isEmpty()) {
                does(receipts);
            }
        });
    };
    onSelected(actions_->open, [this](const QList<Receipt> &receipts) { open(receipts); });
    onSelected(actions_->reveal, reveal);
    onSelected(actions_->addToPhotos, [this](const QList<Receipt> &receipts) { addToPhotos(receipts); });
    onSelected(actions_->retry, [this](const QList<Receipt> &receipts) { retry(receipts); });
    onSelected(actions_->readAgain, [this](const QList<Receipt> &receipts) { readAgain(receipts); });
    onSelected(actions_->copySummary, copySummaries);
    onSelected(actions_->copy, copyTable);
    onSelected(actions_->remove, [this](const QList<Receipt> &receipts) { remove(receipts); });
}

// A row's own buttons and a double click concern that row alone, whatever is selected.
void ReceiptCommands::connectRows() {
    connect(table_, &ReceiptsTable::openRequested, this,
            [](const Receipt &receipt) { FileManager::open(receipt.filePath); });
    connect(table_, &ReceiptsTable::revealRequested, this,
            [](const Receipt &receipt) { FileManager::reveal(receipt.filePath); });
    connect(table_, &ReceiptsTable::addToPhotosRequested, this,
            [this](const Receipt &receipt) { appState_->pushToPhotos(receipt); });
    connect(table_, &ReceiptsTable::retryRequested, this,
            [this](const Receipt &receipt) { appState_->retry(receipt); });
}

void ReceiptCommands::connectRetries() {
    RetryAll *const retries = appState_->retryAll();
    connect(actions_->retryAll, &QAction::triggered, retries, &RetryAll::addAllFailed);
    connect(actions_->stopRetrying, &QAction::triggered, retries, &RetryAll::stop);
    connect(retries, &RetryAll::changed, this, &ReceiptCommands::enableRetries);
    connect(store_, &ReceiptStore::receiptsChanged, this, &ReceiptCommands::enableRetries);
    enableRetries();
}

void ReceiptCommands::enableRetries() {
    actions_->retryAll->setEnabled(std::ranges::any_of(store_->receipts(), hasFailed));
    actions_->stopRetrying->setEnabled(appState_->retryAll()->isUnderWay());
}

void ReceiptCommands::enable() {
    const bool isSelected = table_->selectionModel()->hasSelection();
    for (QAction *const action : {actions_->open, actions_->reveal, actions_->copySummary, actions_->copy,
                                  actions_->details, actions_->remove}) {
        action->setEnabled(isSelected);
    }
    actions_->addToPhotos->setEnabled(
        table_->isAnySelected([this](const Receipt &receipt) { return canAddToPhotos(receipt); }));
    actions_->retry->setEnabled(table_->isAnySelected(hasFailed));
    actions_->readAgain->setEnabled(table_->isAnySelected(isDone));
}

bool ReceiptCommands::canAddToPhotos(const Receipt &receipt) const {
    return isDone(receipt) && !receipt.addedToPhotos && settings_->addToPhotos();
}

void ReceiptCommands::open(const QList<Receipt> &receipts) {
    const qsizetype count = receipts.size();
    if (count > mostOpenedUnasked && !Confirmations::confirmOpen(window_, static_cast<int>(count))) {
        return;
    }
    for (const Receipt &receipt : receipts) {
        FileManager::open(receipt.filePath);
    }
}

void ReceiptCommands::addToPhotos(const QList<Receipt> &receipts) {
    for (const Receipt &receipt : receipts) {
        if (canAddToPhotos(receipt)) {
            appState_->pushToPhotos(receipt);
        }
    }
}

// One at once, as its row's button does; many a few at a time.
void ReceiptCommands::retry(const QList<Receipt> &receipts) {
    if (receipts.size() == 1 && hasFailed(receipts.first())) {
        appState_->retry(receipts.first());
    } else {
        appState_->retryAll()->add(idsOf(receipts, hasFailed));
    }
}

void ReceiptCommands::readAgain(const QList<Receipt> &receipts) {
    const QStringList ids = idsOf(receipts, isDone);
    const auto corrected =
        std::ranges::count_if(ids, [this](const QString &id) { return appState_->isCorrected(id); });
    if (corrected == 0 || Confirmations::confirmReadAgain(window_, static_cast<int>(corrected))) {
        appState_->retryAll()->add(ids);
    }
}

void ReceiptCommands::remove(const QList<Receipt> &receipts) {
    QSet<QString> ids;
    for (const Receipt &receipt : receipts) {
        ids.insert(receipt.id);
    }
    const int place = table_->firstSelectedRow();
    appState_->history()->removeFromList(ids);
    table_->selectNearest(place); // what has come up into it
}

} // namespace fennick
