#include "pipeline/evidence_search.h"

#include "extraction/on_device_engine.h"
#include "extraction/places_client.h"
#include "pipeline/folder_threads.h"
#include "pipeline/tasks.h"
#include "pipeline/watched_folder.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrent>

#include <array>
#include <utility>

namespace fennick {

namespace {

// The fields by the engine's names for them.
constexpr std::array<std::pair<ReceiptField, QLatin1StringView>, 7> engineNames = {{
    {ReceiptField::date, QLatin1StringView("date")},
    {ReceiptField::time, QLatin1StringView("time")},
    {ReceiptField::amount, QLatin1StringView("total")},
    {ReceiptField::currency, QLatin1StringView("currency")},
    {ReceiptField::location, QLatin1StringView("merchant")},
    {ReceiptField::category, QLatin1StringView("category")},
    {ReceiptField::summary, QLatin1StringView("summary")},
}};

GeminiReceiptData valuesOf(const Receipt &receipt) {
    return {.date = receipt.date,
            .time = receipt.time,
            .amount = receipt.amount,
            .currency = receipt.currency,
            .location = receipt.location,
            .category = receipt.category,
            .summary = receipt.summary};
}

bool haveSameValues(const Receipt &left, const Receipt &right) {
    return left.date == right.date && left.time == right.time && left.amount == right.amount &&
           left.currency == right.currency && left.location == right.location &&
           left.category == right.category && left.summary == right.summary;
}

bool hasValues(const Receipt &receipt) {
    return receipt.date || receipt.time || receipt.amount || receipt.currency || receipt.location;
}

} // namespace

EvidenceSearch::EvidenceSearch(const WatchedFolder *watchedFolder, const FolderThreads *folderThreads,
                               OnDeviceEngine *engine, Tasks *tasks)
    : watchedFolder_(watchedFolder)
    , folderThreads_(folderThreads)
    , engine_(engine)
    , tasks_(tasks) {}

EvidenceSearch::~EvidenceSearch() {
    stop_.request_stop();
}

// A file that was renamed holds what it held, but a search that had failed may find it now.
bool EvidenceSearch::isWanted(const Receipt &receipt, qsizetype pageCount) const {
    return wanted_ && wanted_->receipt.id == receipt.id && wanted_->pageCount == pageCount &&
           haveSameValues(wanted_->receipt, receipt) &&
           (isAnswered_ || wanted_->receipt.filePath == receipt.filePath);
}

void EvidenceSearch::searchFor(const Receipt &receipt, qsizetype pageCount) {
    if (isWanted(receipt, pageCount)) {
        return;
    }
    forget();
    if (hasValues(receipt)) {
        wanted_ = Wanted{receipt, pageCount};
        if (!isRunning_) {
            tasks_->start(run());
        }
    }
    Q_EMIT changed();
}

void EvidenceSearch::clear() {
    forget();
    Q_EMIT changed();
}

void EvidenceSearch::forget() {
    stop_.request_stop();
    stop_ = std::stop_source();
    wanted_.reset();
    isAnswered_ = false;
    places_.clear();
    missing_.clear();
}

// One search at a time, so that passing over a list neither fills the memory with documents nor keeps scans
// from the engine.
QCoro::Task<> EvidenceSearch::run() {
    const QPointer<EvidenceSearch> self(this);
    isRunning_ = true;
    std::stop_token done;
    while (wanted_ && stop_.get_token() != done) {
        done = stop_.get_token();
        const auto found = co_await search(wanted_->receipt, done);
        if (!self) {
            co_return;
        }
        if (found && !done.stop_requested()) {
            take(*found);
        }
    }
    isRunning_ = false;
}

// Evidence is an extra: whatever goes wrong, nothing is claimed.
QCoro::Task<std::optional<ValuePlaces>> EvidenceSearch::search(Receipt receipt, std::stop_token stop) {
    try {
        co_return co_await ask(receipt, stop);
    } catch (...) {
        co_return std::nullopt;
    }
}

QCoro::Task<std::optional<ValuePlaces>> EvidenceSearch::ask(Receipt receipt, std::stop_token stop) {
    const QPointer<EvidenceSearch> self(this);
    FileToRead wanted(receipt.filePath);
    wanted.folder = watchedFolder_->path;
    const GeminiReceiptData values = valuesOf(receipt);
    // Not on this thread: the file may lie on an unreachable network.
    const auto body =
        co_await QtConcurrent::run(folderThreads_->pool(), PlacesClient::requestBody, wanted, values);
    if (!body || !self || stop.stop_requested()) {
        co_return std::nullopt;
    }
    const auto use = co_await engine_->use();
    if (!use || !self || stop.stop_requested()) {
        co_return std::nullopt;
    }
    co_return co_await PlacesClient::find(*body, engine_->address(), engine_->engineEnd(), stop);
}

void EvidenceSearch::take(const ValuePlaces &found) {
    isAnswered_ = true;
    const bool areAllPagesRead = found.pages >= wanted_->pageCount;
    for (const auto &[field, name] : engineNames) {
        const auto place = found.found.constFind(name);
        if (place != found.found.constEnd() && place->page < wanted_->pageCount) {
            places_.emplace(field, *place);
        } else if (areAllPagesRead && found.missing.contains(name)) {
            missing_.insert(field);
        }
    }
    Q_EMIT changed();
}

} // namespace fennick
