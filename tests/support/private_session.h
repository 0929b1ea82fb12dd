#pragma once

#include <QProcess>
#include <QString>

namespace fennick::test {

// A D-Bus session of the test's own with a real, unlocked secret store in it. Needs a TemporaryHome before
// it; the test process and the programs it starts then use this session.
class PrivateSession {
public:
    PrivateSession();
    ~PrivateSession();

    // The key as another program finds and stores it, through secret-tool.
    static void storeKey(const QByteArray &key);
    static QByteArray lookUpKey();
    static void clearKey();
    // How many items carry the key's attributes.
    static qsizetype keyCount();

    // From now on the store takes no new items: it has lost the collection they go to. This one lies in
    // another.
    static void refuseKeysBeside(const QByteArray &key);

    // A stopped store (SIGSTOP) is one that takes its time.
    qint64 secretStoreId() const { return secretStore_.processId(); }

private:
    void startBus();
    void startSecretStore();

    QProcess bus_;
    QProcess secretStore_;
};

} // namespace fennick::test
