#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTcpServer>
#include <QTcpSocket>

#include <cstdio>

using namespace Qt::StringLiterals;

// Stands where the program looks for its engine: takes the socket that it is handed, keeps all that is sent
// to it in the file "requests" beside itself and refuses every request.
int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    QTcpServer server;
    if (!server.setSocketDescriptor(application.arguments().at(2).toInt())) {
        return 1;
    }
    QFile requests(QFileInfo(application.arguments().at(0)).path() + u"/requests"_s);
    if (!requests.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        return 1;
    }
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket *const socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [&requests, socket] {
            const QByteArray bytes = socket->readAll();
            requests.write(bytes);
            if (bytes.endsWith('}')) {
                socket->write("HTTP/1.1 500 No\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
                socket->disconnectFromHost();
            }
        });
    });
    std::printf("Listening on the socket\n");
    std::fflush(stdout);
    return application.exec();
}
