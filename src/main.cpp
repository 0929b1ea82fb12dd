#include "model/data_folder_lock.h"
#include "platform/application_id.h"
#include "platform/single_instance.h"
#include "text/money_locale.h"
#include "ui/fennick_app.h"
#include "ui/interface_language.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

// Prints help or version, without a display and even if Fennick is already running, and ends the program.
// Other arguments are Qt's.
void answerQuestions(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"Fennick"_s);
    QCoreApplication::setApplicationVersion(QString::fromUtf8(FENNICK_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Turns the receipts in a folder into an expense list."_s);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(version)) {
        parser.showVersion();
    }
    if (parser.isSet(help)) {
        parser.showHelp();
    }
}

} // namespace

int main(int argc, char **argv) {
    if (argc > 1) {
        answerQuestions(argc, argv);
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Fennick"_s);
    QApplication::setDesktopFileName(fennick::applicationId);
    QLocale::setDefault(fennick::moneyLocale()); // only money is written in it
    const fennick::InterfaceLanguage language(QLocale::system().uiLanguages());

    fennick::SingleInstance instance;
    if (!instance.claim()) {
        return 0;
    }
    const fennick::DataFolderLock lock;
    if (lock.isTaken()) {
        const QString reason =
            QCoreApplication::translate("main", "Fennick is already running in another session of yours.");
        qWarning("%s", qPrintable(reason));
        QMessageBox::warning(nullptr, u"Fennick"_s, reason);
        return 1;
    }
    fennick::FennickApp app;
    QObject::connect(&instance, &fennick::SingleInstance::activationRequested, &app,
                     &fennick::FennickApp::showMainWindow);
    app.showMainWindow();
    const int exitCode = QApplication::exec();
    app.finish();
    return exitCode;
}
