#pragma once

#include <QWidget>

#include <optional>

class QPushButton;

namespace fennick {

class ElidedLabel;

// A folder's path with a button to choose it and, if offered and a folder is set, one to reset it. The
// children are named after the row: "<row>Path", "<row>Reset", "<row>Choose".
class SettingsFolderRow : public QWidget {
    Q_OBJECT

public:
    enum class Reset { offered, notOffered };

    SettingsFolderRow(const QString &objectName, const QString &purpose, Reset reset,
                      QWidget *parent = nullptr);

    // Shows the path, or the placeholder if there is none.
    void showFolder(const std::optional<QString> &path, const QString &placeholder);

Q_SIGNALS:
    void resetRequested();
    void chooseRequested();

private:
    ElidedLabel *path_;
    QPushButton *reset_ = nullptr;
    QPushButton *choose_;
};

} // namespace fennick
