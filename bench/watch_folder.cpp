// watch_folder FOLDER COUNT: watches FOLDER as Fennick does until COUNT files in it were told of, or for half
// a minute. Prints "watching" when the watch has begun, then the files told of and the processor time used.

#include "files/fs_events_watcher.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSet>

#include <sys/resource.h>

#include <atomic>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: watch_folder FOLDER COUNT\n", stderr);
        return 2;
    }
    const qsizetype expected = arguments.at(2).toLongLong();
    QSet<QString> files; // of the watcher's thread alone until `seen` is complete
    std::atomic<qsizetype> seen = 0;
    fennick::FSEventsWatcher watcher(arguments.at(1), [&](const QList<fennick::FileEvent> &events) {
        for (const fennick::FileEvent &event : events) {
            if (event.path.endsWith(".pdf"_L1)) {
                files.insert(event.path);
            }
        }
        seen = files.size();
    });
    watcher.start().waitForFinished();
    std::puts("watching");
    std::fflush(stdout);
    QElapsedTimer timer;
    timer.start();
    while (seen < expected && timer.elapsed() < 30000) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    std::printf("%lld files, %.3f s of processor time\n", static_cast<long long>(seen), processorSeconds());
    return seen == expected ? 0 : 1;
}
