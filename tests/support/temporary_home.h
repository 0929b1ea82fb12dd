#pragma once

#include <QString>
#include <QTemporaryDir>

namespace fennick::test {

// A home of its own for the test process and the programs it starts: HOME, the XDG folders and TMPDIR lie in
// a temporary folder, so that nothing of the user's is read or touched.
class TemporaryHome {
public:
    TemporaryHome();

    QString path(const QString &relativePath) const { return folder_.filePath(relativePath); }
    QString preferencesFile() const { return path(QStringLiteral("config/Fennick/Fennick.conf")); }
    QString permissionsFile() const { return path(QStringLiteral("config/Fennick/Permissions.conf")); }
    QString receiptsFile() const { return path(QStringLiteral("data/Fennick/receipts.json")); }
    QString ignoredFile() const { return path(QStringLiteral("data/Fennick/ignored.json")); }
    QString photoLibrary() const { return path(QStringLiteral("Pictures/Fennick")); }
    QString temporaryImages() const { return path(QStringLiteral("tmp/FennickJPEG")); }

private:
    QTemporaryDir folder_;
};

// Small file helpers that fail the process loudly instead of leaving a test without its input.
void writeFile(const QString &path, const QByteArray &content);
QByteArray readFile(const QString &path);

} // namespace fennick::test
