#include "pipeline/app_state.h"

#include "pipeline/exception_text.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <tuple>

namespace fennick {

namespace {

// Threads may wait for several folders, one after the other chosen, on a network that is gone.
constexpr int mostFolderThreads = 32;

// How long the end waits for them.
constexpr int patienceAtEnd = 2000; // milliseconds

} // namespace

AppState::AppState(ReceiptStore *store, SettingsStore *settings, QObject *parent)
    : QObject(parent)
    , store_(store)
    , settings_(settings)
    , folderThreads_(std::make_unique<QThreadPool>())
    , engine_(QCoreApplication::applicationDirPath() + QStringLiteral("/fennick-engine"))
    , conversions_(std::make_shared<Turns>(std::max(1, QThread::idealThreadCount()))) {
    connect(store_, &ReceiptStore::saveFailed, this, [this](const QString &reason) {
        setLastError(tr("The list could not be saved: %1").arg(reason));
    });
    folderThreads_->setMaxThreadCount(mostFolderThreads);
    unreadableNames_.setSingleShot(true);
    unreadableNames_.setInterval(std::chrono::milliseconds(500)); // several may come at once
    connect(&unreadableNames_, &QTimer::timeout, this,
            [this] { startTask(listUnreadableNames(watchedFolder_)); });
}

AppState::~AppState() {
    if (!folderThreads_->waitForDone(patienceAtEnd)) {
        std::ignore = folderThreads_.release(); // left to the end of the process, which waits for nobody
    }
}

void AppState::setLastError(const QString &error) {
    lastError_ = error;
    Q_EMIT lastErrorChanged();
}

// The one place where a task is let go without being awaited: it runs on by itself and reports through the
// store or `lastError`.
void AppState::startTask(QCoro::Task<> task) {
    std::ignore = reportFailureOf(std::move(task));
}

// Nobody else would see an exception of a task that nobody awaits.
QCoro::Task<> AppState::reportFailureOf(QCoro::Task<> task) {
    const QPointer<AppState> self(this);
    try {
        co_await task;
    } catch (...) {
        if (self) {
            setLastError(exceptionText(std::current_exception()));
        }
    }
}

} // namespace fennick
