#include "pipeline/app_state.h"

#include "kinds/document_kind.h"
#include "model/receipt_store.h"
#include "platform/free_path.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QUndoStack>

namespace fennick {

using namespace Qt::StringLiterals;

AppState::AppState(ReceiptStore *store, SettingsStore *settings, QObject *parent)
    : QObject(parent)
    , store_(store)
    , settings_(settings)
    , tasks_(&lastError_)
    , formerArchives_(settings, &lastError_)
    , ignoredDates_(store)
    , archive_(store, settings, &formerArchives_, &record_, &lastError_)
    , archivedReceipts_(&archive_, &formerArchives_, &folderThreads_)
    , sameContents_(store, &archivedReceipts_, &watchedFolder_, &folderThreads_)
    , duplicates_(store, &archivedReceipts_, &sameContents_)
    , renaming_(store, &watchedFolder_, &renamedPaths_)
    , correction_(store, &renaming_, &corrected_, &folderThreads_)
    , pages_(&watchedFolder_, &folderThreads_, &tasks_)
    , engine_(joinedPath(QCoreApplication::applicationDirPath(), u"fennick-engine"_s))
    , evidence_(&watchedFolder_, &folderThreads_, &engine_, &tasks_)
    , delivery_(store, settings, &watchedFolder_, &lastError_, &tasks_)
    , scanRun_(store, settings, &watchedFolder_, &renaming_, &corrected_, &delivery_, &engine_,
               &folderThreads_, &tasks_)
    , retryAll_(
          store, [this](QString id) { return scanRun_.rescan(std::move(id)); }, &tasks_)
    , history_(store, settings, &archive_, &record_, &correction_, &corrected_, &scanRun_, &retryAll_,
               &watchedFolder_, &renamedPaths_)
    , recovery_(store, &archive_, &history_, &folderThreads_, &tasks_)
    , droppedFiles_(settings, &lastError_, &tasks_)
    , admission_(store, settings, &archive_, &folderThreads_, &lastError_, &tasks_)
    , intake_(store, &watchedFolder_, &renamedPaths_, &archive_, &folderThreads_, &scanRun_, &tasks_) {
    connect(&lastError_, &LastError::changed, this, &AppState::lastErrorChanged);
    connect(&scanRun_, &ScanRun::keyRefused, this, &AppState::keyRefused);
    connect(&admission_, &FolderAdmission::admitted, this, &AppState::startWatching);
    connect(intake_.presence(), &FolderPresence::changed, this, &AppState::watchedFolderMissingChanged);
    connect(history_.stack(), &QUndoStack::indexChanged, &archivedReceipts_, &ArchivedReceipts::read);
    connect(settings, &SettingsStore::changed, &archivedReceipts_, &ArchivedReceipts::read);
    connect(store, &ReceiptStore::saveFailed, this, [this](const QString &reason) {
        lastError_.set(tr("The list could not be saved: %1").arg(reason));
    });
}

AppState::~AppState() {
    folderThreads_.end(); // while everything that they report to still exists
}

QFuture<void> AppState::recoverFromInterruption() {
    QFuture<void> recovered = recovery_.recover();
    archivedReceipts_.read();
    return recovered;
}

void AppState::startWatchingIfConfigured() {
    const QString path = settings_->watchFolderPath().value_or(QString());
    if (!path.isEmpty()) {
        startWatching(path);
    }
}

void AppState::startWatching(const QString &path) {
    intake_.startWatching(path, recovery_.renamedFilesAdopted());
}

std::unique_ptr<FolderSurvey> AppState::survey(const QString &path) const {
    return admission_.survey(path);
}

void AppState::admitFolder(const QString &path, ExistingFiles existing) {
    admission_.admit(path, existing);
}

void AppState::copyIntoWatchFolder(const QStringList &paths) {
    droppedFiles_.copyIntoWatchFolder(paths);
}

void AppState::restoreIgnored(const QStringList &paths) {
    store_->stopIgnoring(paths);
    intake_.takeIn(paths);
}

bool AppState::isSupported(const QString &path) {
    return kindOfName(path).has_value();
}

void AppState::retry(const Receipt &receipt) {
    history_.retry(receipt);
}

QStringList AppState::receiptsWithoutKey() const {
    QStringList ids;
    for (const Receipt &receipt : store_->receipts()) {
        if (ScanRun::lacksKey(receipt)) {
            ids.append(receipt.id);
        }
    }
    return ids;
}

bool AppState::canCorrect(const QString &id) const {
    return correction_.isPossible(id);
}

std::expected<void, FieldProblems> AppState::correct(const QString &id, const TypedFields &typed,
                                                     const FieldFormats &formats) {
    return history_.correct(id, typed, formats);
}

QFuture<QString> AppState::fileNameAfterCorrection(const QString &id, const TypedFields &typed,
                                                   const FieldFormats &formats) const {
    return correction_.fileNameAfter(id, typed, formats);
}

void AppState::pushToPhotos(const Receipt &receipt) {
    delivery_.push(receipt);
}

QString AppState::albumName(const QDateTime &processingDate) {
    return PhotosDelivery::albumName(processingDate);
}

std::optional<QString> AppState::archiveRoot() const {
    return archive_.root();
}

QString AppState::archiveDestinationPath() const {
    return archive_.destinationPath();
}

QString AppState::dateStamp() {
    return ExportService::isoDateStamp();
}

QString AppState::uniquePath(const QString &folder, const QString &base, const QString &extension) {
    return freePath(folder, base, extension);
}

void AppState::archiveAndClear(ExportService::Format format) {
    history_.archiveAndClear(format);
}

} // namespace fennick
