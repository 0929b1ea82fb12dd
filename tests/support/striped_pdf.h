#pragma once

#include <QByteArray>

namespace fennick::test {

// A PDF of A4 pages with black bars on them. Needs a QGuiApplication.
QByteArray stripedPdf(int pages);

} // namespace fennick::test
