#pragma once

#include "model/receipt_store.h"
#include "pipeline/app_state.h"
#include "settings/settings_store.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/scripted_server.h"
#include "support/temporary_home.h"

#include <memory>

namespace fennick::test {

// A home and a session with a secret store for all tests of a program: libraries look them up once per
// process.
struct Surroundings {
    TemporaryHome home;
    PrivateSession session;
};

// The whole pipeline on real files, with a scripted service. Starts from an empty list, a stored key, an
// empty watched folder and Photos delivery switched off. Tests end only when nothing is under way any more.
class PipelineUnderTest {
public:
    explicit PipelineUnderTest(Surroundings &surroundings);
    ~PipelineUnderTest();

    // Creates the stores and the controller, as the application does, from what is on disk, and waits until
    // the folder is watched.
    void start();

    QString path(const QString &name) const { return folder_ + u'/' + name; }
    QString drop(const QString &name, const QByteArray &content = "a receipt");

    const QList<Receipt> &receipts() const { return store->receipts(); }
    QStringList listedNames() const;
    QList<QByteArray> sentDocuments() const;
    bool waitForRows(qsizetype count, ReceiptStatus status);

    ScriptedServer server;
    std::unique_ptr<SettingsStore> settings;
    std::unique_ptr<ReceiptStore> store;
    std::unique_ptr<AppState> appState;

private:
    TemporaryHome &home_;
    QString folder_;
};

// The name that a PDF gets by the service's usual answer.
extern const QString finalName;

} // namespace fennick::test
