#include "settings/window_memory.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString geometryKey = u"geometry"_s;
const QString columnsKey = u"columns"_s;
const QString otherGeometry = u"Geometry"_s; // behind a window's name
const QString trayExplainedKey = u"trayExplained"_s;

} // namespace

WindowMemory::WindowMemory()
    : defaults_(u"Window"_s) {}

QByteArray WindowMemory::geometry() const {
    return bytes(geometryKey);
}

QByteArray WindowMemory::columns() const {
    return bytes(columnsKey);
}

QByteArray WindowMemory::geometryOf(const QString &window) const {
    return bytes(window + otherGeometry);
}

void WindowMemory::rememberGeometryOf(const QString &window, const QByteArray &geometry) {
    defaults_.set(window + otherGeometry, QString::fromLatin1(geometry.toBase64()));
}

bool WindowMemory::isTrayExplained() const {
    return defaults_.boolean(trayExplainedKey);
}

void WindowMemory::setTrayExplained() {
    defaults_.set(trayExplainedKey, true);
}

void WindowMemory::remember(const QByteArray &geometry, const QByteArray &columns) {
    defaults_.set(geometryKey, QString::fromLatin1(geometry.toBase64()));
    defaults_.set(columnsKey, QString::fromLatin1(columns.toBase64()));
}

QByteArray WindowMemory::bytes(const QString &key) const {
    return QByteArray::fromBase64(defaults_.string(key).value_or(QString()).toLatin1());
}

} // namespace fennick
