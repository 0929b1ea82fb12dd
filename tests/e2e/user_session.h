#pragma once

#include "fennick_program.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/scripted_server.h"
#include "support/temporary_home.h"

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QStringList>

#include <functional>

namespace fennick::test {

// The desktop session that the program is started in: a home of its own, a secret store that holds the key,
// preferences, a watched folder and the scripted service. What it tells of the program it reads from outside.
// One for all tests of a test program; `renew` before each.
class UserSession {
public:
    static const QByteArray key;

    UserSession();

    // An empty home and watched folder, delivery to Photos allowed but switched off, the key stored and a
    // service that answers with `lunchAnswer`.
    void renew();

    void setPreference(const QByteArray &name, const QByteArray &value);

    // Starts the program; returns whether it gets to watch the folder.
    bool start();

    // Ends the program. Returns whether it was running until then and has left nothing of the key and no
    // fault report in its output.
    bool end();

    // Waits until the condition holds; returns whether it does. Gives up at once when the program has ended.
    bool waitFor(const std::function<bool()> &condition, int milliseconds = patience) const;

    QString folder() const { return folder_; }
    QString path(const QString &name) const { return folder_ + u'/' + name; }
    QString drop(const QString &name, const QByteArray &content = "a receipt");

    // The listed receipts. A list that is not whole fails the test.
    QList<QJsonObject> rows() const;
    QJsonObject row(const QString &fileName) const;
    bool waitForRows(qsizetype count, const QString &status, int milliseconds = patience) const;

    // What lies in the watched folder, by path below it; hidden files included.
    QMap<QString, QByteArray> files() const;
    QList<QByteArray> sentDocuments() const;

    TemporaryHome home;
    PrivateSession session;
    ScriptedServer server;
    FennickProgram program;

private:
    QString folder_;
    QMap<QByteArray, QByteArray> preferences_;
};

// A receipt of 1 May 2024, and the name that a PDF gets by it.
extern const QByteArray lunchAnswer;
extern const QString lunchName;

// The error of a receipt that is scanned while no API key is stored.
extern const QString missingKey;

} // namespace fennick::test
