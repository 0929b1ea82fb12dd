#include "pipeline/scan_run.h"

#include "extraction/gemini_client.h"
#include "extraction/on_device_engine.h"
#include "extraction/service_address.h"
#include "model/receipt_store.h"
#include "pipeline/corrected_receipts.h"
#include "pipeline/exception_text.h"
#include "pipeline/folder_threads.h"
#include "pipeline/photos_delivery.h"
#include "pipeline/receipt_renaming.h"
#include "pipeline/tasks.h"
#include "pipeline/watched_folder.h"
#include "settings/settings_store.h"

#include <QCoroFuture>
#include <QPointer>
#include <QScopeGuard>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Stored as it stands, translated where it is shown.
constexpr const char *missingKeyText =
    QT_TRANSLATE_NOOP("fennick::ScanRun", "API key not configured. Set your Gemini API key in Settings.");

void takeFields(Receipt &receipt, const GeminiReceiptData &data) {
    receipt.date = data.date;
    receipt.time = data.time;
    receipt.amount = data.amount;
    receipt.currency = data.currency;
    receipt.location = data.location;
    receipt.category = data.category;
    receipt.summary = data.summary;
}

} // namespace

ScanRun::ScanRun(ReceiptStore *store, SettingsStore *settings, const WatchedFolder *watchedFolder,
                 ReceiptRenaming *renaming, CorrectedReceipts *corrected, PhotosDelivery *delivery,
                 OnDeviceEngine *engine, const FolderThreads *folderThreads, Tasks *tasks)
    : store_(store)
    , settings_(settings)
    , watchedFolder_(watchedFolder)
    , renaming_(renaming)
    , corrected_(corrected)
    , delivery_(delivery)
    , engine_(engine)
    , folderThreads_(folderThreads)
    , tasks_(tasks) {}

void ScanRun::prepare() {
    GeminiClient::prepare();
}

QCoro::Task<ScanOutcome> ScanRun::run(Receipt receipt, std::optional<FileIdentity> file,
                                      std::optional<Receipt> previousResult) {
    const QPointer<ScanRun> self(this);
    const QString id = receipt.id;
    underWay_.append(id);
    const auto end = qScopeGuard([self, id] {
        if (self) {
            self->underWay_.removeOne(id);
            self->disregarded_.removeOne(id);
        }
    });
    const QString address = settings_->serviceAddress();
    QString key;
    if (!isOnDevice(address)) {
        key = (co_await settings_->storedAPIKey()).value_or(QString());
        if (!self || disregarded_.contains(id)) {
            co_return ScanOutcome::failed;
        }
        if (key.isEmpty()) {
            store_->setError(id, QString::fromUtf8(missingKeyText));
            co_return ScanOutcome::failed;
        }
    }
    FileToRead wanted(store_->receipt(id).value_or(receipt).filePath);
    wanted.folder = watchedFolder_->path;
    wanted.identity = file;
    const auto result = co_await extract(wanted, key, address);
    if (!self || disregarded_.contains(id)) {
        co_return ScanOutcome::failed;
    }
    if (!result) {
        co_return takeFailure(id, result.error());
    }
    takeResult(id, *result, previousResult);
    const auto scanned = store_->receipt(id);
    if (scanned && settings_->addToPhotos() && !scanned->addedToPhotos) {
        co_await delivery_->deliver(*scanned, file);
    }
    co_return ScanOutcome::done;
}

void ScanRun::disregard(const QString &id) {
    if (underWay_.count(id) > disregarded_.count(id)) {
        disregarded_.append(id);
    }
}

ScanOutcome ScanRun::takeFailure(const QString &id, const ScanError &error) {
    const QString description = errorDescription(error);
    store_->setError(id, description);
    if (isKeyRefusal(description)) {
        Q_EMIT keyRefused();
    }
    return isTooManyRequests(error) ? ScanOutcome::tooManyRequests : ScanOutcome::failed;
}

void ScanRun::takeResult(const QString &id, const GeminiReceiptData &data,
                         const std::optional<Receipt> &previousResult) {
    auto scanned = store_->receipt(id);
    if (!scanned) {
        return; // cleared meanwhile: its path is ignored from now on, so the file keeps its name
    }
    takeFields(*scanned, data);
    scanned->status = ReceiptStatus::done;
    scanned->error.reset();
    store_->update(*scanned);
    corrected_->remove(id);
    if (!previousResult || !keepsFileName(*previousResult, *scanned)) {
        renaming_->rename(*scanned);
    }
}

// A failure of any kind is one of this receipt: its row must not wait for ever.
QCoro::Task<ScanRun::Extracted> ScanRun::extract(FileToRead file, QString key, QString address) {
    try {
        co_return co_await send(file, key, address);
    } catch (...) {
        co_return std::unexpected(ScanError(TransportError{exceptionText(std::current_exception())}));
    }
}

// To the configured service, or to Fennick's own engine, which runs only while it is needed and is never
// given the key.
QCoro::Task<ScanRun::Extracted> ScanRun::send(FileToRead file, QString key, QString address) {
    if (!isOnDevice(address)) {
        co_return co_await GeminiClient::scan(file, key, settings_->model(), address);
    }
    const auto use = co_await engine_->use();
    if (!use) {
        const QString reason = QString::fromUtf8(engineNotStartedText).arg(engine_->failure());
        co_return std::unexpected(ScanError(TransportError{reason}));
    }
    co_return co_await GeminiClient::scan(file, OnDeviceEngine::key, settings_->model(), engine_->address(),
                                          engine_->engineEnd());
}

void ScanRun::retry(const Receipt &receipt) {
    tasks_->start(retryOne(receipt.id));
}

QCoro::Task<> ScanRun::retryOne(QString id) {
    co_await rescan(id);
}

QCoro::Task<ScanOutcome> ScanRun::rescan(QString id) {
    auto receipt = store_->receipt(id);
    if (!receipt) {
        co_return ScanOutcome::failed;
    }
    if (!folderThreads_->answersSoon(receipt->filePath)) {
        store_->setError(id, FileProblem{FileProblem::Kind::noAnswer, {}}.description());
        co_return ScanOutcome::failed;
    }
    const FileState file = fileStateAt(receipt->filePath);
    if (const auto problem = problemOf(file)) {
        store_->setError(id, problem->description());
        co_return ScanOutcome::failed;
    }
    const std::optional<Receipt> previousResult =
        receipt->status == ReceiptStatus::done ? receipt : std::optional<Receipt>();
    receipt->status = ReceiptStatus::processing;
    receipt->error.reset();
    store_->update(*receipt);
    const bool isThere = file.kind != FileKind::missing;
    const std::optional<FileIdentity> identity = isThere ? std::optional(file.identity) : std::nullopt;
    co_return co_await run(*receipt, identity, previousResult);
}

bool ScanRun::lacksKey(const Receipt &receipt) {
    const QString error = receipt.error.value_or(QString());
    return receipt.status == ReceiptStatus::error &&
           (error == QString::fromUtf8(missingKeyText) || isKeyRefusal(error));
}

} // namespace fennick
