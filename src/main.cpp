#include "model/data_folder_lock.h"
#include "platform/application_id.h"
#include "platform/single_instance.h"
#include "ui/fennick_app.h"
#include "ui/interface_language.h"

#include <QApplication>
#include <QLocale>
#include <QMessageBox>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Fennick"));
    QApplication::setDesktopFileName(fennick::applicationId);
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
        QMessageBox::warning(nullptr, QStringLiteral("Fennick"), reason);
        return 1;
    }
    fennick::FennickApp app;
    QObject::connect(&instance, &fennick::SingleInstance::activationRequested, &app,
                     &fennick::FennickApp::showMainWindow);
    app.showMainWindow();
    return QApplication::exec();
}
