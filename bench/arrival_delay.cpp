// arrival_delay: from the last write of a file to the arrival of its request, beside a timer of the 800 ms
// that the program waits by intention (0.3 s of quiet, 0.5 s in which the size must not change).

#include "comparison_row.h"
#include "e2e/user_session.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <chrono>

using namespace fennick::test;
using namespace Qt::StringLiterals;
using std::chrono::system_clock;

namespace {

using Delays = QList<double>; // milliseconds

double millisecondsSince(system_clock::time_point begin, system_clock::time_point end = system_clock::now()) {
    return std::chrono::duration<double, std::milli>(end - begin).count();
}

double median(Delays values) {
    std::ranges::sort(values);
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

QByteArray listOf(int count) {
    QJsonArray list;
    for (int index = 0; index < count; ++index) {
        const QString name = u"2024-01-01 Misc - Shop %1 $1.00.pdf"_s.arg(index);
        list.append(QJsonObject{{u"id"_s, u"EARLIER-%1"_s.arg(index)},
                                {u"fileName"_s, name},
                                {u"filePath"_s, u"/nowhere/"_s + name},
                                {u"scannedAt"_s, u"2024-01-02T03:04:05Z"_s}});
    }
    return QJsonDocument(list).toJson();
}

double delayOfTimer() {
    const auto begin = system_clock::now();
    QEventLoop loop;
    QTimer::singleShot(std::chrono::milliseconds(800), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    return millisecondsSince(begin);
}

double delayOfFile(UserSession &session, const QString &name, int writes) {
    session.server.forgetRequests();
    QFile file(session.path(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        qFatal("No file can be written");
    }
    for (int write = 1; write < writes; ++write) {
        file.write("x");
        letTimePass(20);
    }
    file.write("x");
    const auto lastWrite = system_clock::now();
    file.close();
    if (!session.waitFor([&] { return session.server.requests().size() == 1; })) {
        qFatal("No request came");
    }
    return millisecondsSince(lastWrite, session.server.requests().first().arrivedAt);
}

Delays delaysOfFilesAtOnce(UserSession &session, int count) {
    session.server.forgetRequests();
    QHash<QByteArray, system_clock::time_point> lastWrites;
    for (int file = 0; file < count; ++file) {
        const QString name = u"together %1.pdf"_s.arg(file);
        session.drop(name, name.toLatin1());
        lastWrites.insert(name.toLatin1(), system_clock::now());
    }
    if (!session.waitFor([&] { return session.server.requests().size() == count; })) {
        qFatal("Requests are missing");
    }
    Delays delays;
    for (const HttpRequest &request : session.server.requests()) {
        delays.append(millisecondsSince(lastWrites.value(inlineDocument(request)), request.arrivedAt));
    }
    return delays;
}

void startListing(UserSession &session, int count) {
    session.renew();
    writeFile(session.home.receiptsFile(), listOf(count));
    session.drop(u"first.pdf"_s, "the folder has been listed when this one is done");
    if (!session.start() ||
        !session.waitFor([&] { return session.row(lunchName).value(u"status") == u"done"_s; })) {
        qFatal("The program does not read");
    }
}

void measureSingleFiles(UserSession &session, int listed, int writes, const char *what) {
    startListing(session, listed);
    Delays ours;
    Delays timers;
    for (int file = 0; file < 10; ++file) {
        ours.append(delayOfFile(session, u"%1-%2.pdf"_s.arg(writes).arg(file), writes));
        timers.append(delayOfTimer());
    }
    printRow(what, median(ours), median(timers), "ms");
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    UserSession session;
    measureSingleFiles(session, 0, 1, "one file to its request, a timer");
    measureSingleFiles(session, 0, 10, "a file of ten writes, a timer");
    measureSingleFiles(session, 400, 1, "one file beside 400 listed, a timer");
    startListing(session, 0);
    printRow("the slowest of fifty files at once, a timer",
             std::ranges::max(delaysOfFilesAtOnce(session, 50)), delayOfTimer(), "ms");
    return session.end() ? 0 : 1;
}
