#pragma once

#include <QByteArray>
#include <QString>

#include <expected>

namespace fennick {

// A file in the data folder that is only ever read and written as a whole, and is private to the user. What
// was found in it and not understood is never overwritten: it is set aside first, for a person may still be
// able to repair it. Owned by whoever knows what the content means; main thread only.
class WholeFile {
public:
    explicit WholeFile(const QString &path);

    // Empty when the file is missing, is no regular one or cannot be read to its end.
    QByteArray content() const;

    // Tells that the content was not understood. Before the first rewrite the file then gets the name
    // "<name>.damaged-<date>T<time>".
    void setDamaged();

    // Complete and on the disk or, when that fails, not at all; the error is the system's description. A file
    // that may not be written to is replaced all the same, as its folder allows.
    [[nodiscard]] std::expected<void, QString> rewrite(const QByteArray &content);

    void remove();

private:
    [[nodiscard]] std::expected<void, QString> setAside() const;

    QString path_;
    bool isDamaged_ = false;
};

} // namespace fennick
