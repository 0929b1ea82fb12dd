#pragma once

#include "platform/listening_socket.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>
#include <stop_token>

namespace fennick {

// Fennick's own engine as a child process: started when a scan needs it, ended when none has needed it for a
// minute, started anew after a crash. It serves as many scans at once as there are processors; the others
// wait here, so that none times out in the engine's queue. The engine inherits its listening socket from this
// process: the port remains Fennick's when the engine ends, and no other program can answer in its place.
// Must outlive every task that uses it; main thread.
class OnDeviceEngine : public QObject {
    Q_OBJECT

public:
    // Takes the place of the user's key in a request; the engine does not use it.
    static const QString key;

    class Release {
    public:
        Release() = default;
        explicit Release(OnDeviceEngine *engine)
            : engine_(engine) {}
        void operator()(OnDeviceEngine *) const {
            if (engine_) {
                engine_->release();
            }
        }

    private:
        QPointer<OnDeviceEngine> engine_;
    };
    // One scan's use of the engine. While any exists, the engine keeps running.
    using Use = std::unique_ptr<OnDeviceEngine, Release>;

    // `program`: the engine's file. Does not start it yet.
    explicit OnDeviceEngine(QString program, std::chrono::milliseconds idleTime = std::chrono::minutes(1),
                            QObject *parent = nullptr);
    ~OnDeviceEngine() override;

    // Waits for its turn and starts the engine if it is not running. Null if it cannot be started; `failure`
    // has the reason, and the next call tries again.
    QCoro::Task<Use> use();

    // Why the engine could not be started or has ended, as text.
    const QString &failure() const { return failure_; }

    // Scheme, host and port of the running engine.
    const QString &address() const { return address_; }

    // Stop is requested when the running engine ends, for whatever reason.
    std::stop_token engineEnd() const { return engineEnd_.get_token(); }

    bool isRunning() const { return state_ == State::running; }
    qint64 processId() const { return process_.processId(); }

Q_SIGNALS:
    // The engine is running, has ended, or is free for another scan.
    void settled();

private:
    enum class State { ended, starting, running, ending };

    void start();
    void end();
    [[nodiscard]] bool openSocket();
    void readAnnouncement();
    void fail(const QString &reason);
    void handleEnd();
    void release();

    QString program_;
    QProcess process_;
    QTimer idle_;
    QTimer patience_; // limits the engine's start and end
    std::unique_ptr<ListeningSocket> socket_;
    std::stop_source engineEnd_;
    State state_ = State::ended;
    QString address_;
    QString failure_;
    int uses_ = 0;
};

} // namespace fennick
