#pragma once

#include <QString>
#include <QTemporaryDir>

namespace fennick::test {

using namespace Qt::StringLiterals;

// A home of its own for the test process and the programs it starts: HOME, the XDG folders and TMPDIR lie in
// a temporary folder, so that nothing of the user's is read or touched.
class TemporaryHome {
public:
    TemporaryHome();

    QString path(const QString &relativePath) const { return folder_.filePath(relativePath); }
    QString preferencesFile() const { return path(u"config/Fennick/Fennick.conf"_s); }
    QString permissionsFile() const { return path(u"config/Fennick/Permissions.conf"_s); }
    QString receiptsFile() const { return path(u"data/Fennick/receipts.json"_s); }
    QString ignoredFile() const { return path(u"data/Fennick/ignored.json"_s); }
    QString photoLibrary() const { return path(u"Pictures/Fennick"_s); }
    QString temporaryImages() const { return path(u"tmp/FennickJPEG"_s); }

private:
    QTemporaryDir folder_;
};

// Small file helpers that fail the process loudly instead of leaving a test without its input.
void writeFile(const QString &path, const QByteArray &content);
QByteArray readFile(const QString &path);

} // namespace fennick::test
