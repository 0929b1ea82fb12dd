#pragma once

#include <QSslConfiguration>
#include <QString>

namespace fennick::test {

using namespace Qt::StringLiterals;

// A certificate authority of the test's own and servers' certificates by it, made with the openssl program in
// a folder of the test.
class TlsCertificates {
public:
    // Fails the test process when there is no openssl.
    explicit TlsCertificates(const QString &folder);

    // A folder with the authority alone, in the form in which a system keeps those it trusts.
    QString trustedFolder() const;

    // For 127.0.0.1 and localhost.
    QSslConfiguration good() const { return signedFor(u"IP:127.0.0.1,DNS:localhost"_s, 2); }
    QSslConfiguration forAnotherHost() const { return signedFor(u"DNS:elsewhere.example"_s, 2); }
    QSslConfiguration expired() const;
    // By nobody but itself.
    QSslConfiguration selfSigned() const;

private:
    QSslConfiguration signedFor(const QString &alternativeName, int days) const;
    QString path(const QString &name) const { return folder_ + u'/' + name; }

    QString folder_;
};

// Lets the programs started from now on trust these authorities and no others. Qt asks no environment
// variable where they are: own_authorities is preloaded into the programs and shows them the folder in place
// of the system's own.
void trustOnly(const QString &trustedFolder);

} // namespace fennick::test
