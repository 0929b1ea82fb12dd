#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <expected>

namespace fennick {

// What is customary on the receipts of a country: its file in countries/ over that of its language in
// languages/.
class Customs {
public:
    // `name` is that of a file in countries/, such as CH-fr.
    [[nodiscard]] static std::expected<Customs, QString> read(const QString &name);

    QString country() const { return m_name.left(2); }
    bool isHeldOut() const;
    bool has(const QString &key) const { return m_values.contains(key); }
    QStringList all(const QString &key) const { return m_values.value(key); }
    QString first(const QString &key) const { return all(key).value(0); }
    double number(const QString &key, double otherwise) const;

private:
    QString m_name;
    QHash<QString, QStringList> m_values;
};

// The names of all files in countries/, sorted.
QStringList customsNames();

} // namespace fennick
