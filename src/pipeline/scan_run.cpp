#include "files/file_renamer.h"
#include "pipeline/app_state.h"

#include <QCoreApplication>
#include <QCoroFuture>

namespace fennick {

namespace {

// How long the events of the pipeline's own renaming may take to arrive.
constexpr std::chrono::seconds renameExclusion{5};

// Stored as it stands, translated where it is shown.
constexpr const char *keyMissing =
    QT_TRANSLATE_NOOP("fennick::AppState", "API key not configured. Set your Gemini API key in Settings.");

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

QCoro::Task<> AppState::runScan(Receipt receipt) {
    const QPointer<AppState> self(this);
    const QString address = configuredServiceAddress();
    QString key;
    if (!isOnDevice(address)) {
        key = (co_await settings_->storedAPIKey()).value_or(QString());
        if (!self) {
            co_return;
        }
        if (key.isEmpty()) {
            failScan(receipt, QString::fromUtf8(keyMissing));
            co_return;
        }
    }
    const auto result = co_await extract(receipt.filePath, key, address);
    if (!self) {
        co_return;
    }
    if (!result) {
        failScan(receipt, errorDescription(result.error()));
        co_return;
    }
    if (!store_->hasReceipt(receipt.id)) {
        co_return; // cleared meanwhile: its path is ignored from now on, so the file keeps its name
    }
    takeFields(receipt, *result);
    receipt.status = ReceiptStatus::done;
    receipt.error.reset();
    store_->update(receipt);
    renameFile(receipt);
    if (settings_->addToPhotos() && !receipt.addedToPhotos) {
        co_await deliverAndUpdate(receipt);
    }
}

// From the service, or from Fennick's own engine, which runs only while it is needed and is never given the
// key.
QCoro::Task<std::expected<GeminiReceiptData, ScanError>> AppState::extract(QString path, QString key,
                                                                           QString address) {
    if (!isOnDevice(address)) {
        co_return co_await GeminiClient::scan(path, key, settings_->model(), address);
    }
    const auto use = co_await engine_.use();
    if (!use) {
        const QString reason = tr("The on-device engine could not be started: %1").arg(engine_.failure());
        co_return std::unexpected(ScanError(TransportError{reason}));
    }
    co_return co_await GeminiClient::scan(path, OnDeviceEngine::key, settings_->model(), engine_.address(),
                                          engine_.engineEnd());
}

void AppState::failScan(Receipt receipt, const QString &error) {
    receipt.status = ReceiptStatus::error;
    receipt.error = error;
    store_->update(receipt);
}

void AppState::renameFile(Receipt &receipt) {
    const auto renamed = FileRenamer::rename(receipt);
    if (!renamed) {
        return;
    }
    recentlyRenamedTo_.insert(renamed->filePath);
    QTimer::singleShot(renameExclusion, this,
                       [this, path = renamed->filePath] { recentlyRenamedTo_.remove(path); });
    receipt.fileName = renamed->fileName;
    receipt.filePath = renamed->filePath;
    store_->update(receipt);
}

void AppState::retry(const Receipt &receipt) {
    Receipt again = receipt;
    again.status = ReceiptStatus::processing;
    again.error.reset();
    store_->update(again);
    startTask(runScan(again));
}

} // namespace fennick
