#include "files/file_renamer.h"
#include "pipeline/app_state.h"
#include "pipeline/exception_text.h"

#include <QCoreApplication>
#include <QCoroFuture>

namespace fennick {

namespace {

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

// `file` is the one that was seen when the receipt was taken in: another one that has come to its path is not
// sent.
QCoro::Task<> AppState::runScan(Receipt receipt, std::optional<FileIdentity> file) {
    const QPointer<AppState> self(this);
    const QString id = receipt.id;
    const QString address = configuredServiceAddress();
    QString key;
    if (!isOnDevice(address)) {
        key = (co_await settings_->storedAPIKey()).value_or(QString());
        if (!self) {
            co_return;
        }
        if (key.isEmpty()) {
            failScan(id, QString::fromUtf8(keyMissing));
            co_return;
        }
    }
    FileToRead wanted(store_->receipt(id).value_or(receipt).filePath);
    wanted.folder = watchedFolder_;
    wanted.identity = file;
    const auto result = co_await extract(wanted, key, address);
    if (!self) {
        co_return;
    }
    if (!result) {
        failScan(id, errorDescription(result.error()));
        co_return;
    }
    auto scanned = store_->receipt(id);
    if (!scanned) {
        co_return; // cleared meanwhile: its path is ignored from now on, so the file keeps its name
    }
    takeFields(*scanned, *result);
    scanned->status = ReceiptStatus::done;
    scanned->error.reset();
    store_->update(*scanned);
    renameFile(*scanned);
    scanned = store_->receipt(id);
    if (scanned && settings_->addToPhotos() && !scanned->addedToPhotos) {
        co_await deliver(*scanned, file);
    }
}

// A failure of any kind is one of this receipt: its row must not wait for ever.
QCoro::Task<std::expected<GeminiReceiptData, ScanError>> AppState::extract(FileToRead file, QString key,
                                                                           QString address) {
    try {
        co_return co_await send(file, key, address);
    } catch (...) {
        co_return std::unexpected(ScanError(TransportError{exceptionText(std::current_exception())}));
    }
}

// To the configured service, or to Fennick's own engine, which runs only while it is needed and is never
// given the key.
QCoro::Task<std::expected<GeminiReceiptData, ScanError>> AppState::send(FileToRead file, QString key,
                                                                        QString address) {
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

void AppState::failScan(const QString &id, const QString &error) {
    if (auto receipt = store_->receipt(id)) {
        receipt->status = ReceiptStatus::error;
        receipt->error = error;
        store_->update(*receipt);
    }
}

void AppState::renameFile(Receipt receipt) {
    const auto renamed = FileRenamer::rename(receipt, watchedFolder_);
    if (!renamed) {
        return;
    }
    recentlyRenamedTo_.insert(renamed->filePath, Clock::now());
    receipt.fileName = renamed->fileName;
    receipt.filePath = renamed->filePath;
    store_->update(receipt);
}

void AppState::retry(const Receipt &receipt) {
    auto again = store_->receipt(receipt.id);
    if (!again) {
        return;
    }
    const FileState file = fileStateAt(again->filePath);
    if (const auto problem = problemOf(file)) {
        failScan(again->id, problem->description());
        return;
    }
    again->status = ReceiptStatus::processing;
    again->error.reset();
    store_->update(*again);
    const bool isThere = file.kind != FileKind::missing;
    startTask(runScan(*again, isThere ? std::optional(file.identity) : std::nullopt));
}

} // namespace fennick
