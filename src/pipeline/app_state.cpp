#include "pipeline/app_state.h"

#include "pipeline/exception_text.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

namespace fennick {

AppState::AppState(ReceiptStore *store, SettingsStore *settings, QObject *parent)
    : QObject(parent)
    , store_(store)
    , settings_(settings)
    , engine_(QCoreApplication::applicationDirPath() + QStringLiteral("/fennick-engine"))
    , conversions_(std::make_shared<Turns>(std::max(1, QThread::idealThreadCount()))) {
    connect(store_, &ReceiptStore::saveFailed, this, [this](const QString &reason) {
        setLastError(tr("The list could not be saved: %1").arg(reason));
    });
    unreadableNames_.setSingleShot(true);
    unreadableNames_.setInterval(std::chrono::milliseconds(500)); // several may come at once
    connect(&unreadableNames_, &QTimer::timeout, this,
            [this] { startTask(listUnreadableNames(watchedFolder_)); });
}

AppState::~AppState() = default;

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
