#pragma once

#include <QString>
#include <QStringList>

namespace fennick {

// A blank: a space of any width (Unicode category Zs) or a tab.
bool isBlank(QChar character);

// A blank or a line break: line feed to carriage return, next line, line and paragraph separator.
bool isWhiteSpace(QChar character);

QString trimmedOfBlanks(const QString &text);
QString trimmedOfWhiteSpace(const QString &text);

// The non-empty pieces of `text` between white space.
QStringList splitOnWhiteSpace(const QString &text);

} // namespace fennick
