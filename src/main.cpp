#include "platform/application_id.h"
#include "platform/single_instance.h"
#include "ui/fennick_app.h"

#include <QApplication>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Fennick"));
    QApplication::setDesktopFileName(fennick::applicationId);

    fennick::SingleInstance instance;
    if (!instance.claim()) {
        return 0;
    }
    fennick::FennickApp app;
    QObject::connect(&instance, &fennick::SingleInstance::activationRequested, &app,
                     &fennick::FennickApp::showMainWindow);
    app.showMainWindow();
    return QApplication::exec();
}
