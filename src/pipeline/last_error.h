#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace fennick {

// The last failure outside a receipt's own scan, as a sentence for the user. Owned by AppState and written by
// the parts of the pipeline; main thread.
class LastError : public QObject {
    Q_OBJECT

public:
    const std::optional<QString> &text() const { return text_; }

    void set(const QString &text) {
        text_ = text;
        Q_EMIT changed();
    }

Q_SIGNALS:
    // Also emitted when the same text is set again.
    void changed();

private:
    std::optional<QString> text_;
};

} // namespace fennick
