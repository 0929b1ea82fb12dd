#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <csignal>

namespace fennick::test {

using namespace Qt::StringLiterals;

// Keeps the secret store of the session from answering while it lives.
class HaltedSecretStore {
public:
    HaltedSecretStore()
        : process_(static_cast<pid_t>(
              QDBusConnection::sessionBus().interface()->servicePid(u"org.freedesktop.secrets"_s).value())) {
        kill(process_, SIGSTOP);
    }
    ~HaltedSecretStore() { kill(process_, SIGCONT); }

    void die() const { kill(process_, SIGKILL); }

private:
    pid_t process_;
};

} // namespace fennick::test
