#pragma once

#include "support/conditions.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

namespace fennick::test {

// A started `fennick`, seen from outside as a process. It ends with this object, and with the test process
// however that ends. File permissions hold for it as for any user's program, also when the tests run as root.
class FennickProgram {
public:
    // `program`: another copy of the program's file.
    explicit FennickProgram(QString program = builtProgram());
    ~FennickProgram();
    FennickProgram(const FennickProgram &) = delete;
    FennickProgram &operator=(const FennickProgram &) = delete;

    // Starts the program, once more after it has ended. Fails the test process when there is none. `wrapper`
    // is a command that becomes the program, as "env" does.
    void start(const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
               const QStringList &wrapper = {});

    qint64 processId() const { return process_.processId(); }
    bool isRunning() const { return process_.state() != QProcess::NotRunning; }

    // Whether the system tells the program of changes in `folder`.
    bool isWatching(const QString &folder) const;

    // Asks the program to end; returns whether it has.
    bool terminate();

    // Ends it in the middle of whatever it does.
    void kill();

    // Whether the program ends by itself within the time and reports success.
    bool endsWithSuccess(int milliseconds = patience);

    // What it has written to its standard streams since the last call, over all starts.
    QByteArray takeOutput();

private:
    static QString builtProgram();

    QString program_;
    QProcess process_;
    QByteArray earlierOutput_;
};

} // namespace fennick::test
