#include "user_session.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <algorithm>

namespace fennick::test {

using namespace Qt::StringLiterals;

const QByteArray lunchAnswer = R"({"date": "2024-05-01", "time": "12:30", "amount": 23.5, "currency": "USD",)"
                               R"( "location": "Dockside Deli", "category": "lunch", "summary": "Lunch."})";
const QString lunchName = u"2024-05-01 Lunch - Dockside Deli $23.50.pdf"_s;
const QString missingKey = u"API key not configured. Set your Gemini API key in Settings."_s;
const QByteArray UserSession::key = "AIzaSyE2e-test_key-0123456789";

namespace {

void readList(const QByteArray &json, QList<QJsonObject> &rows) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    QVERIFY2(document.isArray(), qPrintable(u"The list is damaged: "_s + error.errorString()));
    for (const QJsonValue &row : document.array()) {
        QVERIFY(row.isObject());
        rows.append(row.toObject());
    }
}

} // namespace

UserSession::UserSession()
    : server([](const HttpRequest &) { return answering(lunchAnswer); }) {}

void UserSession::renew() {
    static int number = 0;
    program.kill();
    program.takeOutput();
    for (const QString &name :
         {u"config/Fennick"_s, u"data/Fennick"_s, u"Pictures"_s, u"tmp/FennickJPEG"_s}) {
        QDir(home.path(name)).removeRecursively();
    }
    folder_ = home.path(u"watched-%1"_s.arg(++number));
    QDir().mkpath(folder_);
    QDir().mkpath(home.path(u"Pictures"_s));
    writeFile(home.permissionsFile(), "[General]\nphotos=authorized\n");
    preferences_ = {{"addToPhotos", "false"}, {"geminiEndpoint", server.address().toUtf8()}};
    setPreference("watchFolder", folder_.toUtf8());
    PrivateSession::clearKey();
    PrivateSession::storeKey(key);
    server.setScript([](const HttpRequest &) { return answering(lunchAnswer); });
    server.forgetRequests();
}

void UserSession::setPreference(const QByteArray &name, const QByteArray &value) {
    preferences_[name] = value;
    QByteArray content = "[General]\n";
    for (auto preference = preferences_.begin(); preference != preferences_.end(); ++preference) {
        content += preference.key() + '=' + preference.value() + '\n';
    }
    writeFile(home.preferencesFile(), content);
}

bool UserSession::start() {
    program.start();
    return waitFor([this] { return program.isWatching(folder_); });
}

bool UserSession::end() {
    const bool wasRunning = program.isRunning();
    program.kill();
    const QByteArray output = program.takeOutput();
    const bool isClean =
        !output.contains(key) && !output.contains("Sanitizer") && !output.contains("runtime error");
    if (!wasRunning || !isClean) {
        qWarning("%s", output.constData());
    }
    return wasRunning && isClean;
}

bool UserSession::waitFor(const std::function<bool()> &condition, int milliseconds) const {
    bool holds = false;
    waitUntil(
        [&] {
            holds = condition();
            return holds || !program.isRunning();
        },
        milliseconds);
    return holds;
}

QString UserSession::drop(const QString &name, const QByteArray &content) {
    writeFile(path(name), content);
    return path(name);
}

QList<QJsonObject> UserSession::rows() const {
    QList<QJsonObject> rows;
    QFile file(home.receiptsFile());
    if (file.open(QIODevice::ReadOnly)) {
        readList(file.readAll(), rows);
    }
    return rows;
}

QJsonObject UserSession::row(const QString &fileName) const {
    for (const QJsonObject &row : rows()) {
        if (row.value(u"fileName") == fileName) {
            return row;
        }
    }
    return {};
}

bool UserSession::waitForRows(qsizetype count, const QString &status, int milliseconds) const {
    return waitFor(
        [&] {
            const QList<QJsonObject> rows = this->rows();
            return rows.size() == count && std::all_of(rows.begin(), rows.end(), [&](const QJsonObject &row) {
                       return row.value(u"status") == status;
                   });
        },
        milliseconds);
}

QMap<QString, QByteArray> UserSession::files() const {
    QMap<QString, QByteArray> files;
    QDirIterator entries(folder_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        if (!file.open(QIODevice::ReadOnly)) {
            return this->files(); // renamed since it was listed
        }
        files.insert(QDir(folder_).relativeFilePath(file.fileName()), file.readAll());
    }
    return files;
}

QList<QByteArray> UserSession::sentDocuments() const {
    QList<QByteArray> documents;
    for (const HttpRequest &request : server.requests()) {
        documents.append(inlineDocument(request));
    }
    return documents;
}

} // namespace fennick::test
