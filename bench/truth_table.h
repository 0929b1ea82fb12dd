#pragma once

#include <QDate>
#include <QList>
#include <QString>

#include <expected>

namespace fennick {

// What one picture truly says.
struct Truth {
    QString file;
    QDate date;
    double total = 0;
    QString merchant;
};

// The rows of `folder`/truth.csv: file,date (ISO),total,merchant. The merchant is the rest of its line, so it
// may hold commas; quotes around it are taken off. The error says what cannot be read.
std::expected<QList<Truth>, QString> truthTable(const QString &folder);

} // namespace fennick
