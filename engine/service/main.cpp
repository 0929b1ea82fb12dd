#include "engine/service/command_line.h"
#include "engine/service/extraction_server.h"
#include "engine/service/pdf_process.h"
#include "platform/child_process.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int cannotListen = 1;
constexpr int wrongArguments = 2;

void complain(const QString &message) {
    std::fprintf(stderr, "fennick-engine: %s\n", qUtf8Printable(message));
}

// Nothing has to be saved or removed, and a document being read may take a second to be given up: whoever
// ends the engine need not wait.
void endAtOnce(int) {
    std::_Exit(0);
}

} // namespace

int main(int argc, char *argv[]) {
    std::signal(SIGTERM, endAtOnce);
    std::signal(SIGINT, endAtOnce);
    const QCoreApplication application(argc, argv);
    if (application.arguments().mid(1) == QStringList(u"--help"_s)) {
        std::printf("Usage: fennick-engine [--port NUMBER]\n"
                    "Reads receipts on this machine, as a service on 127.0.0.1. The port is %d unless told; "
                    "0 lets the "
                    "system choose one.\n",
                    static_cast<int>(fennick::engine::defaultPort));
        return 0;
    }
    if (application.arguments().value(1) == fennick::engine::readPdfArgument) {
        return fennick::engine::serveReadPdfApart(application.arguments().mid(1));
    }
    const std::expected<fennick::engine::ListeningPlace, QString> place =
        fennick::engine::requestedPlace(application.arguments().mid(1));
    if (!place) {
        complain(place.error());
        return wrongArguments;
    }
    if (place->socket) {
        fennick::endWithStandardInput(); // a parent that passes a socket keeps it open
    }

    fennick::engine::ExtractionServer server;
    const std::expected<quint16, QString> listening =
        place->socket ? server.listenOn(*place->socket) : server.listen(place->port);
    if (!listening) {
        complain(u"cannot listen on 127.0.0.1:%1: %2"_s.arg(place->port).arg(listening.error()));
        return cannotListen;
    }
    std::printf("Listening on http://127.0.0.1:%d\n", static_cast<int>(*listening));
    std::fflush(stdout);
    return application.exec();
}
