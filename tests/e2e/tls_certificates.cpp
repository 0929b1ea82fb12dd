#include "tls_certificates.h"

#include "support/conditions.h"
#include "support/temporary_home.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QStringList>

namespace fennick::test {

using namespace Qt::StringLiterals;

namespace {

QByteArray openssl(const QStringList &arguments) {
    QProcess process;
    process.start(u"openssl"_s, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0) {
        qFatal("openssl %s: %s", qPrintable(arguments.join(u' ')),
               process.readAllStandardError().constData());
    }
    return process.readAllStandardOutput();
}

// What follows a name for a new key of its own, unprotected.
QStringList newKey(const QString &path) {
    return {u"-newkey"_s, u"ec"_s,      u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s,
            u"-nodes"_s,  u"-keyout"_s, path};
}

QSslConfiguration configuration(const QString &keyPath, const QString &certificatePath) {
    QSslConfiguration configuration;
    configuration.setPrivateKey(QSslKey(readFile(keyPath), QSsl::Ec));
    configuration.setLocalCertificate(QSslCertificate(readFile(certificatePath)));
    return configuration;
}

} // namespace

TlsCertificates::TlsCertificates(const QString &folder)
    : folder_(folder) {
    QDir().mkpath(folder);
    openssl(QStringList{u"req"_s, u"-x509"_s, u"-subj"_s, u"/CN=Authority of the test"_s, u"-days"_s, u"2"_s,
                        u"-out"_s, path(u"authority.pem"_s)} +
            newKey(path(u"authority.key"_s)));
}

QString TlsCertificates::trustedFolder() const {
    const QString folder = path(u"trusted"_s);
    QDir().mkpath(folder);
    const QByteArray hash =
        openssl({u"x509"_s, u"-in"_s, path(u"authority.pem"_s), u"-noout"_s, u"-hash"_s}).trimmed();
    QFile::copy(path(u"authority.pem"_s), folder + u"/authority.pem"_s);
    QFile::link(u"authority.pem"_s, folder + u'/' + QString::fromLatin1(hash) + u".0"_s);
    return folder;
}

// openssl makes none that ends before it begins.
QSslConfiguration TlsCertificates::expired() const {
    const QSslConfiguration expired = signedFor(u"IP:127.0.0.1"_s, 0);
    const QDateTime end = expired.localCertificate().expiryDate();
    waitUntil([&end] { return end.secsTo(QDateTime::currentDateTimeUtc()) > 1; });
    return expired;
}

QSslConfiguration TlsCertificates::selfSigned() const {
    openssl(QStringList{u"req"_s, u"-x509"_s, u"-subj"_s, u"/CN=127.0.0.1"_s, u"-days"_s, u"2"_s,
                        u"-addext"_s, u"subjectAltName=IP:127.0.0.1"_s, u"-out"_s, path(u"self.pem"_s)} +
            newKey(path(u"self.key"_s)));
    return configuration(path(u"self.key"_s), path(u"self.pem"_s));
}

QSslConfiguration TlsCertificates::signedFor(const QString &alternativeName, int days) const {
    openssl(QStringList{u"req"_s, u"-new"_s, u"-subj"_s, u"/CN=server"_s, u"-out"_s, path(u"server.csr"_s)} +
            newKey(path(u"server.key"_s)));
    writeFile(path(u"extensions"_s), "subjectAltName=" + alternativeName.toLatin1());
    openssl({u"x509"_s, u"-req"_s, u"-in"_s, path(u"server.csr"_s), u"-CA"_s, path(u"authority.pem"_s),
             u"-CAkey"_s, path(u"authority.key"_s), u"-CAcreateserial"_s, u"-days"_s, QString::number(days),
             u"-extfile"_s, path(u"extensions"_s), u"-out"_s, path(u"server.pem"_s)});
    return configuration(path(u"server.key"_s), path(u"server.pem"_s));
}

void trustOnly(const QString &trustedFolder) {
    qputenv("FENNICK_TEST_AUTHORITIES", QFile::encodeName(trustedFolder));
    qputenv("LD_PRELOAD", OWN_AUTHORITIES);
    // The sanitizer asks to be loaded before all else.
    qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":verify_asan_link_order=0");
}

} // namespace fennick::test
