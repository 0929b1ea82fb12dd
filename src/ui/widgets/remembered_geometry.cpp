#include "ui/widgets/remembered_geometry.h"

#include "settings/window_memory.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace fennick {

RememberedGeometry::RememberedGeometry(QWidget *window)
    : QObject(window)
    , window_(window) {
    window->restoreGeometry(WindowMemory().geometryOf(window->objectName()));
    window->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        if (window_->isVisible()) {
            remember();
        }
    });
}

bool RememberedGeometry::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        remember();
    }
    return QObject::eventFilter(watched, event);
}

void RememberedGeometry::remember() const {
    WindowMemory().rememberGeometryOf(window_->objectName(), window_->saveGeometry());
}

} // namespace fennick
