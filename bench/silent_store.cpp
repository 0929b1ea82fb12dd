// silent_store: how long the program's start and end take while the secret store does not answer, beside a
// store that does.

#include "comparison_row.h"
#include "e2e/user_session.h"
#include "support/halted_secret_store.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <optional>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

struct Times {
    double start; // milliseconds until the folder is watched
    double end;   // milliseconds of an end with a receipt that waits for its key
};

Times timesOf(UserSession &session, bool isSilent) {
    session.renew();
    session.server.setScript([](const HttpRequest &) {
        HttpReply reply;
        reply.fault = HttpReply::Fault::hang;
        return reply;
    });
    const std::optional<HaltedSecretStore> halted =
        isSilent ? std::make_optional<HaltedSecretStore>() : std::nullopt;
    QElapsedTimer timer;
    timer.start();
    if (!session.start()) {
        qFatal("The program does not watch");
    }
    const double start = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    session.drop(u"a.pdf"_s);
    if (!session.waitForRows(1, u"processing"_s)) {
        qFatal("The receipt is not listed");
    }
    timer.start();
    if (!session.program.terminate()) {
        qFatal("The program does not end");
    }
    return {start, static_cast<double>(timer.nsecsElapsed()) / 1e6};
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);
    UserSession session;
    const Times answering = timesOf(session, false);
    const Times silent = timesOf(session, true);
    printRow("start with a silent secret store, one that answers", silent.start, answering.start, "ms");
    printRow("end with a silent secret store, one that answers", silent.end, answering.end, "ms");
    return 0;
}
