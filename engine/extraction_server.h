#pragma once

#include <QTcpServer>
#include <QThreadPool>

#include <expected>

namespace fennick {

class HttpConnection;

// Answers generateContent requests with what the engine reads in their document. Lives on the main thread;
// documents are read on a pool of its own, one thread per processor.
class ExtractionServer : public QObject {
    Q_OBJECT

public:
    explicit ExtractionServer(QObject *parent = nullptr);
    // Waits for the documents being read.
    ~ExtractionServer() override;

    // Listens on 127.0.0.1; port 0 = any free one. The error says why it cannot.
    std::expected<quint16, QString> listen(quint16 port);

private:
    void serve(HttpConnection *connection);
    void startReading(HttpConnection *connection, const QByteArray &body, const QString &model);

    QTcpServer listener_;
    QThreadPool readers_;
};

} // namespace fennick
