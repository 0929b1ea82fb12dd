#include "pipeline_under_test.h"

#include "support/process_status.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace fennick::test {

using namespace Qt::StringLiterals;

const QString finalName = u"2024-05-01 Lunch - Dockside Deli $23.50.pdf"_s;

namespace {

int folderNumber = 0;

const QByteArray answer = R"({"date": "2024-05-01", "time": "12:30", "amount": 23.5, "currency": "USD",)"
                          R"( "location": "Dockside Deli", "category": "lunch", "summary": "Lunch."})";

} // namespace

PipelineUnderTest::PipelineUnderTest(Surroundings &surroundings)
    : server([](const HttpRequest &) { return answering(answer); })
    , home_(surroundings.home)
    , folder_(home_.path(u"watched-%1"_s.arg(++folderNumber))) {
    QDir().mkpath(folder_);
    QDir().mkpath(home_.path(u"Pictures"_s));
    QDir(home_.path(u"data/Fennick"_s)).removeRecursively();
    QDir(home_.photoLibrary()).removeRecursively();
    QFile::remove(home_.photoLibrary()); // a test may put something else there
    QDir(home_.temporaryImages()).removeRecursively();
    writeFile(home_.permissionsFile(), "[General]\nphotos=authorized\n");
    writeFile(home_.preferencesFile(),
              "[General]\naddToPhotos=false\ngeminiEndpoint=" + server.address().toUtf8() +
                  "\nwatchFolder=" + folder_.toUtf8() + '\n');
    PrivateSession::clearKey();
    PrivateSession::storeKey("AIza-test-key");
}

PipelineUnderTest::~PipelineUnderTest() = default;

void PipelineUnderTest::start() {
    appState.reset();
    settings = std::make_unique<SettingsStore>();
    store = std::make_unique<ReceiptStore>();
    appState = std::make_unique<AppState>(store.get(), settings.get());
    appState->startWatchingIfConfigured();
    if (QDir(folder_).exists()) {
        waitUntil([this] { return isWatchingFolder(QCoreApplication::applicationPid(), folder_); });
    }
}

QString PipelineUnderTest::drop(const QString &name, const QByteArray &content) {
    writeFile(path(name), content);
    return path(name);
}

QStringList PipelineUnderTest::listedNames() const {
    QStringList names;
    for (const Receipt &receipt : receipts()) {
        names.append(receipt.fileName);
    }
    names.sort();
    return names;
}

QList<QByteArray> PipelineUnderTest::sentDocuments() const {
    QList<QByteArray> documents;
    for (const HttpRequest &request : server.requests()) {
        documents.append(inlineDocument(request));
    }
    return documents;
}

bool PipelineUnderTest::waitForRows(qsizetype count, ReceiptStatus status) {
    return waitUntil([&] {
        return receipts().size() == count &&
               std::all_of(receipts().begin(), receipts().end(),
                           [status](const Receipt &receipt) { return receipt.status == status; });
    });
}

} // namespace fennick::test
