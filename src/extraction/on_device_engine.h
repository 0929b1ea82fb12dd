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
// wait here, so that none times out in the engine's queue. The socket that it listens on is opened here and
// handed down: its port stays Fennick's when the engine has ended, and nobody else can answer in its place.
// Must outlive every task that uses it; main thread.
class OnDeviceEngine : public QObject {
    Q_OBJECT

public:
    // Stands where a request to the service has the user's key, which the engine has no use for.
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
    // One scan's leave to use the engine; while there is one, the engine is not ended.
    using Use = std::unique_ptr<OnDeviceEngine, Release>;

    // `program`: the engine's file. Nothing is started yet.
    explicit OnDeviceEngine(QString program, std::chrono::milliseconds idleTime = std::chrono::minutes(1),
                            QObject *parent = nullptr);
    ~OnDeviceEngine() override;

    // Waits for its turn and starts the engine where it does not run. Nothing when it cannot be started, for
    // the reason that `failure` tells; the next call tries again.
    QCoro::Task<Use> use();

    // In words, why the engine could not be started or has ended.
    const QString &failure() const { return failure_; }

    // Scheme, host and port of the running engine.
    const QString &address() const { return address_; }

    // Requested when the engine that runs now has ended, for whatever reason.
    std::stop_token engineEnd() const { return engineEnd_.get_token(); }

    bool isRunning() const { return state_ == State::running; }
    qint64 processId() const { return process_.processId(); }

Q_SIGNALS:
    // The engine runs, has ended, or has become free for another scan.
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
    QTimer patience_; // with an engine that starts or ends
    std::unique_ptr<ListeningSocket> socket_;
    std::stop_source engineEnd_;
    State state_ = State::ended;
    QString address_;
    QString failure_;
    int uses_ = 0;
};

} // namespace fennick
