#include "pipeline/scan_run.h"

#include "extraction/gemini_client.h"
#include "extraction/service_address.h"
#include "model/receipt_store.h"
#include "pipeline/exception_text.h"
#include "pipeline/photos_delivery.h"
#include "pipeline/receipt_renaming.h"
#include "pipeline/tasks.h"
#include "pipeline/watched_folder.h"
#include "platform/file_system_answer.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QPointer>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

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
                 ReceiptRenaming *renaming, PhotosDelivery *delivery, Tasks *tasks)
    : store_(store)
    , settings_(settings)
    , watchedFolder_(watchedFolder)
    , renaming_(renaming)
    , delivery_(delivery)
    , tasks_(tasks)
    , engine_(joinedPath(QCoreApplication::applicationDirPath(), u"fennick-engine"_s)) {}

void ScanRun::prepare() {
    GeminiClient::prepare();
}

QCoro::Task<> ScanRun::run(Receipt receipt, std::optional<FileIdentity> file) {
    const QPointer<ScanRun> self(this);
    const QString id = receipt.id;
    const QString address = settings_->serviceAddress();
    QString key;
    if (!isOnDevice(address)) {
        key = (co_await settings_->storedAPIKey()).value_or(QString());
        if (!self) {
            co_return;
        }
        if (key.isEmpty()) {
            // Stored as it stands, translated where it is shown.
            store_->setError(id, QString::fromUtf8(QT_TR_NOOP(
                                     "API key not configured. Set your Gemini API key in Settings.")));
            co_return;
        }
    }
    FileToRead wanted(store_->receipt(id).value_or(receipt).filePath);
    wanted.folder = watchedFolder_->path;
    wanted.identity = file;
    const auto result = co_await extract(wanted, key, address);
    if (!self) {
        co_return;
    }
    if (!result) {
        store_->setError(id, errorDescription(result.error()));
        co_return;
    }
    takeResult(id, *result);
    const auto scanned = store_->receipt(id);
    if (scanned && settings_->addToPhotos() && !scanned->addedToPhotos) {
        co_await delivery_->deliver(*scanned, file);
    }
}

void ScanRun::takeResult(const QString &id, const GeminiReceiptData &data) {
    auto scanned = store_->receipt(id);
    if (!scanned) {
        return; // cleared meanwhile: its path is ignored from now on, so the file keeps its name
    }
    takeFields(*scanned, data);
    scanned->status = ReceiptStatus::done;
    scanned->error.reset();
    store_->update(*scanned);
    renaming_->rename(*scanned);
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
    const auto use = co_await engine_.use();
    if (!use) {
        const QString reason = QString::fromUtf8(engineNotStartedText).arg(engine_.failure());
        co_return std::unexpected(ScanError(TransportError{reason}));
    }
    co_return co_await GeminiClient::scan(file, OnDeviceEngine::key, settings_->model(), engine_.address(),
                                          engine_.engineEnd());
}

void ScanRun::retry(const Receipt &receipt) {
    auto again = store_->receipt(receipt.id);
    if (!again) {
        return;
    }
    if (!fileSystemAnswers(again->filePath)) {
        store_->setError(again->id, FileProblem{FileProblem::Kind::noAnswer, {}}.description());
        return;
    }
    const FileState file = fileStateAt(again->filePath);
    if (const auto problem = problemOf(file)) {
        store_->setError(again->id, problem->description());
        return;
    }
    again->status = ReceiptStatus::processing;
    again->error.reset();
    store_->update(*again);
    const bool isThere = file.kind != FileKind::missing;
    tasks_->start(run(*again, isThere ? std::optional(file.identity) : std::nullopt));
}

} // namespace fennick
