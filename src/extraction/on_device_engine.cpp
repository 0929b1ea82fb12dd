#include "extraction/on_device_engine.h"

#include "platform/child_process.h"

#include <QCoroSignal>
#include <QFileInfo>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

// Generous: the engine only loads its libraries and tables before it answers. It ends at once on request, for
// it has nothing to save.
constexpr std::chrono::seconds longestStart{20};
constexpr std::chrono::seconds longestEnd{1};
const QByteArray announcement = "Listening on "_ba;

int mostUses() {
    return std::max(1, QThread::idealThreadCount());
}

} // namespace

const QString OnDeviceEngine::key = u"on-device"_s;

OnDeviceEngine::OnDeviceEngine(QString program, std::chrono::milliseconds idleTime, QObject *parent)
    : QObject(parent)
    , program_(std::move(program)) {
    idle_.setSingleShot(true);
    idle_.setInterval(idleTime);
    patience_.setSingleShot(true);
    connect(&idle_, &QTimer::timeout, this, &OnDeviceEngine::end);
    connect(&patience_, &QTimer::timeout, this, [this] {
        //: Follows "The on-device engine could not be started: ".
        fail(QString::fromUtf8(QT_TR_NOOP("it does not answer")));
        process_.kill();
    });
    connect(&process_, &QProcess::readyReadStandardOutput, this, &OnDeviceEngine::readAnnouncement);
    connect(&process_, &QProcess::finished, this, &OnDeviceEngine::handleEnd);
    connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(process_.errorString());
            handleEnd();
        }
    });
}

OnDeviceEngine::~OnDeviceEngine() {
    process_.disconnect(this);
    if (process_.state() == QProcess::NotRunning) {
        return;
    }
    constexpr int milliseconds = std::chrono::milliseconds(longestEnd).count();
    process_.terminate();
    if (!process_.waitForFinished(milliseconds)) {
        process_.kill();
        process_.waitForFinished(milliseconds);
    }
}

QCoro::Task<OnDeviceEngine::Use> OnDeviceEngine::use() {
    while (uses_ >= mostUses()) {
        co_await qCoro(this, &OnDeviceEngine::settled);
    }
    ++uses_;
    idle_.stop();
    Use held(this, Release(this));
    bool hasTried = false;
    while (state_ != State::running) {
        if (state_ == State::ended) {
            if (hasTried) {
                co_return Use();
            }
            hasTried = true;
            start();
        }
        if (state_ == State::starting || state_ == State::ending) {
            co_await qCoro(this, &OnDeviceEngine::settled);
        }
    }
    co_return held;
}

void OnDeviceEngine::start() {
    failure_.clear();
    if (!QFileInfo(program_).isExecutable()) {
        failure_ = u"%1 is missing"_s.arg(program_);
        return;
    }
    if (!openSocket()) {
        return;
    }
    state_ = State::starting;
    engineEnd_ = std::stop_source();
    patience_.start(longestStart);
    endWithThisProgram(process_, {}, socket_->descriptor());
    process_.start(program_, {u"--socket"_s, QString::number(socket_->descriptor())});
}

// Once for all engines: another program could take the port between one and the next.
bool OnDeviceEngine::openSocket() {
    if (socket_) {
        return true;
    }
    auto socket = ListeningSocket::open();
    if (!socket) {
        failure_ = QString::fromLocal8Bit(socket.error().message());
        return false;
    }
    socket_ = *std::move(socket);
    return true;
}

void OnDeviceEngine::readAnnouncement() {
    while (process_.canReadLine()) {
        const QByteArray line = process_.readLine().trimmed();
        if (state_ == State::starting && line.startsWith(announcement)) {
            address_ = u"http://127.0.0.1:%1"_s.arg(socket_->port());
            patience_.stop();
            state_ = State::running;
            Q_EMIT settled();
        }
    }
}

void OnDeviceEngine::end() {
    if (state_ == State::running) {
        state_ = State::ending;
        patience_.start(longestEnd);
        process_.terminate();
    }
}

void OnDeviceEngine::fail(const QString &reason) {
    if (failure_.isEmpty()) {
        failure_ = reason;
    }
}

void OnDeviceEngine::handleEnd() {
    const QByteArray complaint = process_.readAllStandardError().trimmed();
    fail(complaint.isEmpty() ? QString::fromUtf8(QT_TR_NOOP("it has ended unexpectedly"))
                             : QString::fromUtf8(complaint));
    patience_.stop();
    state_ = State::ended;
    address_.clear();
    engineEnd_.request_stop();
    Q_EMIT settled();
}

void OnDeviceEngine::release() {
    --uses_;
    if (uses_ == 0) {
        idle_.start();
    }
    Q_EMIT settled();
}

} // namespace fennick
