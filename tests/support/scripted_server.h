#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QSslConfiguration>
#include <QTcpServer>

#include <chrono>
#include <functional>
#include <optional>

namespace fennick::test {

struct HttpRequest {
    QByteArray method;
    QByteArray target;                     // path and query as sent
    QHash<QByteArray, QByteArray> headers; // names in lower case
    QByteArray body;
    std::chrono::system_clock::time_point arrivedAt; // when its first bytes came
};

// What the server does with a request once it has all of it.
struct HttpReply {
    int status = 200;
    QByteArray body;
    QList<QByteArray> headers;
    enum class Fault {
        none,
        hang,        // never answers
        closeAtOnce, // closes without a byte
        cutBody,     // announces the whole body and closes after half of it
        noHttp,      // answers something that is no HTTP
    } fault = Fault::none;
    std::chrono::milliseconds delay{0};
};

// A real HTTP or HTTPS server on loopback that answers as a function says and keeps every request. Runs on
// the test's event loop.
class ScriptedServer : public QTcpServer {
public:
    using Script = std::function<HttpReply(const HttpRequest &)>;

    explicit ScriptedServer(Script script, std::optional<QSslConfiguration> tls = std::nullopt);

    // "http://127.0.0.1:PORT", as the service address in the preferences.
    QString address() const;
    const QList<HttpRequest> &requests() const { return requests_; }
    void setScript(Script script) { script_ = std::move(script); }
    void forgetRequests() { requests_.clear(); }

    // From now on requests are kept waiting for their answers, until these are let go.
    void holdAnswers() { holdsAnswers_ = true; }
    void letAnswersGo();

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void serve(QTcpSocket *socket);

    Script script_;
    std::optional<QSslConfiguration> tls_;
    QList<HttpRequest> requests_;
    bool holdsAnswers_ = false;
    QList<std::function<void()>> heldAnswers_;
};

// The service's answer around a model's answer text.
QByteArray geminiAnswer(const QByteArray &text);
HttpReply answering(const QByteArray &text);

// The decoded document of a generateContent request.
QByteArray inlineDocument(const HttpRequest &request);

} // namespace fennick::test
