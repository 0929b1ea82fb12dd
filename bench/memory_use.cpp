// memory_use: what the program and the engine hold while they are given much, beside what the work itself is
// made of.

#include "comparison_row.h"
#include "documents/hostile_documents.h"
#include "e2e/user_session.h"
#include "engine/engine_process.h"
#include "engine/sample_table.h"
#include "engine/service/generate_request.h"
#include "support/process_status.h"

#include <QDir>
#include <QGuiApplication>

using namespace fennick;
using namespace fennick::engine;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int batch = 20;

QByteArray answer(int number) {
    QByteArray lunch = lunchAnswer;
    return lunch.replace("Dockside Deli", "Deli " + QByteArray::number(number));
}

// Mebibytes of its own that the process has in use.
double memoryInUse(qint64 process) {
    for (const QByteArray &line : readFile(u"/proc/%1/status"_s.arg(process)).split('\n')) {
        if (line.startsWith("RssAnon:")) {
            return line.mid(8).replace("kB", "").trimmed().toDouble() / 1024;
        }
    }
    qFatal("The program has ended");
}

void measureManyReceipts(UserSession &session, int count) {
    int answered = 0;
    session.renew();
    session.server.setScript([&](const HttpRequest &) { return answering(answer(++answered)); });
    session.start();
    for (int dropped = 0; dropped < count; dropped += batch) {
        for (int file = 0; file < batch; ++file) {
            session.drop(u"scan-%1.pdf"_s.arg(dropped + file), QByteArray::number(dropped + file));
        }
        const auto isRead = [&] {
            return readFile(session.home.receiptsFile()).count("\"fileName\": \"2024-05-01 ") ==
                   dropped + batch;
        };
        if (!session.waitFor(isRead, 120000)) {
            qFatal("Receipts are missing");
        }
        session.server.forgetRequests();
    }
    const double afterReading = memoryInUse(session.program.processId());
    session.program.terminate();
    session.start();
    letTimePass(2000);
    printRow("memory after reading receipts, with the list only", afterReading,
             memoryInUse(session.program.processId()), "MiB");
}

void measureLargeRequest(UserSession &session) {
    constexpr int megabytes = 20;
    session.renew();
    session.start();
    const auto before = peakMemory(session.program.processId());
    session.drop(u"large.pdf"_s, QByteArray(megabytes * 1'000'000, 'x'));
    session.waitForRows(1, u"done"_s, 60000);
    const auto after = peakMemory(session.program.processId());
    printRow("memory of a request, three times its file", *after - *before, 3.0 * megabytes, "MB");
}

void measureEngine(const char *what, const QByteArray &body) {
    EngineProcess engine;
    engine.answerTo("POST", engine.generatePath(), body);
    printRow(what, engine.peakMemory().value_or(0), 400, "MB");
}

} // namespace

// memory_use [COUNT]: how many receipts are read.
int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    UserSession session;
    measureManyReceipts(session, argc > 1 ? QByteArray(argv[1]).toInt() : 400);
    measureLargeRequest(session);
    measureEngine("engine, picture of 98 megapixels, its limit",
                  requestFor(blankPng(9900, 9900), u"image/png"_s));
    measureEngine("engine, a PDF with 200 MB of instructions, its limit",
                  requestFor(pdfDrawing(QByteArray(200 * 1024 * 1024, ' '), 1), u"application/pdf"_s));
    measureEngine("engine, a photographed receipt, its limit",
                  requestFor(sampleBytes(u"IMG_2041.jpg"_s), u"image/jpeg"_s));
    return session.end() ? 0 : 1;
}
