#include "settings/window_memory.h"

namespace fennick {

namespace {

const QString geometryKey = QStringLiteral("geometry");
const QString columnsKey = QStringLiteral("columns");

} // namespace

WindowMemory::WindowMemory()
    : defaults_(QStringLiteral("Window")) {}

QByteArray WindowMemory::geometry() const {
    return bytes(geometryKey);
}

QByteArray WindowMemory::columns() const {
    return bytes(columnsKey);
}

void WindowMemory::remember(const QByteArray &geometry, const QByteArray &columns) {
    defaults_.set(geometryKey, QString::fromLatin1(geometry.toBase64()));
    defaults_.set(columnsKey, QString::fromLatin1(columns.toBase64()));
}

QByteArray WindowMemory::bytes(const QString &key) const {
    return QByteArray::fromBase64(defaults_.string(key).value_or(QString()).toLatin1());
}

} // namespace fennick
